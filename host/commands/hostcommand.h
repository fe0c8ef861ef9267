/// \file
/// The base of the host's commands.

#pragma once

#include "host/commands/undostack.h"
#include "host/model/eventdomain.h"
#include "platform/appfw/commands.h"
#include "platform/kfr/kfrserviceobject.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::commands {

/// What a command processor shares with the commands and transactions that come from it, and that
/// may outlive it.
struct ProcessorLink {
    model::EventDomain m_events;
    UndoStack m_history;
};

/// What a run leaves: steps to take back, a return value, output parameters.
class CommandRun {
public:
    /// \param history  where the steps go at once; null for a run that cannot be undone, whose
    ///                 steps serve only to take it back when it fails
    CommandRun(UndoStack* history, std::string const& command)
        : m_history(history), m_command(command)
    {
    }

    /// Notes what has just been done. A run that fails is taken back by what it has noted.
    void record(Step const& step);
    void record(std::function<KFRResult()> undo, std::function<KFRResult()> redo)
    {
        record(makeStep(std::move(undo), std::move(redo)));
    }

    KFRAny m_returnValue;
    appfw::CmdParameters m_output;

private:
    friend class HostCommand;

    UndoStack* m_history;
    std::string const& m_command;
    std::vector<Step> m_ownSteps;
};

/// A command that a processor made. A derived class writes run(); execution does the rest:
///
/// 1. The event "before the run" is published.
/// 2. run() is called, in a group of the history where the run can be undone: commands that it runs
///    meanwhile become parts of its step.
/// 3. After a good run its step is added to the history. After a failed one what it did is taken
///    back, with the commands that it ran; where the run cannot be undone those stay, as steps of
///    their own.
/// 4. The event for a good or a failed run is published.
///
/// Failure    What run() answers or throws; kNoProcessor when the processor has gone; kBusy for a
///            run that can be undone while a step is undone or redone. A step that could not be
///            taken back adds a second text.
/// Ownership  Does not hold its processor.
/// Threads    Main thread.
class HostCommand : public KFRServiceObjectImpl<appfw::ICmdCommandInterface> {
public:
    KFRResult setOptions(appfw::CmdOptions const& options) final;
    appfw::CmdOptions getOptions() final { return m_options; }
    KFRResult execute(appfw::CmdParameters const& parameters) final;
    /// Empty after a failed run.
    KFRAny getReturnValue() final { return m_returnValue; }
    appfw::CmdParameters getOutputParams() final { return m_output; }
    /// The step of the last run. Null before a run, after a failed one and after one that left
    /// nothing to undo or was not to be undone.
    KFRSmartPointer<appfw::IURCommandInterface> getURCommand() final { return m_step; }

    /// "VRN.CorePlugin.ModifyObjects"
    std::string getObjectName() override { return m_context + '.' + m_name; }

    /// Made known to the command by the processor that makes it.
    void connect(std::string context, std::string name, appfw::CmdOptions const& options,
                 std::weak_ptr<ProcessorLink> link);

protected:
    [[nodiscard]] std::string const& name() const noexcept { return m_name; }

private:
    virtual KFRResult run(appfw::CmdParameters const& parameters, CommandRun& run) = 0;
    /// False for a command that has nothing to undo whatever its options say.
    [[nodiscard]] virtual bool leavesSteps() const noexcept { return true; }

    KFRResult perform(UndoStack& history, bool isUndoable, appfw::CmdParameters const& parameters);
    void tell(ProcessorLink const& link, int event, KFRResult const& answer) const;

    std::string m_context;
    std::string m_name;
    appfw::CmdOptions m_options;
    std::weak_ptr<ProcessorLink> m_link;
    KFRAny m_returnValue;
    appfw::CmdParameters m_output;
    Step m_step;
};

}  // namespace vrn::orlo::host::commands
