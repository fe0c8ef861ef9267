/// \file
/// The state of the command processor: whether a long operation goes on.

#pragma once

#include "platform/appfw/frameworkaccess.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"

namespace vrn::orlo::host::shell {

/// Codes of what is refused; each comes with a text as its first parameter.
enum StateFailure : int {
    kUnknownStateMachine = 1,
    kNotSilent = 2,  ///< A silent stretch is closed that nobody opened.
};

/// Counts the silent stretches that are open and passes each event of "appfw.CommandSS", the one
/// state machine, on to the event manager.
///
/// Event 20 opens a stretch and 21 closes one; they nest.
///
/// Order      The depth has changed when the event's listeners are called.
/// Failure    As StateFailure says, or as the event manager answers. An event that is refused with
///            kNotSilent has been passed on all the same.
/// Threads    Main thread.
class StateService final : public KFRServiceObjectImpl<appfw::KFRIStateServiceInterface> {
public:
    /// \param events  may be null; then nobody is told
    explicit StateService(KFRSmartPointer<KFRIEventManagerInterface> events);

    /// \param flag  not used
    KFRResult send(std::string const& name, KFREvent const& event, int flag) override;

    /// How many silent stretches are open; never negative.
    [[nodiscard]] int silentDepth() const noexcept { return m_silentDepth; }

    std::string getObjectName() override { return "vrn.orlo.host.shell:StateService"; }

protected:
    ~StateService() override = default;

private:
    KFRSmartPointer<KFRIEventManagerInterface> m_events;
    int m_silentDepth = 0;
};

}  // namespace vrn::orlo::host::shell
