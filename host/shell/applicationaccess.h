/// \file
/// The application as its plug-ins see it.

#pragma once

#include "host/shell/terminalsink.h"
#include "platform/appfw/frameworkaccess.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/shell/shell.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace vrn::orlo::host::shell {

/// Codes of what is refused; each comes with a text as its first parameter.
enum ApplicationFailure : int {
    kNoSuchPlugin = 1,
    kFolderNotMade = 2,
    kNoHelp = 3,  ///< Nobody shows help pages here.
    kNoStateService = 4,
};

/// Plug-ins, product, status line, head and help in one object.
///
/// Failure    As ApplicationFailure says, with outputs as they were.
/// Threads    Main thread.
class ApplicationAccess final
    : public KFRServiceObjectImpl<appfw::IFrameworkAccessInterface, appfw::KFRIAppExecutive,
                                  plugin::shell::IShellHelp> {
public:
    using HelpSink = std::function<void(std::string const& key, KFRSequence<KFRAny> const& params)>;

    struct Options {
        std::string m_productName = "Orlo Modeler";  ///< UTF-8.
        bool m_headless = true;
        /// The plug-ins, each with the folder for its own files. A folder is made when it is first
        /// asked for.
        std::map<std::string, std::filesystem::path> m_pluginFolders;
        TerminalSink m_status;
        HelpSink m_help;
    };

    /// \param states  may be null; then there is no state service
    ApplicationAccess(Options const& options,
                      KFRSmartPointer<appfw::KFRIStateServiceInterface> states);

    /// One object per plug-in serves all; what its getFolder answers is absolute.
    KFRResult getPlugin(std::string const& name,
                        KFRSmartPointer<appfw::IPluginInterface>& plugin) override;
    KFRResult getProduct(KFRSmartPointer<appfw::IProductInterface>& product) override;
    /// One line to the status sink, worded as by tell().
    KFRResult showStatusMessage(icu::UnicodeString const& text, appfw::Severity severity) override;
    KFRResult getStateService(KFRSmartPointer<appfw::KFRIStateServiceInterface>& service) override;

    int isHeadless() override { return m_headless ? 1 : 0; }

    /// \param flag  of no meaning on a terminal
    KFRResult show(std::string const& key, KFRSequence<KFRAny> const& params, bool flag) override;

    std::string getObjectName() override { return "vrn.orlo.host.shell:ApplicationAccess"; }

protected:
    ~ApplicationAccess() override = default;

private:
    bool m_headless;
    TerminalSink m_status;
    HelpSink m_help;
    KFRSmartPointer<appfw::IProductInterface> m_product;
    std::map<std::string, KFRSmartPointer<appfw::IPluginInterface>> m_plugins;
    KFRSmartPointer<appfw::KFRIStateServiceInterface> m_states;
};

}  // namespace vrn::orlo::host::shell
