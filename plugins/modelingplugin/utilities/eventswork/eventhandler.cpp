#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/eventswork/eventlistener.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <utility>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

enum class Missing { Leave, Create };

using Manager = KFRSmartPointer<KFRIEventManagerInterface>;

Manager eventManager()
{
    return KFR::strict_cast<KFRIEventManagerInterface>(ServiceHelper::getEventManager());
}

long long domainId(std::string const& name, Missing missing)
{
    long long id = 0;
    Manager const manager = eventManager();
    if (manager != NULLSP && !manager->getDomainID(name, id).isOk() && missing == Missing::Create) {
        static_cast<void>(manager->createDomainID(name, id));
    }
    return id;
}

}  // namespace

EventHandler* EventHandler::instance()
{
    static EventHandler handler;
    return &handler;
}

long long EventHandler::getDomainId(std::string const& name)
{
    return domainId(name, Missing::Create);
}

long long EventHandler::getGUIChannelId()
{
    long long id = 0;
    if (Manager const manager = eventManager(); manager != NULLSP) {
        static_cast<void>(manager->getChannelID(id));
    }
    return id;
}

#define EVENT_DOMAIN(getter, name, missing, listen, ...) \
    long long EventHandler::getter()                     \
    {                                                    \
        return domainId(name, Missing::missing);         \
    }
#define EVENT_CLIENTS(getter, add, remove)              \
    void EventHandler::add(IKFREventHandler* client)    \
    {                                                   \
        addDomainEventHandler(getter(), client);        \
    }                                                   \
    void EventHandler::remove(IKFREventHandler* client) \
    {                                                   \
        removeDomainEventHandler(getter(), client);     \
    }
#include "plugins/modelingplugin/utilities/eventswork/eventdomains.def"

void EventHandler::addDomainEventHandler(long long domain, IKFREventHandler* client)
{
    std::lock_guard const lock(m_mutex);
    Snapshot& snapshot = m_handlers[domain];
    Clients clients = snapshot != nullptr ? *snapshot : Clients();
    auto const place = std::ranges::lower_bound(clients, client, std::less<>(), &Entry::m_client);
    if (place == clients.end() || place->m_client != client) {
        clients.insert(place, Entry{client, {}});
        snapshot = std::make_shared<Clients const>(std::move(clients));
    }
    EventListener::getDefListener()->listenDomainEvent(domain);
}

void EventHandler::removeDomainEventHandler(long long domain, IKFREventHandler* client)
{
    std::lock_guard const lock(m_mutex);
    auto const found = m_handlers.find(domain);
    if (found == m_handlers.end()) {
        return;
    }
    Clients clients = *found->second;
    auto const place = std::ranges::lower_bound(clients, client, std::less<>(), &Entry::m_client);
    if (place == clients.end() || place->m_client != client) {
        return;
    }
    clients.erase(place);
    if (clients.empty()) {
        EventListener::getDefListener()->removeDomainListener(domain);
        m_handlers.erase(domain);
    } else {
        found->second = std::make_shared<Clients const>(std::move(clients));
    }
}

void EventHandler::removeDomainEventHandlers(long long domain)
{
    std::lock_guard const lock(m_mutex);
    m_handlers.erase(domain);
    EventListener::getDefListener()->removeDomainListener(domain);
}

void EventHandler::removeAllEventHandler()
{
    std::lock_guard const lock(m_mutex);
    for (auto const& [domain, clients] : m_handlers) {
        EventListener::getDefListener()->removeDomainListener(domain);
    }
    m_handlers.clear();
}

HandleEventStatus EventHandler::handleEvent(KFREvent const& event)
{
    Snapshot clients;
    {
        std::lock_guard const lock(m_mutex);
        if (auto const found = m_handlers.find(event.domain); found != m_handlers.end()) {
            clients = found->second;
        }
    }
    if (clients == nullptr) {
        return kNotHandled;
    }
    HandleEventStatus status = kNotHandled;
    for (Entry const& entry : *clients) {
        if (entry.m_filter.events.empty()) {
            entry.m_client->handle(event.domain, event);
            status = kHandled;
        }
    }
    return status;
}

void EventHandler::viewportSize(int& width, int& height) const
{
    width = m_viewportWidth;
    height = m_viewportHeight;
}

void EventHandler::setViewportSize(int width, int height)
{
    m_viewportWidth = width;
    m_viewportHeight = height;
}

}  // namespace vrn::orlo::plugin::modeling
