#include "host/kernel/eventmanager.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::kernel {

namespace {

constexpr char const* kChannelName = "vrn.orlo.host.GUIChannel";

/// The 64-bit FNV-1a hash, without its sign bit, past the two numbers that stand for no domain.
long long idOf(std::string_view name)
{
    constexpr long long kFirstId = 2;
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (char const c : name) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    }
    auto const id = static_cast<long long>(hash & 0x7FFFFFFFFFFFFFFFU);
    return id < kFirstId ? id + kFirstId : id;
}

KFRResult noListener()
{
    return KFRResult(kNoListener).addParam("The listener is null; give an object.");
}

/// Sets a flag for the length of a scope.
class Raised {
public:
    explicit Raised(bool& flag) : m_flag(flag) { m_flag = true; }
    Raised(Raised const&) = delete;
    Raised& operator=(Raised const&) = delete;
    ~Raised() { m_flag = false; }

private:
    bool& m_flag;
};

}  // namespace

EventManager::EventManager()
{
    static_cast<void>(createDomainID(kChannelName, m_channel));
}

KFRResult EventManager::createDomainID(std::string const& name, long long& id)
{
    long long const wanted = idOf(name);
    std::lock_guard const guard(m_mutex);
    auto const [entry, isNew] = m_names.try_emplace(wanted, name);
    if (!isNew && entry->second != name) {
        return KFRResult(kDomainClash)
            .addParam("The domain '" + name + "' would get the id of '" + entry->second +
                      "'; give it another name.");
    }
    id = wanted;
    return KFR::ok;
}

KFRResult EventManager::getDomainID(std::string const& name, long long& id)
{
    long long const wanted = idOf(name);
    std::lock_guard const guard(m_mutex);
    if (auto const entry = m_names.find(wanted); entry == m_names.end() || entry->second != name) {
        return KFRResult(kUnknownDomain)
            .addParam("Nobody has created the domain '" + name + "'; create it first.");
    }
    id = wanted;
    return KFR::ok;
}

KFRResult EventManager::getChannelID(long long& id)
{
    id = m_channel;
    return KFR::ok;
}

std::string EventManager::nameOf(long long id)
{
    std::lock_guard const guard(m_mutex);
    auto const entry = m_names.find(id);
    return entry != m_names.end() ? entry->second : std::string();
}

KFRResult EventManager::unknown(long long domain) const
{
    return KFRResult(kUnknownDomain)
        .addParam("Nobody has created a domain with the id " + std::to_string(domain) +
                  "; create it by its name first.");
}

KFRResult EventManager::addListener(long long domain, Listener const& listener, int mode,
                                    KFRSequence<int> const& events)
{
    if (listener == KFR::NULLSP) {
        return noListener();
    }
    long long const instance = listener->getInstanceID();
    bool const isQueued = mode == kQueued;

    std::lock_guard const guard(m_mutex);
    if (!m_names.contains(domain)) {
        return unknown(domain);
    }
    auto const same = std::ranges::find_if(m_subscriptions, [&](Subscription const& known) {
        return known.m_domain == domain && known.m_instance == instance &&
               known.m_isQueued == isQueued;
    });
    if (same == m_subscriptions.end()) {
        m_subscriptions.push_back(
            {domain, listener, instance, isQueued, {events.begin(), events.end()}, ++m_clock});
    } else if (events.empty() || same->m_events.empty()) {
        same->m_events.clear();
    } else {
        same->m_events.insert(events.begin(), events.end());
    }
    return KFR::ok;
}

KFRResult EventManager::addListener(KFR::Framework::EventFilter const& filter,
                                    Listener const& listener)
{
    return addListener(filter.domain, listener, 0, filter.events);
}

KFRResult EventManager::addChannelListener(long long channel, Listener const& listener, int mode)
{
    return addListener(channel, listener, mode, {});
}

