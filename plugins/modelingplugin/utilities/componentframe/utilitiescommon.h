/// \file
/// First layer of the service class: forwards the framework's operations.

#pragma once

#include "platform/kfr/kfrserviceaccess.h"
#include "plugins/modelingplugin/utilities/componentframe/utilitiesserviceaccess.h"

#include <string>

namespace vrn::orlo::plugin::modeling::generated {

/// Forwards every service-access operation to KFRServiceAccess. The two look-ups with a parameter
/// text have the component's service table added to it, so that names are resolved against that
/// table.
class UtilitiesCommon : public KFRIUtilitiesServiceAccess, public KFR::Framework::KFRServiceAccess {
public:
    explicit UtilitiesCommon(KFRIFactoryAccess& access);

    void addReference() override;
    void releaseReference(void** holder) override;
    int getInterface(KFRUUID const& id, void** object) override;
    std::string getObjectName() override;
    long long getInstanceID() override;

    KFRIService getService(std::string const& name, KFRResult& result) override;
    KFRIService getService(std::string const& name, std::string const& parameters,
                           KFRResult& result) override;
    KFRIService getService(std::string const& name, std::string const& parameters) override;
    KFRIService getKFRIService() override;
    KFRSmartPointer<KFRIServiceProviderInterface> getKFRIServiceProvider() override;
    KFRSmartPointer<KFRIServicePublisherInterface> getKFRIServicePublisher() override;
    KFRSmartPointer<KFRIServiceFactoryInterface> getKFRIServiceFactory() override;
    KFRIService getHeldReference() override;
    KFRResult addNewProvider(
        KFRSmartPointer<KFRIServiceProviderInterface> const& provider) override;
    int compareReferenceCount(int count) override;
    void trackObject() override;

protected:
    ~UtilitiesCommon() override = default;
    [[nodiscard]] KFR::Framework::KFRIServiceAccess* asServiceAccess() noexcept override;
};

}  // namespace vrn::orlo::plugin::modeling::generated
