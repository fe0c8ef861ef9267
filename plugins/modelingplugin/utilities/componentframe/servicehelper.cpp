#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"
#include "platform/appfw/appfw.h"
#include "platform/appfw/commands.h"
#include "platform/appfw/entity.h"
#include "platform/appfw/entref.h"
#include "platform/appfw/frameworkaccess.h"
#include "platform/appfw/selection.h"
#include "platform/appfw/transactions.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfrframework.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "platform/servicenames.h"
#include "platform/sysutils/sysutils.h"
#include "platform/units/units.h"

#include <absl/strings/string_view.h>

namespace vrn::orlo::plugin::modeling {

ServiceHelper& ServiceHelper::library()
{
    static ServiceHelper helper;
    return helper;
}

KFRIService ServiceHelper::named(std::string_view name)
{
    return library().getService(name);
}

KFRIService ServiceHelper::getService(std::string_view name)
{
    if (auto const known = m_cache.find(absl::string_view(name.data(), name.size()));
        known != m_cache.end()) {
        return known->second;
    }
    // The provider that setServiceProvider stored plays no part: look-ups go through the service
    // access that another library of the plug-in has put into the holder.
    KFR::Framework::KFRIServiceAccess* const access = ServiceCacheModelingPlugin::kfrServiceAccess_;
    if (access == nullptr) {
        return {};
    }
    std::string const key(name);
    KFRIService found;
    try {
        found = access->getService(key, std::string());
    } catch (KFRException const& failure) {
        // A service that cannot be had is a service that is missing: nobody is told the reason.
        std::string const dropped = failure.getText();
    }
    if (found != KFR::NULLSP) {
        m_cache.emplace(key, found);
    }
    return found;
}

#define NAMED_SERVICE(operation, name)     \
    KFRIService ServiceHelper::operation() \
    {                                      \
        return named(name);                \
    }
#include "platform/servicenames.def"

KFRSmartPointer<KFR::AEM::Legacy::IFPStar::KFRIAEMIFPStarInterface> ServiceHelper::getAEMFPStar()
{
    return named(servicenames::kAEMFPStar);
}

KFRSmartPointer<KFRIBizLogicInterface> ServiceHelper::getBizLogicService()
{
    return named(servicenames::kBizLogicService);
}

KFRSmartPointer<KFRICommonServiceInterface> ServiceHelper::getCommonService()
{
    return named(servicenames::kCommonService);
}

KFRSmartPointer<IEntityFactoryInterface> ServiceHelper::getEntityFactory()
{
    return named(servicenames::kEntityFactory);
}

KFRIService ServiceHelper::getAEMExportBulk()
{
    return ServiceProviderHelper::getService(servicenames::kAEMExportBulk, "");
}

KFRIService ServiceHelper::getAEMImportBulk()
{
    return ServiceProviderHelper::getService(servicenames::kAEMImportBulk, "");
}

KFRIService ServiceHelper::getInteractionContact()
{
    return ServiceProviderHelper::getService(servicenames::kInteractionContact, "");
}

#define HELD_SERVICE(operation, member)            \
    KFRIService ServiceHelper::operation()         \
    {                                              \
        return ServiceCacheModelingPlugin::member; \
    }
#include "platform/heldservices.def"

KFRSmartPointer<appfw::IRootManagerInterface> ServiceHelper::getRootManager()
{
    return ServiceCacheModelingPlugin::rootManager_;
}

KFRIService ServiceHelper::getServiceByName(std::string const& name)
{
    return named(name);
}

KFRIService ServiceHelper::getServiceProvider()
{
    return library().m_provider;
}

void ServiceHelper::setServiceProvider(KFRIService const& provider)
{
    library().m_provider = provider;
}

void ServiceHelper::release()
{
    m_cache.clear();
}

void ServiceHelper::releaseServices()
{
    library().release();
}

}  // namespace vrn::orlo::plugin::modeling
