/// \file
/// The way to the application's commands.

#pragma once

#include "platform/appfw/commands.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/eventswork/databunch.h"

#include <string>

namespace vrn::orlo::plugin::modeling {

/// One command, found by name and context, to be run as often as one likes.
///
/// Failure    Running a command that does not exist: KFR::notDone with the parameter "Command not
///            exist.". What a command itself answers is not looked at; what it did is read from
///            getReturnValue() and getOutputParams(). KFRSystemException for a processor without
///            the interface.
/// Ownership  Copies refer to one command object.
/// Threads    Main thread.
class MODELING_API CmdInvoker {
public:
    /// No command.
    CmdInvoker() = default;
    /// The command with the options that it is meant to have.
    /// \param context  the plug-in that owns it
    CmdInvoker(std::string const& name, std::string const& context);
    /// The same with two options given.
    /// \param undoable  without it the run is not written down for macros either
    CmdInvoker(std::string const& name, bool undoable, bool silent, std::string const& context);

    /// Exchanges the command.
    void initCommandSync(std::string const& name, bool undoable, bool silent,
                         std::string const& context);

    /// A request for the modeling plug-in's command of that name, or, where it has none, for the
    /// context's.
    static appfw::CmdInvocationRequest getInvocationRequest(std::string const& name,
                                                            std::string const& context);

    /// \return OK whenever there is a command
    KFRResult invoke(appfw::CmdParameters const& params);
    KFRResult invoke(DataBunch const& params);
    /// Has the GUI executive run the command, when and where it likes.
    /// \return what the executive says to that
    KFRResult invokeAsync(DataBunch const& params);

    // Of the last run; empty, and default options, without a command.
    [[nodiscard]] KFRAny getReturnValue() const;
    DataBunch getOutputParams();
    appfw::CmdOptions getOptions();
    void setOptions(appfw::CmdOptions const& options);
    /// What undoes the run; null for a command that cannot be undone.
    KFRSmartPointer<appfw::IURCommandInterface> getURCommand();

private:
    KFRSmartPointer<appfw::ICmdCommandInterface> m_command;
};

}  // namespace vrn::orlo::plugin::modeling
