#include "plugins/modelingplugin/utilities/componentframe/utilitiescommon.h"

#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"

namespace vrn::orlo::plugin::modeling::generated {

using KFR::Framework::KFRServiceAccess;

namespace {

std::string withServiceTable(std::string const& parameters)
{
    // Alone the table goes under "#", behind other parameters under its long name.
    std::string const table(componentinfo::kServiceTable);
    return parameters.empty() ? "#=" + table : parameters + ",serviceTable=" + table;
}

}  // namespace

UtilitiesCommon::UtilitiesCommon(KFRIFactoryAccess& access) : KFRServiceAccess(access, true)
{
}

void UtilitiesCommon::addReference()
{
    KFRServiceAccess::addReference();
}

void UtilitiesCommon::releaseReference(void** holder)
{
    KFRServiceAccess::releaseReference(holder);
}

int UtilitiesCommon::getInterface(KFRUUID const& id, void** object)
{
    return KFRServiceAccess::getInterface(id, object);
}

std::string UtilitiesCommon::getObjectName()
{
    return KFRServiceAccess::getObjectName();
}

long long UtilitiesCommon::getInstanceID()
{
    return KFRServiceAccess::getInstanceID();
}

KFRIService UtilitiesCommon::getService(std::string const& name, KFRResult& result)
{
    return KFRServiceAccess::getService(name, result);
}

KFRIService UtilitiesCommon::getService(std::string const& name, std::string const& parameters,
                                        KFRResult& result)
{
    return KFRServiceAccess::getService(name, withServiceTable(parameters), result);
}

KFRIService UtilitiesCommon::getService(std::string const& name, std::string const& parameters)
{
    return KFRServiceAccess::getService(name, withServiceTable(parameters));
}

KFRIService UtilitiesCommon::getKFRIService()
{
    return KFRServiceAccess::getKFRIService();
}

KFRSmartPointer<KFRIServiceProviderInterface> UtilitiesCommon::getKFRIServiceProvider()
{
    return KFRServiceAccess::getKFRIServiceProvider();
}

KFRSmartPointer<KFRIServicePublisherInterface> UtilitiesCommon::getKFRIServicePublisher()
{
    return KFRServiceAccess::getKFRIServicePublisher();
}

KFRSmartPointer<KFRIServiceFactoryInterface> UtilitiesCommon::getKFRIServiceFactory()
{
    return KFRServiceAccess::getKFRIServiceFactory();
}

KFRIService UtilitiesCommon::getHeldReference()
{
    return KFRServiceAccess::getHeldReference();
}

KFRResult UtilitiesCommon::addNewProvider(
    KFRSmartPointer<KFRIServiceProviderInterface> const& provider)
{
    return KFRServiceAccess::addNewProvider(provider);
}

int UtilitiesCommon::compareReferenceCount(int count)
{
    return KFRServiceAccess::compareReferenceCount(count);
}

void UtilitiesCommon::trackObject()
{
    KFRServiceAccess::trackObject();
}

KFR::Framework::KFRIServiceAccess* UtilitiesCommon::asServiceAccess() noexcept
{
    return this;
}

}  // namespace vrn::orlo::plugin::modeling::generated
