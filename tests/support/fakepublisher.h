/// \file
/// The framework's end of publishing: keeps what components publish.

#pragma once

#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

struct Publication {
    std::string name;
    bool single = false;
    std::string majorVersion;
    std::string minorVersion;
    std::string buildData;
    KFRSmartPointer<KFRIServiceFactoryInterface> factory;
};

/// Owns the factories that were published to it.
class FakePublisher final : public KFRServiceObjectImpl<KFRIServicePublisherInterface> {
public:
    std::vector<Publication> published;

    KFRResult publishFactory(std::string const& name, KFRIServiceFactoryInterface* factory,
                             bool single, std::string const& majorVersion,
                             std::string const& minorVersion, std::string const& buildData) override
    {
        published.push_back({name, single, majorVersion, minorVersion, buildData,
                             KFRSmartPointer<KFRIServiceFactoryInterface>(factory, KFR::kAdopt)});
        return KFR::ok;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
