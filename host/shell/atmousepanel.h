/// \file
/// What a window would show beside the mouse: instruction, step of the workflow, cursor.

#pragma once

#include "host/shell/terminalsink.h"
#include "platform/appfw/commands.h"

#include <unicode/unistr.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::shell {

/// Codes of what is refused; each comes with a text as its first parameter.
enum PanelFailure : int {
    kUnknownCommand = 1,
    kMissingParameter = 2,
    kUnusableParameter = 3,  ///< Of a name that the command does not have, or of the wrong kind.
};

/// Two rows and an icon.
struct MouseInstruction {
    icu::UnicodeString m_text;
    icu::UnicodeString m_secondText;  ///< Empty for no second row.
    std::string m_resourcePath;       ///< Where the icon is found.
    std::string m_icon;

    friend bool operator==(MouseInstruction const&, MouseInstruction const&) = default;
};

/// A step of a workflow.
struct WorkflowStep {
    icu::UnicodeString m_title;
    icu::UnicodeString m_text;

    friend bool operator==(WorkflowStep const&, WorkflowStep const&) = default;
};

/// The panel as commands leave it; each change is a line for the sink.
///
/// | command                            | parameters                                              |
/// |------------------------------------|---------------------------------------------------------|
/// | "SetAtMouseInstructionData"        | "text", "secondText"*: UnicodeString; "resourcePath",   |
/// |                                    | "icon": std::string; "isError"*: bool                   |
/// | "ClearAtMouseInstructionData"      |                                                         |
/// | "ClearAtMouseErrorInstructionData" |                                                         |
/// | "SetWorkflowData"                  | "title", "text": UnicodeString                          |
/// | "ClearWorkflowData"                |                                                         |
/// | "SetCursor"                        | "cursor": std::string                                   |
///
/// Parameters with * may be left out. The instruction and the error instruction are there at once
/// and go by their own commands.
///
/// Failure    As PanelFailure says, with the panel as it was.
/// Threads    Main thread.
class AtMousePanel {
public:
    explicit AtMousePanel(TerminalSink sink) : m_sink(std::move(sink)) {}

    /// The commands that the panel runs, each with the plug-in that owns it.
    [[nodiscard]] static std::vector<std::pair<std::string, std::string>> const& commands();

    KFRResult apply(std::string const& command, appfw::CmdParameters const& parameters);

    [[nodiscard]] std::optional<MouseInstruction> const& instruction() const noexcept
    {
        return m_instruction;
    }
    [[nodiscard]] std::optional<MouseInstruction> const& errorInstruction() const noexcept
    {
        return m_errorInstruction;
    }
    [[nodiscard]] std::optional<WorkflowStep> const& workflow() const noexcept
    {
        return m_workflow;
    }
    [[nodiscard]] std::string const& cursor() const noexcept { return m_cursor; }

private:
    void setInstruction(appfw::CmdParameters const& parameters);
    void setWorkflow(appfw::CmdParameters const& parameters);
    void setCursor(appfw::CmdParameters const& parameters);
    void clearInstruction(appfw::CmdParameters const&);
    void clearErrorInstruction(appfw::CmdParameters const&);
    void clearWorkflow(appfw::CmdParameters const&);

    template <class T>
    void change(T& member, T value, appfw::Severity severity, icu::UnicodeString const& line);

    struct Command;
    [[nodiscard]] static std::vector<Command> const& table();

    TerminalSink m_sink;
    std::optional<MouseInstruction> m_instruction;
    std::optional<MouseInstruction> m_errorInstruction;
    std::optional<WorkflowStep> m_workflow;
    std::string m_cursor = "Default";
};

}  // namespace vrn::orlo::host::shell
