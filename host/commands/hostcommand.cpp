#include "host/commands/hostcommand.h"

#include "host/commands/commandfailure.h"
#include "host/commands/commandprocessor.h"

namespace vrn::orlo::host::commands {

void CommandRun::record(Step const& step)
{
    if (m_history != nullptr) {
        m_history->add(m_command, step);
    } else {
        m_ownSteps.push_back(step);
    }
}

void HostCommand::connect(std::string context, std::string name, appfw::CmdOptions const& options,
                          std::weak_ptr<ProcessorLink> link)
{
    m_context = std::move(context);
    m_name = std::move(name);
    m_options = options;
    m_link = std::move(link);
}

KFRResult HostCommand::setOptions(appfw::CmdOptions const& options)
{
    m_options = options;
    return KFR::ok;
}

KFRResult HostCommand::execute(appfw::CmdParameters const& parameters)
{
    KFRSmartPointer<HostCommand> const alive(this);  // a listener may drop the caller's handle
    m_returnValue.clear();
    m_output.clear();
    m_step.release();
    std::shared_ptr<ProcessorLink> const link = m_link.lock();
    if (link == nullptr) {
        return failure(kNoProcessor, "The command processor of " + getObjectName() + " has gone.");
    }
    appfw::CmdOptions const options = m_options;  // those that the run began with
    bool const isUndoable = options.m_undoable != 0 && leavesSteps();
    if (isUndoable && link->m_history.isReplaying()) {
        return failure(kBusy,
                       "Cannot run " + getObjectName() + " while a step is undone or redone.");
    }
    if (options.m_notify != 0) {
        tell(*link, kRunBegins, KFR::ok);
    }
    KFRResult answer = perform(link->m_history, isUndoable, parameters);
    if (options.m_notify != 0) {
        tell(*link, answer.isOk() ? kRunDone : kRunFailed, answer);
    }
    return answer;
}

KFRResult HostCommand::perform(UndoStack& history, bool isUndoable,
                               appfw::CmdParameters const& parameters)
{
    UndoStack::GroupId const group = isUndoable ? history.open() : 0;
    CommandRun outcome(isUndoable ? &history : nullptr, m_name);
    KFRResult answer = guarded(getObjectName(), [&] { return run(parameters, outcome); });
    if (!answer.isOk()) {
        KFRResult const back =
            isUndoable ? history.discard(group) : history.takeBack(outcome.m_ownSteps);
        if (!back.isOk()) {
            answer.addParam("What " + getObjectName() +
                            " had done could not all be taken back: " + failureText(back));
        }
        return answer;
    }
    // Set first: the history tells of the step while it is added.
    m_returnValue = std::move(outcome.m_returnValue);
    m_output = std::move(outcome.m_output);
    if (isUndoable) {
        m_step = history.keep(group, m_name);
    }
    return answer;
}

void HostCommand::tell(ProcessorLink const& link, int event, KFRResult const& answer) const
{
    appfw::CmdParameters payload{{"context", KFRAny(m_context)},
                                 {"name", KFRAny(m_name)},
                                 {"code", KFRAny(answer.getCode())}};
    if (!answer.isOk()) {
        payload.append({"message", KFRAny(failureText(answer))});
    }
    link.m_events.publish(event, payload);
}

}  // namespace vrn::orlo::host::commands
