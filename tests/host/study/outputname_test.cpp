#include "host/study/outputname.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::host::study {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

// clang-format off
struct {
    char const* name;
    std::string given;
    std::string expected;  // the path, or after '!' a part of the message
} const kNameCases[] = {
    // name                     given                 expected
    {"PlainName",               "tree.txt",           "tree.txt"},
    {"InAFolder",               "a/b/tree.txt",       "a/b/tree.txt"},
    {"DetoursAreWalked",        "./a/../b//tree.txt", "b/tree.txt"},
    {"DotsInsideAName",         "..tree..txt",        "..tree..txt"},
    {"Umlauts",                 "b\xC3\xA4ume.txt",   "b\xC3\xA4ume.txt"},
    {"Absolute",                "/tmp/tree.txt",      "!leaves the output folder"},
    {"Above",                   "../tree.txt",        "!leaves the output folder"},
    {"AboveAfterADetour",       "a/../../tree.txt",   "!leaves the output folder"},
    {"TheFolderItself",         ".",                  "!is a folder, not a file"},
    {"EndsAsAFolder",           "a/",                 "!is a folder, not a file"},
    {"Backslash",               "..\\tree.txt",       "!holds a backslash; write / between folders"},
    {"Empty",                   "",                   "!is an empty text"},
    {"LineBreak",               "a\nb",               "!line break"},
    {"ZeroByte",                std::string("a\0b", 3), "!control character"},
};
// clang-format on

TEST(OutputName, StaysInTheOutputFolder)
{
    for (auto const& row : kNameCases) {
        SCOPED_TRACE(row.name);
        DocumentNode value;
        value.m_text = row.given;
        std::string answer;
        try {
            answer = outputName({"s.yaml", 4, "outputs.tree"}, value).string();
        } catch (StudyError const& error) {
            EXPECT_THAT(error.what(), StartsWith("s.yaml:4: outputs.tree: "));
            answer = std::string("!") + error.what();
        }
        bool const fails = row.expected.starts_with('!');
        EXPECT_EQ(answer.starts_with('!'), fails) << answer;
        EXPECT_THAT(answer, HasSubstr(row.expected.substr(fails ? 1 : 0)));
        if (!fails) {
            EXPECT_EQ(answer, row.expected);
        }
    }
}

}  // namespace
}  // namespace vrn::orlo::host::study
