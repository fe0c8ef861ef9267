/// \file
/// The event hub: the library's clients of the application's events.

#pragma once

#include "platform/deps/btree.h"
#include "platform/deps/critical_section.h"
#include "platform/kfr/kfrevent.h"
#include "platform/kfr/kfreventmanager.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/eventswork/ikfreventhandler.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {

/// Whether anybody was told of an event.
enum HandleEventStatus : int { kNotHandled = 0, kHandled = 1 };

/// Keeps who wants to hear which domain, and hands each event to them.
///
/// The first client of a domain has the plug-in's listener subscribed to it, for the events that
/// eventdomains.def lists, and to all events of a domain that has no row there; the last client's
/// removal ends the subscription.
///
/// Order      Clients are called in the order of their addresses.
/// Failure    Results of the event manager are dropped. Without an event manager ids are 0 and
///            nothing is subscribed. A domain without creation that does not exist yet has the id
///            0, under which no event comes.
/// Threads    Any. The lock covers the book-keeping and never a client's handle(). Entering it
///            twice on one thread throws tbb_compat::improper_lock: an event manager must not
///            deliver from within its own addListener.
/// Cost       handleEvent: one look-up, one call per client; no allocation, and the lock only on a
///            thread's first event after a change of the clients. The id getters ask the event
///            manager at every call, so they are not for loops.
class MODELING_API EventHandler {
public:
    static EventHandler* instance()
    {
        EventHandler* const made = s_instance.load(std::memory_order_acquire);
        return made != nullptr ? made : make();
    }
    EventHandler(EventHandler const&) = delete;
    EventHandler& operator=(EventHandler const&) = delete;

    /// Id of a domain, which is created if nobody has done so yet.
    static long long getDomainId(std::string const& name);
    /// Id of the channel of the graphical surface.
    static long long getGUIChannelId();
#define EVENT_DOMAIN(getter, name, missing, listen, ...) static long long getter();
#define EVENT_CLIENTS(getter, add, remove) \
    void add(IKFREventHandler* client);    \
    void remove(IKFREventHandler* client);
#include "plugins/modelingplugin/utilities/eventswork/eventdomains.def"

    /// A client that is there already is left as it is.
    void addDomainEventHandler(long long domain, IKFREventHandler* client);
    /// A client that is not there is no error.
    void removeDomainEventHandler(long long domain, IKFREventHandler* client);
    void removeDomainEventHandlers(long long domain);
    /// To be called by the owning plug-in when it stops.
    void removeAllEventHandler();

    /// Calls the clients that the event's domain has at this moment; those that are removed
    /// meanwhile are called all the same, and those that are added are not.
    HandleEventStatus handleEvent(KFREvent const& event);

    /// The size of the viewport as last told, in pixels.
    void viewportSize(int& width, int& height) const;

private:
    /// Ascending by address, each client once. A client has no filter: it hears all of its domain.
    using Clients = std::vector<IKFREventHandler*>;
    /// Replaced as a whole when it changes, so that who delivers an event keeps what it has seen
    /// without copying it.
    using Snapshot = std::shared_ptr<Clients const>;
    using Handlers = btree::btree_map<long long, Snapshot>;

    /// What a thread saw of the handlers when it last had to look.
    struct View;
    class Delivery;

    EventHandler() = default;
    ~EventHandler() = default;

    static EventHandler* make();
    void setViewportSize(int width, int height);
    void refresh(View& view);
    static HandleEventStatus deliver(Clients const& clients, KFREvent const& event);
    /// For threads that are about to end.
    HandleEventStatus handleWithoutView(KFREvent const& event);
    /// To be called under the lock before a change: from then on nobody goes by what he saw, and who
    /// looks again has to wait for the lock.
    void noteChange() noexcept
    {
        m_version.fetch_add(1, std::memory_order_release);
    }

    static std::atomic<EventHandler*> s_instance;  // every event asks for it

    Handlers m_handlers;
    tbb_compat::critical_section m_mutex;  // guards m_handlers; keeps its owner's thread id
    std::atomic<unsigned long long> m_version{1};
    int m_viewportWidth = 0;
    int m_viewportHeight = 0;
};

}  // namespace vrn::orlo::plugin::modeling
