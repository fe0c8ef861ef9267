/// \file
/// The framework's half of a service class: everything that is the same for all of them.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>
#include <vector>

namespace KFR::Framework {

/// Implementation of a service's access to the framework, for a service class to forward to.
///
/// It is no KFRIServiceAccess itself: the service class inherits that from its own access interface
/// and forwards each operation here, so that the object has one count. The service class overrides
/// the root operations as well; the last release deletes the whole object.
///
/// Ownership  Made with one reference. Keeps handles on the provider, publisher and factory that it
///            was given.
/// Threads    Root operations and look-ups on any thread, as far as the provider allows;
///            addNewProvider on the main thread.
class KFR_API KFRServiceAccess : public KFRIWeakReferenceSupportInterface {
public:
    /// \param access   what the framework passes to the factory; not kept
    /// \param tracked  whether the framework is to note the object, as trackObject() does
    KFRServiceAccess(KFRIFactoryAccess& access, bool tracked);
    KFRServiceAccess(KFRServiceAccess const&) = delete;
    KFRServiceAccess& operator=(KFRServiceAccess const&) = delete;

    void addReference() override;
    void releaseReference(void** holder) override;
    /// Answers the root, the weak-reference interface, and through `asServiceAccess()` the access
    /// interface; every other identifier is refused.
    int getInterface(KFRUUID const& id, void** object) override;
    std::string getObjectName() override;
    long long getInstanceID() override;
    KFRSmartPointer<KFRIWeakReferenceInterface> getWeakReference() override;

    KFRIService getService(std::string const& name, KFRResult& result);
    KFRIService getService(std::string const& name, std::string const& parameters,
                           KFRResult& result);
    KFRIService getService(std::string const& name, std::string const& parameters);
    KFRIService getKFRIService();
    KFRSmartPointer<KFRIServiceProviderInterface> getKFRIServiceProvider();
    KFRSmartPointer<KFRIServicePublisherInterface> getKFRIServicePublisher();
    KFRSmartPointer<KFRIServiceFactoryInterface> getKFRIServiceFactory();
    KFRIService getHeldReference();
    KFRResult addNewProvider(KFRSmartPointer<KFRIServiceProviderInterface> const& provider);
    int compareReferenceCount(int count);
    void trackObject();

protected:
    virtual ~KFRServiceAccess();

    /// The service class's access interface, which is also the root view of the whole object.
    [[nodiscard]] virtual KFRIServiceAccess* asServiceAccess() noexcept = 0;

private:
    KFRObjectCore m_core;
    KFRIService m_held;
    KFRSmartPointer<KFRIServicePublisherInterface> m_publisher;
    KFRSmartPointer<KFRIServiceFactoryInterface> m_factory;
    std::vector<KFRSmartPointer<KFRIServiceProviderInterface>> m_providers;
};

}  // namespace KFR::Framework
