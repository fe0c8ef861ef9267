/// \file
/// Runs commands, and takes back what they did.

#pragma once

#include "host/commands/hostcommand.h"
#include "platform/appfw/commands.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::commands {

/// The domains that the processor creates.
inline constexpr char const* kProcessorDomain = "vrn.orlo.appfw.CmdProcessor";
inline constexpr char const* kHistoryDomain = "vrn.orlo.appfw.UndoRedoFWEvent";

/// Events of runs, each with CmdParameters as its payload: "context" and "name" (std::string) and
/// "code" (int), which is 0 but for a failed run; that has its "message" (std::string) as well. The
/// history's events are HistoryEvent, with the step's "name".
enum RunEvent : int {
    kRunBegins = 3,
    kRunDone = 4,
    kRunFailed = 5,
};

/// Knows commands by context and name, runs them, and keeps the history of those that can be
/// undone, whether they run through the processor or as command objects that it made.
///
/// Failure    As CommandFailure says, with a text.
/// Ownership  Holds factories and history. Commands that it made may outlive it; they fail then.
/// Threads    Main thread.
class CommandProcessor final : public KFRServiceObjectImpl<appfw::ICmdProcessorInterface> {
public:
    struct Options {
        std::size_t m_undoDepth = 100;  ///< Steps that are kept for undoing.
    };
    using Factory = std::function<KFRSmartPointer<HostCommand>()>;
    using Function = std::function<KFRResult(appfw::CmdParameters const&)>;

    /// \param events  null for a processor that publishes nothing
    CommandProcessor(KFRSmartPointer<KFRIEventManagerInterface> const& events,
                     Options const& options);
    explicit CommandProcessor(KFRSmartPointer<KFRIEventManagerInterface> const& events)
        : CommandProcessor(events, Options{})
    {
    }

    /// \param defaults  the options that the command is meant to be run with
    KFRResult registerCommand(std::string const& context, std::string const& name,
                              appfw::CmdOptions const& defaults, Factory factory);
    /// Registers a command that leaves nothing to undo. Commands that it runs are steps of their
    /// own.
    KFRResult registerFunction(std::string const& context, std::string const& name,
                               Function function);

    KFRResult undo() { return m_link->m_history.undo(); }
    KFRResult redo() { return m_link->m_history.redo(); }
    /// The history, and what else commands and transactions share.
    [[nodiscard]] UndoStack& history() noexcept { return m_link->m_history; }
    [[nodiscard]] std::weak_ptr<ProcessorLink> link() const noexcept { return m_link; }

    KFRResult getCommandOptions(appfw::CmdInvocationRequest const& request,
                                appfw::CmdOptions& options) override;
    /// A command object in the request is the one that is run.
    KFRResult executeCommand(appfw::CmdInvocationRequest const& request,
                             appfw::CmdOptions const& options,
                             appfw::CmdParameters const& parameters) override;
    KFRResult createCommand(appfw::CmdInvocationRequest const& request,
                            KFRSmartPointer<appfw::ICmdCommandInterface>& command) override;

    std::string getObjectName() override { return "vrn.orlo.host.commands:CommandProcessor"; }

private:
    struct Registration {
        appfw::CmdOptions m_defaults;
        Factory m_factory;
    };
    using Key = std::pair<std::string, std::string>;  // context, name

    std::shared_ptr<ProcessorLink> m_link;
    std::map<Key, Registration> m_commands;
};

}  // namespace vrn::orlo::host::commands
