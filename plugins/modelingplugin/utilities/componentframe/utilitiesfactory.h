/// \file
/// Factory of the component's service.

#pragma once

#include "platform/kfr/kfrfactory.h"

namespace vrn::orlo::plugin::modeling::generated {

/// Makes Utilities. Registers itself with the publisher, who owns it from then on.
class UtilitiesFactory final : public KFR::Framework::KFRFactory {
public:
    explicit UtilitiesFactory(KFRSmartPointer<KFRIServicePublisherInterface> const& publisher);

    std::string getObjectName() override;
    std::string getProperty(std::string const& key) override;

protected:
    ~UtilitiesFactory() override;
    KFRIServiceInterface* create(KFRIFactoryAccess& access) override;
};

}  // namespace vrn::orlo::plugin::modeling::generated
