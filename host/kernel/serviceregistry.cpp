#include "host/kernel/serviceregistry.h"

#include "host/kernel/serviceparameters.h"

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrkernelaccess.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace vrn::orlo::host::kernel {

namespace {

KFRResult failure(ServiceFailure code, std::string const& text)
{
    return KFRResult(code).addParam(text);
}

/// The text that failure() put into a result; empty when there is none.
std::string textOf(KFRResult const& result)
{
    std::string text;
    if (KFRSequence<KFRAny> const params = result.getParams(); !params.empty()) {
        static_cast<void>(params.front() >>= text);
    }
    return text;
}

}  // namespace

/// Where instances of a service come from: a maker or a factory. Shared with whoever is using it,
/// so that it outlives a stop in the meantime.
struct ServiceRegistry::Source {
    Maker m_maker;
    Factory m_factory;
    std::string m_buildData;
};

struct ServiceRegistry::Service {
    std::string m_name;
    bool m_single = true;
    std::shared_ptr<Source> m_source;
    KFRIService m_instance;   // of a single service, once it has been made
    std::thread::id m_maker;  // who is making the single instance; of no thread when nobody is
};

/// Marks, for its lifetime, that this thread is fetching `name`.
class ServiceRegistry::Errand {
public:
    /// To be made with the registry's lock held.
    /// \param made  the single service that is being made; or null
    Errand(ServiceRegistry& registry, std::string const& name, Service* made)
        : m_registry(registry), m_thread(std::this_thread::get_id()), m_name(name), m_made(made)
    {
        m_registry.m_errands.push_back(this);
        if (m_made != nullptr) {
            m_made->m_maker = m_thread;
        }
    }
    Errand(Errand const&) = delete;
    Errand& operator=(Errand const&) = delete;
    /// To be destroyed without the lock.
    ~Errand()
    {
        {
            std::lock_guard const guard(m_registry.m_mutex);
            std::erase(m_registry.m_errands, this);
            if (m_made != nullptr) {
                m_made->m_maker = std::thread::id();
            }
        }
        m_registry.m_errandDone.notify_all();
    }

    [[nodiscard]] std::thread::id thread() const noexcept { return m_thread; }
    [[nodiscard]] std::string const& name() const noexcept { return m_name; }

private:
    ServiceRegistry& m_registry;
    std::thread::id m_thread;
    std::string m_name;
    Service* m_made;
};

KFRResult ServiceRegistry::add(std::string const& name, std::shared_ptr<Source> source, bool single)
{
    std::lock_guard const guard(m_mutex);
    if (m_stopping) {
        return failure(kStopped, "The service " + name + " comes after the stop.");
    }
    auto service = std::make_shared<Service>();
    service->m_name = name;
    service->m_single = single;
    service->m_source = std::move(source);
    if (!m_byName.try_emplace(name, service).second) {
        return failure(kNameTaken, "The service " + name + " is registered already.");
    }
    m_registered.push_back(std::move(service));
    return KFR::ok;
}

KFRResult ServiceRegistry::addService(std::string const& name, Maker maker, bool single)
{
    auto source = std::make_shared<Source>();
    source->m_maker = std::move(maker);
    return add(name, std::move(source), single);
}

KFRResult ServiceRegistry::publishFactory(std::string const& name,
                                          KFRIServiceFactoryInterface* factory, bool single,
                                          std::string const&, std::string const&,
                                          std::string const& buildData)
{
    if (factory == nullptr) {
        return KFR::notDone;
    }
    auto source = std::make_shared<Source>();
    source->m_factory = Factory(factory, KFR::kAdopt);
    source->m_buildData = buildData;
    KFRResult const added = add(name, source, single);
    if (!added.isOk()) {
        std::lock_guard const guard(m_mutex);
        m_refused.push_back(std::move(source->m_factory));
    }
    return added;
}

void ServiceRegistry::addServiceTable(std::string const& table)
{
    std::lock_guard const guard(m_mutex);
    m_tables.insert(table);
}

void ServiceRegistry::setEnabled(std::string const& name, bool enabled)
{
    std::lock_guard const guard(m_mutex);
    if (enabled) {
        m_disabled.erase(name);
    } else {
        m_disabled.insert(name);
    }
}

std::vector<std::string> ServiceRegistry::names()
{
    std::lock_guard const guard(m_mutex);
    std::vector<std::string> names;
    for (auto const& [name, service] : m_byName) {
        if (!m_disabled.contains(name)) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<std::string> ServiceRegistry::liveInstances()
{
    std::lock_guard const guard(m_mutex);
    std::vector<std::string> names;
    for (auto const& service : m_live) {
        names.push_back(service->m_name);
    }
    return names;
}

void ServiceRegistry::stop()
{
    Lock lock(m_mutex);
    m_stopping = true;
    m_errandDone.notify_all();
    while (!m_live.empty()) {
        KFRIService last;
        last.swap(m_live.back()->m_instance);
        m_live.pop_back();
        lock.unlock();
        last.release();  // its destructor may look for the services that are left
        lock.lock();
    }
    while (!m_registered.empty()) {
        std::shared_ptr<Source> last = std::move(m_registered.back()->m_source);
        m_byName.erase(m_registered.back()->m_name);
        m_registered.pop_back();
        lock.unlock();
        last.reset();
        lock.lock();
    }
    m_tables.clear();
    auto const refused = std::exchange(m_refused, {});
    auto const further = std::exchange(m_further, {});
    lock.unlock();  // before the two are released
}

KFRIService ServiceRegistry::getService(std::string const& name, KFRResult& result)
{
    return getService(name, std::string(), result);
}

KFRIService ServiceRegistry::getService(std::string const& name, std::string const& parameters)
{
    KFRResult result;
    KFRIService found = getService(name, parameters, result);
    if (!result.isOk()) {
        std::string const reason = textOf(result);
        throw KFRSystemException(result.getCode(), "The service " + name + " is not available." +
                                                       (reason.empty() ? "" : " ") + reason);
    }
    return found;
}

KFRIService ServiceRegistry::getService(std::string const& name, std::string const& parameters,
                                        KFRResult& result)
{
    std::optional<ServiceParameters> const parsed = ServiceParameters::parse(parameters);
    if (!parsed) {
        result =
            failure(kMalformedParameters, "The parameters \"" + parameters +
                                              "\" are no key=value items with commas between.");
        return {};
    }
    Lock lock(m_mutex);
    for (std::string const& table : parsed->m_tables) {
        if (!m_tables.contains(table)) {
            result =
                failure(kUnknownServiceTable, "No component has the service table " + table + ".");
            return {};
        }
    }
    if (m_disabled.contains(name)) {
        result = KFR::notDone;
        return {};
    }
    if (auto const known = m_byName.find(name); known != m_byName.end()) {
        return instanceOf(std::shared_ptr(known->second), lock, result);
    }
    return askFurther(name, parameters, lock, result);
}

KFRIService ServiceRegistry::instanceOf(std::shared_ptr<Service> const& service, Lock& lock,
                                        KFRResult& result)
{
    std::thread::id const self = std::this_thread::get_id();
    for (;;) {
        if (service->m_instance != KFR::NULLSP) {
            result = KFR::ok;
            return service->m_instance;
        }
        if (m_stopping) {
            result =
                failure(kStopped, "The service " + service->m_name + " is asked for too late.");
            return {};
        }
        if (isOnErrand(self, service->m_name) ||
            (service->m_maker != std::thread::id() && waitsFor(service->m_maker, self))) {
            result = cycleFailure(service->m_name);
            return {};
        }
        if (service->m_maker == std::thread::id()) {
            return make(service, lock, result);
        }
        m_waiting[self] = service.get();
        m_errandDone.wait(lock);
        m_waiting.erase(self);
    }
}

KFRIService ServiceRegistry::make(std::shared_ptr<Service> const& service, Lock& lock,
                                  KFRResult& result)
{
    std::shared_ptr<Source> const source = service->m_source;
    std::string const& name = service->m_name;
    // Behind the errand's mark in the order of destruction: what is not kept goes without the lock.
    KFRIService made;
    Errand const errand(*this, name, service->m_single ? service.get() : nullptr);
    lock.unlock();

    std::string reason = "its maker gives nothing.";
    try {
        if (source->m_factory != KFR::NULLSP) {
            KFRResult unread;
            made = source->m_factory->getServiceInstance(name, getKFRIServiceProvider(), unread);
        } else if (source->m_maker) {
            made = source->m_maker();
        }
    } catch (std::exception const& thrown) {
        reason = thrown.what();
    }
    if (made == KFR::NULLSP) {
        result = failure(kNotMade, "The service " + name + " cannot be made: " + reason);
        return {};
    }
    if (service->m_single) {
        std::lock_guard const guard(m_mutex);
        if (m_stopping) {
            result = failure(kStopped, "The service " + name + " was ready too late.");
            return {};
        }
        // Stored before the errand ends, so that nobody sees the service neither made nor in the
        // making.
        service->m_instance = made;
        m_live.push_back(service);
    }
    result = KFR::ok;
    return made;
}

KFRIService ServiceRegistry::askFurther(std::string const& name, std::string const& parameters,
                                        Lock& lock, KFRResult& result)
{
    result = KFR::notDone;
    // A further provider may ask back for what it does not know either.
    if (m_further.empty() || isOnErrand(std::this_thread::get_id(), name)) {
        return {};
    }
    auto const providers = m_further;
    Errand const errand(*this, name, nullptr);
    lock.unlock();
    for (auto const& provider : providers) {
        if (KFRIService found = provider->getService(name, parameters, result);
            found != KFR::NULLSP) {
            result = KFR::ok;
            return found;
        }
    }
    result = KFR::notDone;
    return {};
}

bool ServiceRegistry::isOnErrand(std::thread::id thread, std::string const& name) const
{
    return std::ranges::any_of(m_errands, [&](Errand const* errand) {
        return errand->thread() == thread && errand->name() == name;
    });
}

/// Whether `waiting` waits, through any number of other threads, for what `awaited` is making.
bool ServiceRegistry::waitsFor(std::thread::id waiting, std::thread::id awaited) const
{
    while (waiting != awaited) {
        auto const service = m_waiting.find(waiting);
        if (service == m_waiting.end() || service->second->m_maker == std::thread::id()) {
            return false;
        }
        waiting = service->second->m_maker;
    }
    return true;
}

KFRResult ServiceRegistry::cycleFailure(std::string const& name) const
{
    std::string chain;
    for (Errand const* errand : m_errands) {
        if (errand->thread() == std::this_thread::get_id()) {
            chain += errand->name() + " -> ";
        }
    }
    return failure(kCyclicRequest,
                   "The service " + name + " is needed for its own making: " + chain + name + ".");
}

KFRIService ServiceRegistry::getKFRIService()
{
    return KFRIService(kfrRoot(), kfrTypeCode());
}

KFRSmartPointer<KFRIServiceProviderInterface> ServiceRegistry::getKFRIServiceProvider()
{
    return KFRSmartPointer<KFRIServiceProviderInterface>(this);
}

KFRSmartPointer<KFRIServicePublisherInterface> ServiceRegistry::getKFRIServicePublisher()
{
    return KFRSmartPointer<KFRIServicePublisherInterface>(this);
}

KFRResult ServiceRegistry::addNewProvider(
    KFRSmartPointer<KFRIServiceProviderInterface> const& provider)
{
    if (provider == KFR::NULLSP || provider == getKFRIServiceProvider()) {
        return KFR::notDone;
    }
    std::lock_guard const guard(m_mutex);
    m_further.push_back(provider);
    return KFR::ok;
}

void ServiceRegistry::trackObject()
{
    KFR::Framework::getServiceManagerInterface()->trackInstance(getInstanceID(), getObjectName());
}

}  // namespace vrn::orlo::host::kernel
