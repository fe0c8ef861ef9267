#include "host/shell/boxes.h"
#include "tests/host/shell/shelltesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::host::shell {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

// clang-format off
struct {
    char const* name;
    char const* answer;  ///< null for a script without one
    std::vector<icu::UnicodeString> buttons;
    int button;  ///< that is answered
    bool scripted;
} const kBoxCases[] = {
    // name                           answer   buttons                   button scripted
    {"ByNumber",                      "1",     {u"Yes", u"No", u"Stop"}, 1, true},
    {"BySecondNumber",                "2",     {u"Yes", u"No", u"Stop"}, 2, true},
    {"ByThirdNumber",                 "3",     {u"Yes", u"No", u"Stop"}, 3, true},
    {"ByText",                        "Größe", {u"Yes", u"Größe", u""},  2, true},
    {"TextGoesBeforeNumber",          "1",     {u"2", u"1", u"3"},       2, true},
    {"NobodyAnswers",                 nullptr, {u"Yes", u"No", u"Stop"}, 3, false},
    {"ThirdLikeTheSecondIsNone",      "3",     {u"Yes", u"No", u"No"},   2, false},
    {"ThirdLikeTheFirstIsNone",       "3",     {u"Yes", u"No", u"Yes"},  2, false},
    {"OnlyButtonIsSafe",              nullptr, {u"OK", u"", u""},        1, false},
    {"OneTextOnThreeButtonsIsOne",    "2",     {u"OK", u"OK", u"OK"},    1, false},
    {"NoButtonAtAllIsTheFirst",       nullptr, {u"", u"", u""},          1, false},
    {"UnknownText",                   "Perhaps", {u"Yes", u"No", u"No"}, 2, false},
    {"EmptyAnswerIsNoButton",         "",      {u"OK", u"", u""},        1, false},
    {"CaseCounts",                    "yes",   {u"Yes", u"No", u"No"},   2, false},
    {"NumberPastTheButtons",          "4",     {u"Yes", u"No", u"Stop"}, 3, false},
};
// clang-format on

TEST(BoxAnswers, ComeFromTheScriptOrAreSafe)
{
    for (auto const& row : kBoxCases) {
        SCOPED_TRACE(row.name);
        Lines lines;
        std::vector<std::string> script;
        if (row.answer != nullptr) {
            script.emplace_back(row.answer);
        }
        Boxes boxes(script, lines.sink());
        KFRResult const result =
            boxes.ask(u"Title", u"Delete?", row.buttons[0], row.buttons[1], row.buttons[2]);
        EXPECT_EQ(result.getCode(), row.button == 1 ? KFR::ok : row.button);
        EXPECT_EQ(boxes.log().front().m_answer, row.button);
        EXPECT_EQ(boxes.log().front().m_scripted, row.scripted);
        EXPECT_THAT(boxes.unused(), IsEmpty());
        auto const said = lines.take();
        if (row.scripted) {
            EXPECT_THAT(said, IsEmpty());
        } else {
            ASSERT_THAT(said, ElementsAre(Pair(
                                  appfw::Severity::warning,
                                  AllOf(HasSubstr("Delete?"),
                                        HasSubstr(script.empty() ? "no answer" : script[0])))));
            EXPECT_EQ("warning: " + reasonOf(result), said.front().second);
        }
    }
}

TEST(Boxes, AreAnsweredInTheOrderOfTheScriptAndKept)
{
    Lines lines;
    Boxes boxes({"No", "1", "Late"}, lines.sink());
    EXPECT_EQ(boxes.ask(u"A", u"first?", u"Yes", u"No", u"No").getCode(), 2);
    EXPECT_EQ(boxes.ask(u"B", u"second?", u"Yes", u"No", u"No").getCode(), KFR::ok);
    ASSERT_EQ(boxes.log().size(), 2U);
    EXPECT_EQ(boxes.log()[1].m_title, u"B");
    EXPECT_EQ(boxes.log()[1].m_text, u"second?");
    EXPECT_THAT(boxes.log()[1].m_buttons, ElementsAre(u"Yes", u"No", u""));
    EXPECT_THAT(boxes.unused(), ElementsAre("Late"));
}

}  // namespace
}  // namespace vrn::orlo::host::shell
