#include "host/study/outputname.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace vrn::orlo::host::study {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct NameCase {
    char const* name;
    std::string given;
    std::string expected;  // the path, or after '!' a part of the message
};

void PrintTo(NameCase const& row, std::ostream* out)
{
    *out << row.name << ": '" << row.given << "'";
}

class OutputName : public ::testing::TestWithParam<NameCase> {};

TEST_P(OutputName, StaysInTheOutputFolder)
{
    DocumentNode value;
    value.m_text = GetParam().given;
    std::string answer;
    try {
        answer = outputName({"s.yaml", 4, "outputs.tree"}, value).string();
    } catch (StudyError const& error) {
        EXPECT_THAT(error.what(), StartsWith("s.yaml:4: outputs.tree: "));
        answer = std::string("!") + error.what();
    }
    bool const fails = GetParam().expected.starts_with('!');
    EXPECT_EQ(answer.starts_with('!'), fails) << answer;
    EXPECT_THAT(answer, HasSubstr(GetParam().expected.substr(fails ? 1 : 0)));
    if (!fails) {
        EXPECT_EQ(answer, GetParam().expected);
    }
}

// clang-format off
NameCase const kNameCases[] = {
    // name                     given                 expected
    {"PlainName",               "tree.txt",           "tree.txt"},
    {"InAFolder",               "a/b/tree.txt",       "a/b/tree.txt"},
    {"DetoursAreWalked",        "./a/../b//tree.txt", "b/tree.txt"},
    {"DotsInsideAName",         "..tree..txt",        "..tree..txt"},
    {"HiddenFile",              ".tree",              ".tree"},
    {"BlanksInside",            "my tree.txt",        "my tree.txt"},
    {"Umlauts",                 "b\xC3\xA4ume.txt",   "b\xC3\xA4ume.txt"},
    {"Absolute",                "/tmp/tree.txt",      "!leaves the output folder"},
    {"AbsoluteByTwoSlashes",    "//tree.txt",         "!leaves the output folder"},
    {"Above",                   "../tree.txt",        "!leaves the output folder"},
    {"AboveAfterADetour",       "a/../../tree.txt",   "!leaves the output folder"},
    {"TheFolderAbove",          "..",                 "!leaves the output folder"},
    {"TheFolderItself",         ".",                  "!is a folder, not a file"},
    {"BackToTheFolderItself",   "a/..",               "!is a folder, not a file"},
    {"EndsAsAFolder",           "a/",                 "!is a folder, not a file"},
    {"EndsInADot",              "a/.",                "!is a folder, not a file"},
    {"EndsAbove",               "a/b/..",             "!is a folder, not a file"},
    {"Backslash",               "..\\tree.txt",       "!holds a backslash; write / between folders"},
    {"Empty",                   "",                   "!is an empty text"},
    {"Blank",                   "  ",                 "!is an empty text"},
    {"LineBreak",               "a\nb",               "!line break"},
    {"ZeroByte",                std::string("a\0b", 3), "!control character"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(OutputName, OutputName, ::testing::ValuesIn(kNameCases),
                         [](auto const& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vrn::orlo::host::study
