/// \file
/// The plug-in's subscriptions at the event manager.

#pragma once

#include "platform/kfr/kfreventmanager.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <map>

namespace vrn::orlo::plugin::modeling {

/// Subscribes one listener to domains, each for the events that eventdomains.def lists for it.
///
/// A domain is subscribed once, however often it is asked for, and whatever the event manager
/// answers.
///
/// Failure    Results of the event manager are dropped. Without one nothing happens.
/// Threads    No lock: EventHandler calls under its own.
class MODELING_API EventListener {
public:
    explicit EventListener(KFRSmartPointer<KFRIEventListenerInterface> const& listener);

    /// The listener on the plug-in's initializer service as it was at the first call, with its
    /// table filled.
    static EventListener* getDefListener();

    /// Fills the table of domains and their operations. Domains that do not exist, and are not
    /// created here, share one place: those of them that are created later have none, and are
    /// subscribed to as a whole.
    void initialize();

    /// By the operation of the domain, or, where it has none, to all of its events.
    void listenDomainEvent(long long domain);
#define EVENT_DOMAIN(getter, name, missing, listen, ...) void listen(long long domain);
#include "plugins/modelingplugin/utilities/eventswork/eventdomains.def"

    void removeDomainListener(long long domain);
    void removeAllListener();

private:
    using Operation = void (EventListener::*)(long long domain);

    void subscribe(long long domain, KFRSequence<int> const& events);

    KFRSmartPointer<KFRIEventListenerInterface> m_listener;
    std::map<long long, KFRSequence<int>> m_active;
    std::map<long long, Operation> m_dispatch;
};

}  // namespace vrn::orlo::plugin::modeling
