#include "host/study/studydocument.h"

#include "host/study/studyerror.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::host::study {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

TEST(StudyDocument, KeepsKeysTextsAndLinesInTheOrderOfTheFile)
{
    DocumentNode const root = parseStudyDocument("s.yaml", "# remark\nb: 1\na:\n  - x\n  - y: z\n");
    ASSERT_THAT(root.m_children, SizeIs(2));
    EXPECT_EQ(root.m_children[0].m_key, "b");
    EXPECT_EQ(root.m_children[0].m_text, "1");
    EXPECT_EQ(root.m_children[0].m_line, 2);
    DocumentNode const& list = root.m_children[1];
    EXPECT_EQ(list.m_kind, NodeKind::list);
    ASSERT_THAT(list.m_children, SizeIs(2));
    EXPECT_EQ(list.m_children[0].m_line, 4);
    EXPECT_EQ(list.m_children[1].m_kind, NodeKind::map);
    EXPECT_EQ(list.m_children[1].m_children.at(0).m_text, "z");
}

TEST(StudyDocument, TakesMarksAndLineEndsOfOtherSystems)
{
    DocumentNode const root = parseStudyDocument("s.yaml", "\xEF\xBB\xBFstudy: a\r\nb: \"2\"\r\n");
    ASSERT_THAT(root.m_children, SizeIs(2));
    EXPECT_EQ(root.m_children[0].m_key, "study");
    EXPECT_EQ(root.m_children[0].m_text, "a");
    EXPECT_EQ(root.m_children[1].m_line, 2);
}

TEST(StudyDocument, PutsWhatAReferenceStandsForAtTheLineOfItsKey)
{
    DocumentNode const root = parseStudyDocument("s.yaml", "a: &x steel\nb:\n  c: *x\n");
    DocumentNode const& inside = root.m_children.at(1).m_children.at(0);
    EXPECT_EQ(inside.m_text, "steel");
    EXPECT_EQ(inside.m_line, 3);
}

TEST(StudyDocument, TellsNothingFromAQuotedWordForNothing)
{
    DocumentNode const root = parseStudyDocument("s.yaml", "a:\nb: ~\nc: '~'\nd: ''\n");
    EXPECT_EQ(root.m_children.at(0).m_kind, NodeKind::empty);
    EXPECT_EQ(root.m_children.at(1).m_kind, NodeKind::empty);
    EXPECT_EQ(root.m_children.at(2).m_kind, NodeKind::text);
    EXPECT_EQ(root.m_children.at(3).m_kind, NodeKind::text);
}

/// Nine lists, each of nine references to the one before: 9^9 texts.
std::string billionTexts()
{
    std::string text = "l0: &l0 x\n";
    for (int i = 1; i <= 9; ++i) {
        std::string const above = "*l" + std::to_string(i - 1);
        text += "l" + std::to_string(i) + ": &l" + std::to_string(i) + " [" + above;
        for (int j = 0; j < 8; ++j) {
            text += ", " + above;
        }
        text += "]\n";
    }
    return text;
}

// clang-format off
struct {
    char const* name;
    std::string text;
    std::string beginning;  // of the message
    std::string part;       // of the message
} const kBadTexts[] = {
    // name                     text                                beginning           part
    {"Empty",                   "",                                 "s.yaml:1: ",       "is empty"},
    {"OnlyAMark",               "\xEF\xBB\xBF",                     "s.yaml:1: ",       "is empty"},
    {"EmptyDocument",           "---\n...\n",                       "s.yaml:1: ",       "is empty"},
    {"OnlyAText",               "\nbracket.step\n",                 "s.yaml:2: ",       "is no map of keys"},
    {"TwoDocuments",            "a: 1\n---\nb: 2\n",                "s.yaml:3: ",       "a second study"},
    {"GivenTwice",              "a: 1\nb: 2\na: 3\n",               "s.yaml:3: a: ",    "first in line 1"},
    {"GivenTwiceInAList",       "o:\n- t: 1\n- t: 1\n  t: 2\n",     "s.yaml:4: o[2].t: ", "first in line 3"},
    {"GivenTwiceOnOneLine",     "o: {t: 1, t: 1}\n",                "s.yaml:1: o.t: ",  "first in line 1"},
    {"KeyIsAList",              "a: 1\n? [b]\n: c\n",               "s.yaml:2: ",       "a key is a single word"},
    {"KeyIsEmpty",              "o:\n  '': c\n",                    "s.yaml:2: o: ",    "a key is a single word"},
    {"NoColon",                 "a 1\nb: 2\n",                      "s.yaml:2: ",       "cannot be read as YAML"},
    {"TooFarIn",                "a: 1\n  b: 2\n",                   "s.yaml:2: ",       "cannot be read as YAML"},
    {"TabBeforeTheKey",         "o:\n\tt: x\n",                     "s.yaml:2: ",       "indent with spaces"},
    {"OpenBracket",             "a: [1\nb: 2\n",                    "s.yaml:2: ",       "cannot be read as YAML"},
    {"OpenQuoteEatsTheRest",    "a: 'x\nb: 2\n\n",                  "s.yaml:2: ",       "a quote is opened"},
    {"UnknownReference",        "a: 1\nb: *x\n",                    "s.yaml:2: ",       "cannot be read as YAML"},
    {"ReferenceToItself",       "a: &x [*x]\n",                     "s.yaml:1: a",      "nested too deep"},
    {"ReferencesWithoutEnd",    billionTexts(),                     "s.yaml:",          "refers to too much"},
    {"BracketsWithoutEnd",      "a: " + std::string(100'000, '['),  "s.yaml:1: ",       "cannot be read as YAML"},
    {"NotUtf8",                 "a: 1\nb: caf\xE9\n",               "s.yaml:2: ",       "is not UTF-8 text"},
    {"CharacterCutOff",         "a: \xE2\x82",                      "s.yaml:1: ",       "is not UTF-8 text"},
    {"LongerFormThanNeeded",    "a: \xC0\xAF\n",                    "s.yaml:1: ",       "is not UTF-8 text"},
    {"TwoBytesPerCharacter",    std::string("\xFF\xFE" "a\0", 4),   "s.yaml:1: ",       "is not UTF-8 text"},
    {"ZeroByte",                std::string("a: 1\n\0", 6),         "s.yaml:2: ",       "control character"},
    {"EscapeCharacter",         "a: \x1B[2J\n",                     "s.yaml:1: ",       "control character"},
};
// clang-format on

TEST(BadStudyText, IsRefusedInOneLineWithItsPlace)
{
    for (auto const& row : kBadTexts) {
        SCOPED_TRACE(row.name);
        try {
            static_cast<void>(parseStudyDocument("s.yaml", row.text));
            FAIL() << "was taken";
        } catch (StudyError const& error) {
            EXPECT_THAT(error.what(), StartsWith(row.beginning));
            EXPECT_THAT(error.what(), HasSubstr(row.part));
            EXPECT_THAT(error.what(), HasSubstr("; ")) << "says what would be right";
            EXPECT_THAT(error.what(), Not(HasSubstr("\n")));
        }
    }
}

}  // namespace
}  // namespace vrn::orlo::host::study
