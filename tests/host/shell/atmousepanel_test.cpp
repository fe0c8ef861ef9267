#include "host/shell/atmousepanel.h"
#include "tests/host/shell/shelltesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::host::shell {
namespace {

using appfw::CmdParameter;
using appfw::CmdParameters;
using appfw::Severity;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::Pair;

KFRAny text(char16_t const* value)
{
    return KFRAny(icu::UnicodeString(value));
}

/// An instruction without what may be left out.
CmdParameters instruction(char16_t const* first)
{
    return {{"text", text(first)}, {"resourcePath", KFRAny("/res")}, {"icon", KFRAny("pick.png")}};
}

class AtMousePanelTest : public ::testing::Test {
protected:
    std::vector<std::pair<Severity, std::string>> apply(char const* command,
                                                        CmdParameters const& parameters = {})
    {
        EXPECT_EQ(m_panel.apply(command, parameters).getCode(), KFR::ok) << command;
        return m_lines.take();
    }

    Lines m_lines;
    AtMousePanel m_panel{m_lines.sink()};
};

TEST_F(AtMousePanelTest, KeepsInstructionAndErrorSideBySide)
{
    EXPECT_THAT(apply("SetAtMouseInstructionData", instruction(u"Größe wählen")),
                ElementsAre(Pair(Severity::plain, "at mouse: Größe wählen")));
    EXPECT_THAT(apply("SetAtMouseInstructionData", instruction(u"Größe wählen")), IsEmpty());
    CmdParameters error = instruction(u"No face");
    error.append(CmdParameter{"secondText", text(u"Pick another")});
    error.append(CmdParameter{"isError", KFRAny(true)});
    EXPECT_THAT(apply("SetAtMouseInstructionData", error),
                ElementsAre(Pair(Severity::error, "at mouse, error: No face / Pick another")));
    EXPECT_THAT(m_panel.instruction(),
                Optional(MouseInstruction{u"Größe wählen", u"", "/res", "pick.png"}));
    EXPECT_THAT(m_panel.errorInstruction(),
                Optional(MouseInstruction{u"No face", u"Pick another", "/res", "pick.png"}));

    EXPECT_THAT(apply("ClearAtMouseInstructionData"),
                ElementsAre(Pair(Severity::plain, "at mouse: cleared")));
    EXPECT_EQ(m_panel.instruction(), std::nullopt);
    EXPECT_NE(m_panel.errorInstruction(), std::nullopt);
    EXPECT_THAT(apply("ClearAtMouseErrorInstructionData"),
                ElementsAre(Pair(Severity::plain, "at mouse, error: cleared")));
    EXPECT_EQ(m_panel.errorInstruction(), std::nullopt);
}

TEST_F(AtMousePanelTest, KeepsWorkflowAndCursor)
{
    CmdParameters const step{{"title", text(u"Step 1")}, {"text", text(u"Mesh")}};
    EXPECT_THAT(apply("SetWorkflowData", step),
                ElementsAre(Pair(Severity::plain, "workflow: Step 1: Mesh")));
    EXPECT_THAT(m_panel.workflow(), Optional(WorkflowStep{u"Step 1", u"Mesh"}));
    EXPECT_THAT(apply("ClearWorkflowData"),
                ElementsAre(Pair(Severity::plain, "workflow: cleared")));
    EXPECT_THAT(apply("ClearWorkflowData"), IsEmpty());
    EXPECT_EQ(m_panel.workflow(), std::nullopt);

    EXPECT_THAT(apply("SetCursor", {{"cursor", KFRAny("Default")}}), IsEmpty());
    EXPECT_THAT(apply("SetCursor", {{"cursor", KFRAny("Move")}}),
                ElementsAre(Pair(Severity::plain, "cursor: Move")));
    EXPECT_EQ(m_panel.cursor(), "Move");
}

TEST_F(AtMousePanelTest, RefusesWhatItCannotUseAndStaysAsItWas)
{
    CmdParameters extra = instruction(u"other");
    extra.append(CmdParameter{"secondtext", text(u"row")});
    CmdParameters number = instruction(u"other");
    number.append(CmdParameter{"isError", KFRAny(1)});
    CmdParameters const noIcon{{"text", text(u"other")}, {"resourcePath", KFRAny("/res")}};
    // clang-format off
    struct {
        char const* command;
        CmdParameters parameters;
        int code;
        char const* named;
    } const cases[] = {
        {"SetAtMouseInstructionData", noIcon, kMissingParameter, "\"icon\""},
        {"SetAtMouseInstructionData", extra, kUnusableParameter, "\"secondtext\""},
        {"SetAtMouseInstructionData", number, kUnusableParameter, "a truth value, not"},
        {"SetWorkflowData", {{"title", text(u"other")}}, kMissingParameter, "\"text\""},
        {"SetCursor", {{"cursor", text(u"other")}}, kUnusableParameter, "a string, not"},
        {"ClearWorkflowData", {{"cursor", KFRAny("x")}}, kUnusableParameter, "\"cursor\""},
        {"setCursor", {{"cursor", KFRAny("x")}}, kUnknownCommand, "setCursor"},
    };
    // clang-format on
    apply("SetAtMouseInstructionData", instruction(u"Pick"));
    for (auto const& row : cases) {
        KFRResult const refused = m_panel.apply(row.command, row.parameters);
        EXPECT_EQ(refused.getCode(), row.code) << row.command;
        EXPECT_THAT(reasonOf(refused), HasSubstr(row.named));
    }
    EXPECT_THAT(m_lines.take(), IsEmpty());
    EXPECT_EQ(m_panel.instruction()->m_text, u"Pick");
    EXPECT_EQ(m_panel.workflow(), std::nullopt);
    EXPECT_EQ(m_panel.cursor(), "Default");
}

TEST_F(AtMousePanelTest, ListsItsCommandsWithTheirOwners)
{
    EXPECT_THAT(AtMousePanel::commands(),
                ::testing::UnorderedElementsAre(
                    Pair("VRN.ShellPlugin", "SetAtMouseInstructionData"),
                    Pair("VRN.ShellPlugin", "ClearAtMouseInstructionData"),
                    Pair("VRN.ShellPlugin", "ClearAtMouseErrorInstructionData"),
                    Pair("VRN.ShellPlugin", "SetWorkflowData"),
                    Pair("VRN.ShellPlugin", "ClearWorkflowData"), Pair("UI.SDK", "SetCursor")));
}

}  // namespace
}  // namespace vrn::orlo::host::shell
