#include "plugins/modelingplugin/utilities/componentframe/atmouseinstruction.h"

#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <string_view>
#include <utility>

namespace vrn::orlo::plugin::modeling {

using appfw::CmdParameters;

namespace {

KFRSequence<KFRAny> const& noParams()
{
    static KFRSequence<KFRAny> const kNone;
    return kNone;
}

icu::UnicodeString textOf(int id, KFRSequence<KFRAny> const& params)
{
    return LocalStr(id).loadRes(params);
}

/// Runs a command of another plug-in.
/// \param fullName  "<plug-in>.<command>"
void sendToShell(std::string_view fullName, CmdParameters const& parameters)
{
    auto const processor =
        KFR::strict_cast<appfw::ICmdProcessorInterface>(ServiceHelper::getCmdProcessor());
    if (processor == KFR::NULLSP) {
        return;
    }
    std::size_t const dot = fullName.rfind('.');
    appfw::CmdInvocationRequest request;
    request.commandContext = fullName.substr(0, dot);
    request.commandName = fullName.substr(dot + 1);
    appfw::CmdOptions options;
    static_cast<void>(processor->getCommandOptions(request, options));
    static_cast<void>(processor->executeCommand(request, options, parameters));
}

}  // namespace

AtMouseInstruction* AtMouseInstruction::s_instance = nullptr;

AtMouseInstruction::AtMouseInstruction(
    std::string pluginId, KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
    std::string resourcePath)
    : m_resourcePath(std::move(resourcePath)),
      m_pluginId(std::move(pluginId)),
      m_localizationProvider(provider)
{
}

KFRResult AtMouseInstruction::initialize(
    std::string pluginId, KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
    std::string resourcePath)
{
    static AtMouseInstruction instruction(std::move(pluginId), provider, std::move(resourcePath));
    s_instance = &instruction;
    return KFR::ok;
}

AtMouseInstruction* AtMouseInstruction::instance()
{
    return s_instance;
}

KFRResult AtMouseInstruction::terminate()
{
    return KFR::ok;
}

void AtMouseInstruction::send(Instruction instruction)
{
    m_current = std::move(instruction);
    CmdParameters parameters;
    parameters.append({"text", KFRAny(m_current.m_text)});
    if (!m_current.m_secondText.isEmpty()) {
        parameters.append({"secondText", KFRAny(m_current.m_secondText)});
    }
    parameters.append({"resourcePath", KFRAny(m_resourcePath)});
    parameters.append({"icon", KFRAny(m_current.m_icon)});
    parameters.append({"isError", KFRAny(m_current.m_isError)});
    sendToShell("VRN.ShellPlugin.SetAtMouseInstructionData", parameters);
}

void AtMouseInstruction::show(int id)
{
    show(id, noParams());
}

void AtMouseInstruction::show(int id, KFRSequence<KFRAny> const& params)
{
    send({textOf(id, params), {}, m_instructionIcon, false});
}

void AtMouseInstruction::show(int id, KFRSequence<KFRAny> const& params, int secondId,
                              KFRSequence<KFRAny> const& secondParams)
{
    send({textOf(id, params), textOf(secondId, secondParams), m_instructionIcon, false});
}

void AtMouseInstruction::show(int id, int secondId)
{
    show(id, noParams(), secondId, noParams());
}

void AtMouseInstruction::showError(int id, KFRSequence<KFRAny> const& params)
{
    send({textOf(id, params), {}, m_errorIcon, true});
}

void AtMouseInstruction::showWorkflow(int titleId, KFRSequence<KFRAny> const& titleParams,
                                      int textId, KFRSequence<KFRAny> const& textParams)
{
    CmdParameters parameters;
    parameters.append({"title", KFRAny(textOf(titleId, titleParams))});
    parameters.append({"text", KFRAny(textOf(textId, textParams))});
    sendToShell("VRN.ShellPlugin.SetWorkflowData", parameters);
}

void AtMouseInstruction::showWorkflow(int titleId, int textId)
{
    showWorkflow(titleId, noParams(), textId, noParams());
}

void AtMouseInstruction::close(AtMouseCloseEnum what)
{
    m_instructionIcon.clear();
    m_errorIcon.clear();
    if (what == AtMouseCloseEnum::workflow) {
        sendToShell("VRN.ShellPlugin.ClearWorkflowData", {});
        return;
    }
    m_current = {};
    sendToShell("VRN.ShellPlugin.ClearAtMouseInstructionData", {});
    if (what != AtMouseCloseEnum::instruction) {
        sendToShell("VRN.ShellPlugin.ClearAtMouseErrorInstructionData", {});
    }
}

void AtMouseInstruction::setCursorIcon(std::string const& cursor)
{
    CmdParameters parameters;
    parameters.append({"cursor", KFRAny(cursor)});
    sendToShell("UI.SDK.SetCursor", parameters);
}

void AtMouseInstruction::resetCursor()
{
    setCursorIcon("Default");
}

}  // namespace vrn::orlo::plugin::modeling
