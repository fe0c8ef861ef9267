#include "platform/kfr/kfrserviceaccess.h"

#include "platform/kfr/kfrkernelaccess.h"

namespace KFR::Framework {

KFRServiceAccess::KFRServiceAccess(KFRIFactoryAccess& access, bool tracked)
    : m_held(access.getServiceHandle()),
      m_publisher(access.getServicePublisher()),
      m_factory(access.getServiceFactory())
{
    if (KFRSmartPointer<KFRIServiceProviderInterface> const provider =
            access.getServiceProvider()) {
        m_providers.push_back(provider);
    }
    if (tracked) {
        // The class's own name is not to be had from its base's constructor; the type's serves.
        getServiceManagerInterface()->trackInstance(m_core.instanceID(),
                                                    KFRIServiceAccess::kfrTypeName());
    }
}

KFRServiceAccess::~KFRServiceAccess() = default;

void KFRServiceAccess::addReference()
{
    m_core.addReference();
}

void KFRServiceAccess::releaseReference(void** holder)
{
    if (m_core.releaseReference(holder)) {
        delete this;
    }
}

int KFRServiceAccess::getInterface(KFRUUID const& id, void** object)
{
    if (id == KFRIServiceInterface::kfrInterfaceId()) {
        *object = static_cast<KFRIServiceInterface*>(asServiceAccess());
    } else if (id == KFRIServiceAccess::kfrInterfaceId()) {
        *object = asServiceAccess();
    } else if (id == KFRIWeakReferenceSupportInterface::kfrInterfaceId()) {
        *object = static_cast<KFRIWeakReferenceSupportInterface*>(this);
    } else {
        return kInterfaceNotImplemented;
    }
    addReference();
    return kInterfaceFound;
}

std::string KFRServiceAccess::getObjectName()
{
    return KFRIServiceAccess::kfrTypeName();
}

long long KFRServiceAccess::getInstanceID()
{
    return m_core.instanceID();
}

KFRSmartPointer<KFRIWeakReferenceInterface> KFRServiceAccess::getWeakReference()
{
    return m_core.weakReference(asServiceAccess());
}

KFRIService KFRServiceAccess::getService(std::string const& name, KFRResult& result)
{
    return getService(name, std::string(), result);
}

KFRIService KFRServiceAccess::getService(std::string const& name, std::string const& parameters,
                                         KFRResult& result)
{
    KFRResult telling(notDone);  // the first failure that says more than that the name is unknown
    for (auto const& provider : m_providers) {
        if (KFRIService found = provider->getService(name, parameters, result); found != NULLSP) {
            return found;
        }
        if (telling.getCode() == notDone) {
            telling = result;
        }
    }
    result = telling;
    return {};
}

KFRIService KFRServiceAccess::getService(std::string const& name, std::string const& parameters)
{
    KFRResult result;
    KFRIService found = getService(name, parameters, result);
    if (!result.isOk()) {
        throw KFRSystemException(result.getCode(), "The service " + name + " is not available.");
    }
    return found;
}

KFRIService KFRServiceAccess::getKFRIService()
{
    return KFRIService(asServiceAccess(), KFRIServiceAccess::kfrTypeCode());
}

KFRSmartPointer<KFRIServiceProviderInterface> KFRServiceAccess::getKFRIServiceProvider()
{
    return m_providers.empty() ? KFRSmartPointer<KFRIServiceProviderInterface>()
                               : m_providers.front();
}

KFRSmartPointer<KFRIServicePublisherInterface> KFRServiceAccess::getKFRIServicePublisher()
{
    return m_publisher;
}

KFRSmartPointer<KFRIServiceFactoryInterface> KFRServiceAccess::getKFRIServiceFactory()
{
    return m_factory;
}

KFRIService KFRServiceAccess::getHeldReference()
{
    return m_held;
}

KFRResult KFRServiceAccess::addNewProvider(
    KFRSmartPointer<KFRIServiceProviderInterface> const& provider)
{
    if (provider == NULLSP) {
        return notDone;
    }
    m_providers.push_back(provider);
    return ok;
}

int KFRServiceAccess::compareReferenceCount(int count)
{
    return m_core.referenceCount() - count;
}

void KFRServiceAccess::trackObject()
{
    getServiceManagerInterface()->trackInstance(m_core.instanceID(), getObjectName());
}

}  // namespace KFR::Framework
