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

struct EventHandler::View {
    using Domains = std::vector<std::pair<long long, Snapshot>>;

    unsigned long long m_version = 0;
    Domains m_domains;                ///< Ascending by id.
    int m_deliveries = 0;             ///< That the thread is in the middle of.
    std::vector<Domains> m_replaced;  ///< What these still walk over.

    // Events of one domain come in rows.
    long long m_lastDomain = 0;
    Clients const* m_lastClients = nullptr;

    /// The clients of a domain; null when it has none.
    [[nodiscard]] Clients const* clientsOf(long long domain) noexcept
    {
        if (domain != m_lastDomain) {
            find(domain);
        }
        return m_lastClients;
    }
    [[gnu::noinline]] void find(long long domain) noexcept
    {
        auto const found =
            std::ranges::lower_bound(m_domains, domain, {}, &Domains::value_type::first);
        m_lastDomain = domain;
        m_lastClients =
            found != m_domains.end() && found->first == domain ? found->second.get() : nullptr;
    }
    /// What deliveries that have ended walked over.
    [[gnu::noinline]] void dropReplaced() noexcept { m_replaced.clear(); }

    /// The calling thread's, made at its first event; null when the thread's objects are gone.
    static View* ofThread();
};

EventHandler::View* EventHandler::View::ofThread()
{
    // A pointer, since an object would be asked at each access whether it has been made; and in the
    // static block, which is reached without a call.
    thread_local constinit View* view __attribute__((tls_model("initial-exec"))) = nullptr;
    thread_local constinit bool hasEnded = false;
    struct Owned : View {
        ~Owned()
        {
            view = nullptr;
            hasEnded = true;  // what still comes, at the end of the process, goes without a view
        }
    };
    if (view == nullptr && !hasEnded) {
        thread_local Owned made;
        view = &made;
    }
    return view;
}

/// Marks that a thread walks over the clients of its view.
class EventHandler::Delivery {
public:
    explicit Delivery(View& view) noexcept : m_view(view) { ++m_view.m_deliveries; }
    Delivery(Delivery const&) = delete;
    Delivery& operator=(Delivery const&) = delete;
    ~Delivery()
    {
        if (--m_view.m_deliveries == 0 && !m_view.m_replaced.empty()) {
            m_view.dropReplaced();
        }
    }

private:
    View& m_view;
};

std::atomic<EventHandler*> EventHandler::s_instance{nullptr};

EventHandler* EventHandler::make()
{
    static EventHandler handler;
    s_instance.store(&handler, std::memory_order_release);
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
    noteChange();
    auto const known = m_handlers.find(domain);
    Clients clients = known != m_handlers.end() ? *known->second : Clients();
    auto const place = std::ranges::lower_bound(clients, client, std::less<>());
    if (place == clients.end() || *place != client) {
        clients.insert(place, client);
        m_handlers.insert_or_assign(domain, std::make_shared<Clients const>(std::move(clients)));
    }
    EventListener::getDefListener()->listenDomainEvent(domain);
}

void EventHandler::removeDomainEventHandler(long long domain, IKFREventHandler* client)
{
    std::lock_guard const lock(m_mutex);
    noteChange();
    auto const found = m_handlers.find(domain);
    if (found == m_handlers.end()) {
        return;
    }
    Clients clients = *found->second;
    auto const place = std::ranges::lower_bound(clients, client, std::less<>());
    if (place == clients.end() || *place != client) {
        return;
    }
    clients.erase(place);
    if (!clients.empty()) {
        found->second = std::make_shared<Clients const>(std::move(clients));
        return;
    }
    // The client first: it may go, whatever the subscription's end throws.
    m_handlers.erase(found);
    EventListener::getDefListener()->removeDomainListener(domain);
}

void EventHandler::removeDomainEventHandlers(long long domain)
{
    std::lock_guard const lock(m_mutex);
    noteChange();
    m_handlers.erase(domain);
    EventListener::getDefListener()->removeDomainListener(domain);
}

void EventHandler::removeAllEventHandler()
{
    std::lock_guard const lock(m_mutex);
    noteChange();
    for (auto const& [domain, clients] : m_handlers) {
        EventListener::getDefListener()->removeDomainListener(domain);
    }
    m_handlers.clear();
}

void EventHandler::refresh(View& view)
{
    std::lock_guard const lock(m_mutex);
    if (view.m_deliveries != 0) {
        view.m_replaced.push_back(std::exchange(view.m_domains, {}));
    }
    view.m_domains.assign(m_handlers.begin(), m_handlers.end());
    view.m_version = m_version.load(std::memory_order_relaxed);
    view.find(view.m_lastDomain);
}

HandleEventStatus EventHandler::deliver(Clients const& clients, KFREvent const& event)
{
    for (IKFREventHandler* const client : clients) {
        client->handle(event.domain, event);
    }
    return clients.empty() ? kNotHandled : kHandled;
}

HandleEventStatus EventHandler::handleEvent(KFREvent const& event)
{
    View* const view = View::ofThread();
    if (view == nullptr) {
        return handleWithoutView(event);
    }
    // Also while the clients are being changed: refresh() waits for that, or throws on the thread
    // that does it.
    if (view->m_version != m_version.load(std::memory_order_acquire)) {
        refresh(*view);
    }
    Clients const* const clients = view->clientsOf(event.domain);
    if (clients == nullptr) {
        return kNotHandled;
    }
    Delivery const delivery(*view);  // the view keeps the clients for as long
    return deliver(*clients, event);
}

HandleEventStatus EventHandler::handleWithoutView(KFREvent const& event)
{
    Snapshot clients;
    {
        std::lock_guard const lock(m_mutex);
        if (auto const found = m_handlers.find(event.domain); found != m_handlers.end()) {
            clients = found->second;
        }
    }
    return clients != nullptr ? deliver(*clients, event) : kNotHandled;
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
