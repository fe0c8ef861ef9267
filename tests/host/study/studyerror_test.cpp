#include "host/study/studyerror.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::host::study {
namespace {

using ::testing::StrEq;

TEST(StudyError, NamesFileLineAndKeyAsFarAsThereAreAnyOnOneLine)
{
    StudyError const error({"a/study.yaml", 3, "outputs.tree"}, "is odd; write it even");
    EXPECT_THAT(error.what(), StrEq("a/study.yaml:3: outputs.tree: is odd; write it even"));
    EXPECT_EQ(error.place().m_line, 3);
    EXPECT_EQ(error.place().m_key, "outputs.tree");
    EXPECT_THAT(StudyError({"s.yaml", 0, ""}, "is a folder").what(), StrEq("s.yaml: is a folder"));
    EXPECT_THAT(StudyError({"s.yaml", 1, "a\nb\x1b[2J"}, "is odd").what(),
                StrEq("s.yaml:1: a?b?[2J: is odd"));
    EXPECT_THAT(StudyError({"s.yaml", 1, std::string(100'000, 'k')}, "is odd").what(),
                StrEq("s.yaml:1: " + std::string(120, 'k') + "...: is odd"));
}

TEST(InQuotes, CutsLongTextBetweenCharacters)
{
    EXPECT_EQ(inQuotes("tree"), "'tree'");
    EXPECT_EQ(inQuotes(std::string(60, 'x')), "'" + std::string(60, 'x') + "'");
    EXPECT_EQ(inQuotes(std::string(61, 'x')), "'" + std::string(60, 'x') + "...'");
    // The character of two bytes at 59 does not fit, so it is left out whole.
    EXPECT_EQ(inQuotes(std::string(59, 'x') + "\xC3\xA4z"), "'" + std::string(59, 'x') + "...'");
}

}  // namespace
}  // namespace vrn::orlo::host::study
