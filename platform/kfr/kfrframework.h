/// \file
/// Interfaces between the framework and its components: how services are published, made and found.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"
#include "platform/kfr/kfrtypecode.h"

#include <string>

namespace KFR::Framework {

class KFRIServiceFactoryInterface;

/// Finds services by name.
///
/// Failure    Null, with `result` telling why; a service that is known to nobody gives
///            KFR::notDone.
class KFRIServiceProviderInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIServiceProvider")

    /// \param parameters  empty, or "key=value" items with commas between them; "#=TABLE" and
    ///                    "serviceTable=TABLE" name the service table to resolve the name against
    virtual KFRIService getService(std::string const& name, std::string const& parameters,
                                   KFRResult& result) = 0;
};

/// Takes the factories of a component.
class KFRIServicePublisherInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIServicePublisher")

    /// Registers a factory under a service name and becomes its owner: the reference that the
    /// factory was made with goes over to the publisher. Called from the factory's constructor, so
    /// nothing may be asked of the factory before the call has returned.
    /// \param single     one instance serves all, made at the first request
    /// \param buildData  what the component's build produced; kept, not read
    virtual KFRResult publishFactory(std::string const& name, KFRIServiceFactoryInterface* factory,
                                     bool single, std::string const& majorVersion,
                                     std::string const& minorVersion,
                                     std::string const& buildData) = 0;
};

/// Makes instances of one service.
class KFRIServiceFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIServiceFactory")

    /// A new instance, or null with `result` telling why.
    /// \param provider  through which the instance will look for other services
    virtual KFRIService getServiceInstance(
        std::string const& name, KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
        KFRResult& result) = 0;

    /// A property of the factory; empty for a key that it does not know.
    virtual std::string getProperty(std::string const& key) = 0;
};

/// What a service instance is given when it is made. Lives for the length of the making only; what
/// it hands out may be kept.
class KFRIFactoryAccess {
public:
    KFRIFactoryAccess() = default;
    KFRIFactoryAccess(KFRIFactoryAccess const&) = delete;
    KFRIFactoryAccess& operator=(KFRIFactoryAccess const&) = delete;

    /// Handle of the framework's own service access.
    [[nodiscard]] virtual KFRIService getServiceHandle() = 0;
    [[nodiscard]] virtual KFRSmartPointer<KFRIServiceProviderInterface> getServiceProvider() = 0;
    [[nodiscard]] virtual KFRSmartPointer<KFRIServicePublisherInterface> getServicePublisher() = 0;
    [[nodiscard]] virtual KFRSmartPointer<KFRIServiceFactoryInterface> getServiceFactory() = 0;

protected:
    ~KFRIFactoryAccess() = default;
};

/// A service's access to the framework, in the order in which components compiled against it
/// expect.
class KFRIServiceAccess : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIServiceAccess")

    virtual KFRIService getService(std::string const& name, KFRResult& result) = 0;
    virtual KFRIService getService(std::string const& name, std::string const& parameters,
                                   KFRResult& result) = 0;
    /// The form without a result throws KFRException where the others give a failing one.
    virtual KFRIService getService(std::string const& name, std::string const& parameters) = 0;
    virtual KFRIService getKFRIService() = 0;
    virtual KFRSmartPointer<KFRIServiceProviderInterface> getKFRIServiceProvider() = 0;
    virtual KFRSmartPointer<KFRIServicePublisherInterface> getKFRIServicePublisher() = 0;
    virtual KFRSmartPointer<KFRIServiceFactoryInterface> getKFRIServiceFactory() = 0;
    /// The reference that the access object itself holds on the framework; null for none.
    virtual KFRIService getHeldReference() = 0;
    /// Whether the object lives in this process. With a body, so that a component need not answer
    /// it.
    virtual bool isLocal() { return true; }
    /// Sets a further provider, which is asked for what the first one does not find.
    virtual KFRResult addNewProvider(
        KFRSmartPointer<KFRIServiceProviderInterface> const& provider) = 0;
    /// The object's reference count minus `count`.
    virtual int compareReferenceCount(int count) = 0;
    /// Has the framework note the object, so that it is missed if it is still there at the end.
    virtual void trackObject() = 0;
};

/// Answers what a component says of itself. The order of the fixed queries is the interface's own,
/// not that of the key list.
class KFRIServiceInfoInterface : public KFRIServiceInterface {
    KFR_INTERFACE_ID("KFR.Framework.KFRIServiceInfo", 0xae89535be7c13f9eULL, 0x8bc4dba870482a04ULL)

    virtual KFRResult getInfo(std::string const& key, std::string& value) = 0;
    virtual KFRResult getMajorVersion(std::string& value) = 0;
    virtual KFRResult getMinorVersion(std::string& value) = 0;
    virtual KFRResult getBuildNumber(std::string& value) = 0;
    virtual KFRResult getKernelMajorVersion(std::string& value) = 0;
    virtual KFRResult getKernelMinorVersion(std::string& value) = 0;
    virtual KFRResult getBuildDate(std::string& value) = 0;
    virtual KFRResult getBuildTime(std::string& value) = 0;
    virtual KFRResult getPlatform(std::string& value) = 0;
    virtual KFRResult getName(std::string& value) = 0;
};

namespace Scripting {

/// Tells which interfaces a service has.
class KFRITypeProviderInterface : public KFRIServiceInterface {
    KFR_INTERFACE_ID("KFR.Framework.Scripting.KFRITypeProvider", 0x483bee7ad9913217ULL,
                     0x9d654bdc4d7dfae8ULL)

    /// Replaces the content of `types`.
    virtual KFRResult getTypes(KFRSequence<KFRTypeCode>& types) = 0;
};

}  // namespace Scripting
}  // namespace KFR::Framework

// The names that the application's code uses without their namespace.
using KFR::Framework::KFRIFactoryAccess;
using KFR::Framework::KFRIServiceFactoryInterface;
using KFR::Framework::KFRIServiceProviderInterface;
using KFR::Framework::KFRIServicePublisherInterface;
