/// \file
/// Base of a component's factories.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>

namespace KFR::Framework {

/// A factory that registers itself under a service name and asks its class for each instance.
///
/// Ownership  Belongs to the publisher from its construction on. Without a publisher it belongs to
///            its maker, who holds the first reference.
/// Failure    getServiceInstance gives null and KFR::notDone for another name than its own and when
///            the class makes nothing. What the instance's constructor throws passes through.
class KFR_API KFRFactory : public KFRServiceObjectImpl<KFRIServiceFactoryInterface> {
public:
    KFRFactory(KFRSmartPointer<KFRIServicePublisherInterface> publisher, std::string name,
               bool single, std::string majorVersion, std::string minorVersion,
               std::string buildData);

    KFRIService getServiceInstance(std::string const& name,
                                   KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
                                   KFRResult& result) override;

protected:
    ~KFRFactory() override;

    /// Makes one instance; its first reference goes to the caller. Null when it cannot be made.
    virtual KFRIServiceInterface* create(KFRIFactoryAccess& access) = 0;

private:
    // Not owned: the publisher owns this factory and outlives it.
    KFRIServicePublisherInterface* m_publisher;
    std::string m_name;
};

}  // namespace KFR::Framework
