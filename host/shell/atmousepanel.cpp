#include "host/shell/atmousepanel.h"

#include <algorithm>
#include <string_view>

namespace vrn::orlo::host::shell {

namespace {

using appfw::CmdParameter;
using appfw::CmdParameters;
using appfw::Severity;
using KFR::AnyKind;

struct Parameter {
    std::string_view m_name;
    AnyKind m_kind;
    bool m_required = true;
};

KFRAny const* find(CmdParameters const& parameters, std::string_view name)
{
    auto const found = std::ranges::find(parameters, name, &CmdParameter::name);
    return found != parameters.end() ? &found->value : nullptr;
}

/// A parameter that has been checked; where it may be left out, its default.
template <class T>
T valueOf(CmdParameters const& parameters, std::string_view name)
{
    KFRAny const* const value = find(parameters, name);
    return value != nullptr ? *value->get<T>() : T();
}

std::string kindName(AnyKind kind)
{
    return kind == AnyKind::boolean  ? "a truth value"
           : kind == AnyKind::string ? "a string"
                                     : "a Unicode text";
}

KFRResult check(std::string const& command, std::vector<Parameter> const& expected,
                CmdParameters const& given)
{
    for (Parameter const& parameter : expected) {
        if (parameter.m_required && find(given, parameter.m_name) == nullptr) {
            return KFRResult(kMissingParameter)
                .addParam("The command " + command + " lacks its parameter \"" +
                          std::string(parameter.m_name) + "\", " + kindName(parameter.m_kind) +
                          ".");
        }
    }
    for (CmdParameter const& parameter : given) {
        auto const known = std::ranges::find(expected, parameter.name, &Parameter::m_name);
        if (known == expected.end()) {
            return KFRResult(kUnusableParameter)
                .addParam("The command " + command + " has no parameter \"" + parameter.name +
                          "\". Leave it out.");
        }
        if (parameter.value.getTypeID() != static_cast<int>(known->m_kind)) {
            return KFRResult(kUnusableParameter)
                .addParam("The parameter \"" + parameter.name + "\" of the command " + command +
                          " must be " + kindName(known->m_kind) + ", not a value of kind " +
                          std::to_string(parameter.value.getTypeID()) + ".");
        }
    }
    return KFR::ok;
}

}  // namespace

struct AtMousePanel::Command {
    std::string m_context;
    std::string m_name;
    std::vector<Parameter> m_parameters;
    void (AtMousePanel::*m_run)(CmdParameters const&);
};

std::vector<AtMousePanel::Command> const& AtMousePanel::table()
{
    static std::string const shell = "VRN.ShellPlugin";
    static std::vector<Command> const table{
        {shell,
         "SetAtMouseInstructionData",
         {{"text", AnyKind::unicodeString},
          {"secondText", AnyKind::unicodeString, false},
          {"resourcePath", AnyKind::string},
          {"icon", AnyKind::string},
          {"isError", AnyKind::boolean, false}},
         &AtMousePanel::setInstruction},
        {shell, "ClearAtMouseInstructionData", {}, &AtMousePanel::clearInstruction},
        {shell, "ClearAtMouseErrorInstructionData", {}, &AtMousePanel::clearErrorInstruction},
        {shell,
         "SetWorkflowData",
         {{"title", AnyKind::unicodeString}, {"text", AnyKind::unicodeString}},
         &AtMousePanel::setWorkflow},
        {shell, "ClearWorkflowData", {}, &AtMousePanel::clearWorkflow},
        {"UI.SDK", "SetCursor", {{"cursor", AnyKind::string}}, &AtMousePanel::setCursor},
    };
    return table;
}

std::vector<std::pair<std::string, std::string>> const& AtMousePanel::commands()
{
    static std::vector<std::pair<std::string, std::string>> const commands = [] {
        std::vector<std::pair<std::string, std::string>> pairs;
        for (Command const& command : table()) {
            pairs.emplace_back(command.m_context, command.m_name);
        }
        return pairs;
    }();
    return commands;
}

KFRResult AtMousePanel::apply(std::string const& command, CmdParameters const& parameters)
{
    auto const known = std::ranges::find(table(), command, &Command::m_name);
    if (known == table().end()) {
        return KFRResult(kUnknownCommand)
            .addParam("The panel at the mouse has no command " + command + ".");
    }
    KFRResult const checked = check(command, known->m_parameters, parameters);
    if (checked.isOk()) {
        (this->*known->m_run)(parameters);
    }
    return checked;
}

template <class T>
void AtMousePanel::change(T& member, T value, Severity severity, icu::UnicodeString const& line)
{
    if (member == value) {
        return;
    }
    member = std::move(value);
    if (m_sink) {
        m_sink(severity, toLine(line));
    }
}

void AtMousePanel::setInstruction(CmdParameters const& parameters)
{
    MouseInstruction instruction{valueOf<icu::UnicodeString>(parameters, "text"),
                                 valueOf<icu::UnicodeString>(parameters, "secondText"),
                                 valueOf<std::string>(parameters, "resourcePath"),
                                 valueOf<std::string>(parameters, "icon")};
    bool const isError = valueOf<bool>(parameters, "isError");
    icu::UnicodeString line = (isError ? u"at mouse, error: " : u"at mouse: ") + instruction.m_text;
    if (!instruction.m_secondText.isEmpty()) {
        line += u" / " + instruction.m_secondText;
    }
    change(isError ? m_errorInstruction : m_instruction, std::optional(std::move(instruction)),
           isError ? Severity::error : Severity::plain, line);
}

void AtMousePanel::setWorkflow(CmdParameters const& parameters)
{
    WorkflowStep step{valueOf<icu::UnicodeString>(parameters, "title"),
                      valueOf<icu::UnicodeString>(parameters, "text")};
    icu::UnicodeString const line = u"workflow: " + step.m_title + u": " + step.m_text;
    change(m_workflow, std::optional(std::move(step)), Severity::plain, line);
}

void AtMousePanel::setCursor(CmdParameters const& parameters)
{
    std::string const cursor = valueOf<std::string>(parameters, "cursor");
    change(m_cursor, cursor, Severity::plain, u"cursor: " + icu::UnicodeString::fromUTF8(cursor));
}

void AtMousePanel::clearInstruction(CmdParameters const&)
{
    change(m_instruction, {}, Severity::plain, u"at mouse: cleared");
}

void AtMousePanel::clearErrorInstruction(CmdParameters const&)
{
    change(m_errorInstruction, {}, Severity::plain, u"at mouse, error: cleared");
}

void AtMousePanel::clearWorkflow(CmdParameters const&)
{
    change(m_workflow, {}, Severity::plain, u"workflow: cleared");
}

}  // namespace vrn::orlo::host::shell
