/// \file
/// All services of the process, by name.

#pragma once

#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrserviceobject.h"

#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace vrn::orlo::host::kernel {

/// Codes of look-ups and registrations that fail; each comes with a text as its first parameter. A
/// name that nobody has registered, or that is switched off, has KFR::notDone and no text.
enum ServiceFailure : int {
    kMalformedParameters = 1,
    kUnknownServiceTable = 2,
    kCyclicRequest = 3,  ///< The service is needed for its own making.
    kNotMade = 4,        ///< The name is known, but its maker gave nothing or threw.
    kNameTaken = 5,      ///< Registrations only.
    kStopped = 6,        ///< stop() has begun.
};

/// Finds services by name and makes them when they are first asked for: those of the host, which
/// are registered with a maker, and those of components, which come with a factory.
///
/// It is the components' provider, publisher and service access in one object.
///
/// Failure    As ServiceFailure says. What a maker throws becomes kNotMade; only the look-up
///            without a result throws, KFRSystemException.
/// Ownership  Owns makers, factories and the instances of single services until stop(). Whoever was
///            given an instance may keep it beyond.
/// Threads    Any thread. No lock is held while a maker or factory runs, so that they may look for
///            other services. Threads that ask for one new service at once wait for the one that
///            makes it. A maker must not wait for another thread that asks for the maker's own
///            service.
/// Cost       A look-up of what has been made: one lock and one search in a map.
class ServiceRegistry final
    : public KFRServiceObjectImpl<KFR::Framework::KFRIServiceAccess, KFRIServiceProviderInterface,
                                  KFRIServicePublisherInterface> {
public:
    using Maker = std::function<KFRIService()>;

    /// Registers a service of the host.
    /// \param single  one instance serves all, made at the first request; else each request
    ///                makes one
    KFRResult addService(std::string const& name, Maker maker, bool single = true);

    /// Makes a component's service table known, which look-ups may name in their parameters.
    void addServiceTable(std::string const& table);

    /// Switches a name off, so that it is as unknown, or on again; also a name that is registered
    /// later. What has been made stays, and is what is found after switching on.
    void setEnabled(std::string const& name, bool enabled);

    /// All names that are registered and not switched off, ascending by bytes.
    [[nodiscard]] std::vector<std::string> names();

    /// Names of the single services that have been made, in the order in which they were ready.
    [[nodiscard]] std::vector<std::string> liveInstances();

    /// Gives back the instances, the last made first, and then the factories and makers, the last
    /// registered first. While that goes on the instances that are still there are found; nothing
    /// new is made. Afterwards all names are unknown. A second call does nothing.
    void stop();

    KFRIService getService(std::string const& name, KFRResult& result) override;
    KFRIService getService(std::string const& name, std::string const& parameters,
                           KFRResult& result) override;
    KFRIService getService(std::string const& name, std::string const& parameters) override;
    KFRIService getKFRIService() override;
    KFRSmartPointer<KFRIServiceProviderInterface> getKFRIServiceProvider() override;
    KFRSmartPointer<KFRIServicePublisherInterface> getKFRIServicePublisher() override;
    /// Null: nobody made the registry through a factory.
    KFRSmartPointer<KFRIServiceFactoryInterface> getKFRIServiceFactory() override { return {}; }
    /// Null: the registry is the framework's own.
    KFRIService getHeldReference() override { return {}; }
    /// A further provider is asked for names that are not registered here, in the order of adding.
    KFRResult addNewProvider(
        KFRSmartPointer<KFRIServiceProviderInterface> const& provider) override;
    int compareReferenceCount(int count) override { return referenceCount() - count; }
    void trackObject() override;

    /// A factory that is refused is kept all the same, until stop() or the registry's end: it may
    /// be in the middle of its construction.
    KFRResult publishFactory(std::string const& name, KFRIServiceFactoryInterface* factory,
                             bool single, std::string const& majorVersion,
                             std::string const& minorVersion,
                             std::string const& buildData) override;

    std::string getObjectName() override { return "vrn.orlo.host.kernel:ServiceRegistry"; }

private:
    using Factory = KFRSmartPointer<KFRIServiceFactoryInterface>;
    using Lock = std::unique_lock<std::mutex>;
    struct Source;
    struct Service;
    class Errand;

    KFRResult add(std::string const& name, std::shared_ptr<Source> source, bool single);
    KFRIService instanceOf(std::shared_ptr<Service> const& service, Lock& lock, KFRResult& result);
    KFRIService make(std::shared_ptr<Service> const& service, Lock& lock, KFRResult& result);
    KFRIService askFurther(std::string const& name, std::string const& parameters, Lock& lock,
                           KFRResult& result);
    [[nodiscard]] bool isOnErrand(std::thread::id thread, std::string const& name) const;
    [[nodiscard]] bool waitsFor(std::thread::id waiting, std::thread::id awaited) const;
    [[nodiscard]] KFRResult cycleFailure(std::string const& name) const;

    std::mutex m_mutex;  // guards all below; never held while anything but a count is called
    std::condition_variable m_errandDone;
    bool m_stopping = false;
    std::map<std::string, std::shared_ptr<Service>> m_byName;
    std::vector<std::shared_ptr<Service>> m_registered;  // in order of registration
    std::vector<std::shared_ptr<Service>> m_live;        // in the order in which they were ready
    std::vector<Factory> m_refused;
    std::set<std::string> m_tables;
    std::set<std::string> m_disabled;
    std::vector<KFRSmartPointer<KFRIServiceProviderInterface>> m_further;
    std::vector<Errand*> m_errands;  // what threads are making or asking further providers for
    std::map<std::thread::id, Service const*> m_waiting;
};

}  // namespace vrn::orlo::host::kernel
