#include "plugins/modelingplugin/utilities/componentframe/utilitiesfactory.h"

#include "platform/servicenames.h"
#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"
#include "plugins/modelingplugin/utilities/componentframe/utilities.h"

#include <new>

namespace vrn::orlo::plugin::modeling::generated {

UtilitiesFactory::UtilitiesFactory(KFRSmartPointer<KFRIServicePublisherInterface> const& publisher)
    : KFRFactory(publisher, servicenames::kUtilities, true, "", "",
                 std::string(componentinfo::buildData()))
{
}

UtilitiesFactory::~UtilitiesFactory() = default;

std::string UtilitiesFactory::getObjectName()
{
    return "vrn.orlo.plugin.modeling.Utilities:UtilitiesFactory";
}

std::string UtilitiesFactory::getProperty(std::string const& /*key*/)
{
    return {};  // "MajorVersion" and "MinorVersion", which clients do ask for, are empty too
}

KFRIServiceInterface* UtilitiesFactory::create(KFRIFactoryAccess& access)
{
    return static_cast<KFRIUtilitiesServiceAccess*>(new (std::nothrow) Utilities(access));
}

}  // namespace vrn::orlo::plugin::modeling::generated