KFRResult EventManager::removeListener(long long domain, Listener const& listener)
{
    if (listener == KFR::NULLSP) {
        return noListener();
    }
    long long const instance = listener->getInstanceID();

    std::vector<Subscription> removed;  // goes after the lock: the caller's handle may be ours
    std::lock_guard const guard(m_mutex);
    if (!m_names.contains(domain)) {
        return unknown(domain);
    }
    auto const first = std::stable_partition(
        m_subscriptions.begin(), m_subscriptions.end(), [&](Subscription const& known) {
            return known.m_domain != domain || known.m_instance != instance;
        });
    if (first == m_subscriptions.end()) {
        return KFRResult(kNotSubscribed)
            .addParam("The listener has no subscription to '" + m_names[domain] + "'.");
    }
    removed.assign(std::move_iterator(first), std::move_iterator(m_subscriptions.end()));
    m_subscriptions.erase(first, m_subscriptions.end());
    return KFR::ok;
}

KFRResult EventManager::publishEvent(KFREvent const& event, int /*flag*/)
{
    bool const isHere = std::this_thread::get_id() == m_thread;
    Queue ready;
    Queue waiting;
    ready.push_back({event, 0, Audience::immediate, {}});
    waiting.push_back({event, 0, isHere ? Audience::queued : Audience::all, {}});
    {
        std::lock_guard const guard(m_mutex);
        if (!m_names.contains(event.domain)) {
            return unknown(event.domain);
        }
        ready.front().m_published = waiting.front().m_published = ++m_clock;
        if (!isHere || std::ranges::any_of(m_subscriptions, [&](Subscription const& known) {
                return known.m_isQueued && known.wants(event);
            })) {
            m_waiting.splice(m_waiting.end(), waiting);
        }
    }
    if (isHere) {
        m_ready.splice(m_ready.end(), ready);
        if (!m_isDelivering) {
            Raised const delivering(m_isDelivering);
            deliverReady();
        }
    }
    return KFR::ok;
}

KFRResult EventManager::fireEvent(KFREvent const& event, int /*flag*/, Listener const& listener)
{
    if (listener == KFR::NULLSP) {
        return noListener();
    }
    static_cast<void>(listener->handleEvent(event));
    return KFR::ok;
}

std::size_t EventManager::pump()
{
    if (std::this_thread::get_id() != m_thread || m_isDelivering) {
        return 0;
    }
    Raised const delivering(m_isDelivering);
    deliverReady();

    std::size_t delivered = 0;
    Queue::iterator next;
    std::size_t left = 0;
    {
        std::lock_guard const guard(m_mutex);
        next = m_waiting.begin();
        left = m_waiting.size();
    }
    for (; left > 0; --left) {
        // In its place until it is through: a listener may throw.
        if (deliver(*next)) {
            ++delivered;
        }
        Queue done;
        {
            std::lock_guard const guard(m_mutex);
            done.splice(done.end(), m_waiting, next);
            next = m_waiting.begin();
        }
        deliverReady();
    }
    return delivered;
}

/// Those whose turn it is, without those who have had it.
std::vector<EventManager::Recipient> EventManager::recipientsOf(Pending const& pending)
{
    std::vector<Recipient> recipients;
    std::set<long long> seen = pending.m_served;
    std::lock_guard const guard(m_mutex);
    for (Subscription const& known : m_subscriptions) {
        if (known.m_since > pending.m_published || !known.wants(pending.m_event) ||
            !seen.insert(known.m_instance).second) {
            continue;
        }
        if (pending.m_audience == Audience::all ||
            known.m_isQueued == (pending.m_audience == Audience::queued)) {
            recipients.push_back({known.m_listener, known.m_instance});
        }
    }
    return recipients;
}

/// Once more after an exception, it goes on. False when nobody wants the event.
bool EventManager::deliver(Pending& pending)
{
    for (Recipient const& recipient : recipientsOf(pending)) {
        pending.m_served.insert(recipient.m_instance);
        static_cast<void>(recipient.m_listener->handleEvent(pending.m_event));
    }
    return !pending.m_served.empty();
}

void EventManager::deliverReady()
{
    while (!m_ready.empty()) {
        deliver(m_ready.front());
        Queue done;  // goes after it has left the queue: what the event carries may publish
        done.splice(done.end(), m_ready, m_ready.begin());
    }
}

}  // namespace vrn::orlo::host::kernel
