/// \file
/// The application's events.

#pragma once

#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"

#include <cstddef>
#include <list>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace vrn::orlo::host::kernel {

/// Codes of what the event manager refuses; each comes with a text as its first parameter.
enum EventFailure : int {
    kUnknownDomain = 1,  ///< Neither a domain that somebody has created nor the channel.
    kNoListener = 2,     ///< A null handle.
    kNotSubscribed = 3,  ///< Both are known, but the one does not listen to the other.
    kDomainClash = 4,    ///< Another name has the id that the name would get.
};

/// Takes events and hands them to those who subscribed to their domain.
///
/// An event goes to each listener that was subscribed when it was published and still is when its
/// turn comes; once, however many subscriptions of the listener ask for it, by the first of them.
/// The turn is at once, but for
///  - events published by a listener during a delivery: after that delivery and before the
///    outermost publishEvent or pump() returns,
///  - events published on another thread than the manager's, and listeners subscribed with the mode
///    kQueued: at pump().
///
/// Order      Events by publication, within each of these kinds; listeners by subscription.
/// Failure    As EventFailure says. What listeners answer is dropped. What one throws goes up to
///            whoever publishes or pumps; the listeners after it, and the events after that, wait
///            and have their turn first at the next publishEvent or pump(), those of a pump() at
///            the next pump().
/// Ownership  Keeps its listeners.
/// Threads    The manager's own is the one that makes it. Any thread may publish, subscribe and
///            unsubscribe; no lock is held while a listener runs. Each delivery has its own copy of
///            the list: who unsubscribes during an event may still get that event, and none later.
/// Cost       One pass over all subscriptions per event.
class EventManager final : public KFRServiceObjectImpl<KFRIEventManagerInterface> {
public:
    /// The mode of listeners that wait for pump(). All others are served at once.
    static constexpr int kQueued = 1;

    EventManager();

    /// A name has the same id in every process: positive, and neither 0 nor 1. A name that is known
    /// keeps it.
    KFRResult createDomainID(std::string const& name, long long& id) override;
    KFRResult getDomainID(std::string const& name, long long& id) override;
    /// The one channel; it takes events and listeners as a domain does.
    KFRResult getChannelID(long long& id) override;

    /// Adds the events to what the listener has of the domain already, in that mode.
    /// \param events  empty for all of the domain
    KFRResult addListener(long long domain,
                          KFRSmartPointer<KFRIEventListenerInterface> const& listener, int mode,
                          KFRSequence<int> const& events) override;
    /// Served at once.
    KFRResult addListener(KFR::Framework::EventFilter const& filter,
                          KFRSmartPointer<KFRIEventListenerInterface> const& listener) override;
    /// All events of the channel, or of a domain.
    KFRResult addChannelListener(long long channel,
                                 KFRSmartPointer<KFRIEventListenerInterface> const& listener,
                                 int mode) override;
    /// Takes back all that the listener has of the domain.
    KFRResult removeListener(long long domain,
                             KFRSmartPointer<KFRIEventListenerInterface> const& listener) override;

    /// \param flag  has no meaning here
    KFRResult publishEvent(KFREvent const& event, int flag) override;
    /// To that listener alone, subscribed or not, at once and on the caller's thread.
    /// \param flag  has no meaning here
    KFRResult fireEvent(KFREvent const& event, int flag,
                        KFRSmartPointer<KFRIEventListenerInterface> const& listener) override;

    /// Delivers what had been waiting for it when it was called. The manager's thread; does nothing
    /// elsewhere, nor inside of a delivery.
    /// \return how many of the waiting events had a listener
    std::size_t pump();

    /// Name of a domain or the channel; empty for an id that nobody has created.
    [[nodiscard]] std::string nameOf(long long id);

    std::string getObjectName() override { return "vrn.orlo.host.kernel:EventManager"; }

private:
    using Listener = KFRSmartPointer<KFRIEventListenerInterface>;
    enum class Audience { immediate, queued, all };

    struct Subscription {
        long long m_domain;
        Listener m_listener;
        long long m_instance;  // tells listeners apart without a call to them
        bool m_isQueued;
        std::set<int> m_events;  // empty for all
        unsigned long long m_since;

        [[nodiscard]] bool wants(KFREvent const& event) const
        {
            return m_domain == event.domain &&
                   (m_events.empty() || m_events.contains(event.eventId));
        }
    };

    struct Recipient {
        Listener m_listener;
        long long m_instance;
    };

    struct Pending {
        KFREvent m_event;
        unsigned long long m_published;
        Audience m_audience;
        std::set<long long> m_served;  // instances of the listeners that have had their turn
    };
    using Queue = std::list<Pending>;

    [[nodiscard]] KFRResult unknown(long long domain) const;
    [[nodiscard]] std::vector<Recipient> recipientsOf(Pending const& pending);
    bool deliver(Pending& pending);
    void deliverReady();

    std::thread::id const m_thread = std::this_thread::get_id();
    long long m_channel = 0;

    // The manager's thread only.
    bool m_isDelivering = false;
    Queue m_ready;

    std::mutex m_mutex;  // guards all below; never held while anything but a count is called
    std::map<long long, std::string> m_names;
    std::vector<Subscription> m_subscriptions;  // in the order of subscription
    Queue m_waiting;                            // for pump(); only that takes elements out
    unsigned long long m_clock = 0;             // tells what came first, subscription or event
};

}  // namespace vrn::orlo::host::kernel
