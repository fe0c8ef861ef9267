#include "plugins/modelingplugin/utilities/componentframe/utilities.h"

#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

Utilities::Utilities(KFRIFactoryAccess& access) : generated::UtilitiesBase(access)
{
    // The two layers get different things: one the provider, the other the framework's own handle.
    // A provider that is missing is no error here; the first look-up will tell.
    static_cast<void>(
        ServiceProviderHelper::setServiceProvider(m_serviceAccess->getKFRIServiceProvider()));
    ServiceHelper::setServiceProvider(access.getServiceHandle());
}

Utilities::~Utilities() = default;

std::string Utilities::getObjectName()
{
    return "vrn.orlo.plugin.modeling.Utilities:Utilities";
}

}  // namespace vrn::orlo::plugin::modeling
