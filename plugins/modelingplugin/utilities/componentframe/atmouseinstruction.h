/// \file
/// The short instruction beside the mouse cursor.

#pragma once

#include "framework/appframe/pluginsupport/helpers/atmouseinstructionbase.h"
#include "platform/appfw/commands.h"
#include "platform/kfr/kfrframework.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>

namespace vrn::orlo::plugin::modeling {

/// What is to be cleared.
enum class AtMouseCloseEnum : int { instruction = 0, workflow = 1, all = 2 };

/// Sends instructions to the shell, by the shell's commands.
///
/// The ids are those of the plug-in's message catalogue. The shell is given, by name: "text",
/// "secondText", "resourcePath", "icon" and "isError" of an instruction; "title" and
/// "text" of a workflow step; "cursor".
///
/// Failure    Silent: without a command processor nothing is sent.
/// Threads    Main thread.
class MODELING_API AtMouseInstruction : public appfw::AtMouseInstructionBase {
public:
    /// Makes the one instance; later calls change nothing. Always OK.
    static KFRResult initialize(std::string pluginId,
                                KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
                                std::string resourcePath);
    /// Null before initialize().
    static AtMouseInstruction* instance();
    /// Always OK. The instance stays.
    KFRResult terminate();

    void show(int id);
    void show(int id, KFRSequence<KFRAny> const& params);
    void show(int id, KFRSequence<KFRAny> const& params, int secondId,
              KFRSequence<KFRAny> const& secondParams);
    void show(int id, int secondId);
    void showError(int id, KFRSequence<KFRAny> const& params);
    void showWorkflow(int titleId, KFRSequence<KFRAny> const& titleParams, int textId,
                      KFRSequence<KFRAny> const& textParams);
    void showWorkflow(int titleId, int textId);

    /// Forgets both icons, then clears what is shown.
    void close(AtMouseCloseEnum what);

    void setInstructionIcon(std::string const& icon) { m_instructionIcon = icon; }
    void setIcon(std::string icon) { setInstructionIcon(icon); }
    void setErrorIcon(std::string const& icon) { m_errorIcon = icon; }
    void setCursorIcon(std::string const& cursor);
    void resetCursor();

    [[nodiscard]] std::string const& getPluginID() const { return m_pluginId; }
    [[nodiscard]] std::string const& getResourcePath() const { return m_resourcePath; }
    [[nodiscard]] KFRSmartPointer<KFRIServiceProviderInterface> getLocalizationProvider() const
    {
        return m_localizationProvider;
    }

private:
    AtMouseInstruction(std::string pluginId,
                       KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
                       std::string resourcePath);
    void send(Instruction instruction);

    static AtMouseInstruction* s_instance;

    std::string m_resourcePath;
    std::string m_instructionIcon;
    std::string m_errorIcon;
    std::string m_pluginId;
    KFRSmartPointer<KFRIServiceProviderInterface> m_localizationProvider;
};

}  // namespace vrn::orlo::plugin::modeling
