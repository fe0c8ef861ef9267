#include "apps/orlo/eventprinter.h"

#include "apps/orlo/valuetext.h"
#include "host/commands/commandprocessor.h"
#include "plugins/modelingplugin/utilities/eventswork/databunch.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"
#include "plugins/modelingplugin/utilities/eventswork/flagmanager.h"
#include "plugins/modelingplugin/utilities/eventswork/uiupdatemanager.h"
#include "plugins/modelingplugin/utilities/eventswork/workitemmanager.h"

#include <cstdio>
#include <utility>

namespace vrn::orlo::app {

using plugin::modeling::DataBunch;
using plugin::modeling::EventHandler;
using plugin::modeling::FlagManager;
using plugin::modeling::UIUpdateManager;
using plugin::modeling::WorkItemManager;

EventPrinter::EventPrinter(host::kernel::EventManager& events)
    : m_events(events),
      m_domains{EventHandler::getProcessorDomainId(), EventHandler::getEntityDomainId(),
                EventHandler::getUndoRedoDomainId()}
{
    for (long long const domain : m_domains) {
        EventHandler::instance()->addDomainEventHandler(domain, this);
    }
}

EventPrinter::~EventPrinter()
{
    for (long long const domain : m_domains) {
        EventHandler::instance()->removeDomainEventHandler(domain, this);
    }
}

bool EventPrinter::handle(long long domain, KFREvent const& event)
{
    std::printf("  event %-32s %2d  %s\n", m_events.nameOf(domain).c_str(), event.eventId,
                textOf(event.payload).c_str());
    if (domain == EventHandler::getProcessorDomainId() &&
        event.eventId == host::commands::kRunFailed) {
        m_failure = DataBunch(event.payload).valueOr<std::string>("message", "");
    }
    bool const isEntity = domain == EventHandler::getEntityDomainId();
    if (isEntity && !m_refreshIsDue && !FlagManager::instance()->isUpdatedSetted() &&
        UIUpdateManager::instance()->isRefreshEnabled(kDisplay)) {
        m_refreshIsDue = true;
        WorkItemManager::instance()->push(
            [this] {
                m_refreshIsDue = false;
                UIUpdateManager::instance()->refresh(kDisplay);
            },
            false);
    }
    return true;
}

std::string EventPrinter::takeFailure()
{
    return std::exchange(m_failure, {});
}

}  // namespace vrn::orlo::app
