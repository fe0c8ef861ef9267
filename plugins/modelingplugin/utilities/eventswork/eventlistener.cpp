#include "plugins/modelingplugin/utilities/eventswork/eventlistener.h"

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

constexpr int kMode = 2;  // the event manager's, passed on

KFRSmartPointer<KFRIEventManagerInterface> eventManager()
{
    return KFR::strict_cast<KFRIEventManagerInterface>(ServiceHelper::getEventManager());
}

}  // namespace

EventListener::EventListener(KFRSmartPointer<KFRIEventListenerInterface> const& listener)
    : m_listener(listener)
{
}

EventListener* EventListener::getDefListener()
{
    // Asked for at every call, though only the first one's answer is kept.
    auto const initializer =
        KFR::loose_cast<KFRIEventListenerInterface>(ServiceHelper::getInitializerService());
    static EventListener* const listener = [&initializer] {
        static EventListener made(initializer);
        made.initialize();
        return &made;
    }();
    return listener;
}

void EventListener::initialize()
{
#define EVENT_DOMAIN(getter, name, missing, listen, ...) \
    m_dispatch[EventHandler::getter()] = &EventListener::listen;
#include "plugins/modelingplugin/utilities/eventswork/eventdomains.def"
}

void EventListener::listenDomainEvent(long long domain)
{
    if (auto const row = m_dispatch.find(domain); row != m_dispatch.end()) {
        (this->*row->second)(domain);
        return;
    }
    auto const manager = eventManager();
    if (manager != NULLSP && !m_active.contains(domain)) {
        static_cast<void>(manager->addChannelListener(domain, m_listener, kMode));
        m_active.emplace(domain, KFRSequence<int>());
    }
}

#define EVENT_DOMAIN(getter, name, missing, listen, ...) \
    void EventListener::listen(long long domain)         \
    {                                                    \
        subscribe(domain, {__VA_ARGS__});                \
    }
#include "plugins/modelingplugin/utilities/eventswork/eventdomains.def"

void EventListener::subscribe(long long domain, KFRSequence<int> const& events)
{
    auto const manager = eventManager();
    if (manager != NULLSP && !m_active.contains(domain)) {
        static_cast<void>(manager->addListener(domain, m_listener, kMode, events));
        m_active.emplace(domain, events);
    }
}

void EventListener::removeDomainListener(long long domain)
{
    if (!m_active.contains(domain)) {
        return;
    }
    if (auto const manager = eventManager(); manager != NULLSP) {
        static_cast<void>(manager->removeListener(domain, m_listener));
    }
    m_active.erase(domain);
}

void EventListener::removeAllListener()
{
    while (!m_active.empty()) {
        removeDomainListener(m_active.begin()->first);
    }
}

}  // namespace vrn::orlo::plugin::modeling
