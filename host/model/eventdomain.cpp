#include "host/model/eventdomain.h"

#include "host/kernel/frameworklog.h"

#include <exception>
#include <utility>

namespace vrn::orlo::host::model {

EventDomain::EventDomain(KFRSmartPointer<KFRIEventManagerInterface> events, std::string const& name)
    : m_events(std::move(events))
{
    if (m_events == KFR::NULLSP) {
        return;
    }
    // A library that listens to the domain may have been first.
    if (!m_events->createDomainID(name, m_domain).isOk() &&
        !m_events->getDomainID(name, m_domain).isOk()) {
        kernel::logToFramework("The event domain " + name + " can be neither created nor found.",
                               kernel::LogLevel::error);
        m_events.release();
    }
}

void EventDomain::publish(int eventId, appfw::CmdParameters const& payload) const noexcept
{
    if (m_events == KFR::NULLSP) {
        return;
    }
    try {
        m_events->publishEvent({m_domain, eventId, KFRAny(payload)}, 0);
    } catch (std::exception const& thrown) {
        kernel::logToFramework(
            "Publishing event " + std::to_string(eventId) + " threw: " + thrown.what(),
            kernel::LogLevel::error);
    }
}

}  // namespace vrn::orlo::host::model
