/// \file
/// A domain of events that the host publishes.

#pragma once

#include "platform/appfw/commands.h"
#include "platform/kfr/kfreventmanager.h"

#include <string>

namespace vrn::orlo::host::model {

/// Publishes the events of one domain, which it creates.
///
/// Failure    Nobody's trouble with an event undoes what the event tells of: what the event manager
///            or a listener throws is logged, and failing results are dropped. Where the domain can
///            be neither created nor found, that is logged once and nothing is published.
/// Ownership  Holds the event manager.
/// Threads    The event manager's.
class EventDomain {
public:
    /// \param events  null for a domain that publishes nothing
    EventDomain(KFRSmartPointer<KFRIEventManagerInterface> events, std::string const& name);

    void publish(int eventId, appfw::CmdParameters const& payload) const noexcept;

private:
    KFRSmartPointer<KFRIEventManagerInterface> m_events;
    long long m_domain = 0;
};

}  // namespace vrn::orlo::host::model
