#include "apps/orlo/session.h"

#include "host/kernel/servicename.h"
#include "platform/modeling/modelingutilities.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"

namespace vrn::orlo::app {

namespace {

// This program links the component's exported classes, so that it is in the process already; asked
// for by this name the loader gives the framework that same copy.
constexpr char const* kComponentLibrary = "libModelingPluginUtilities.so";

}  // namespace

Session::Session(host::kernel::Kernel::Options const& options)
    : m_kernel(std::make_unique<host::kernel::Kernel>(options)),
      m_units(host::units::registerUnits(*m_kernel))
{
    m_component = &m_kernel->loadComponent(kComponentLibrary);
    KFRResult result;
    KFRIService const service =
        m_kernel->services().getService(host::kernel::componentService(), "", result);
    m_connected =
        KFR::loose_cast<plugin::modeling::KFRIModelingUtilitiesInterface>(service) != KFR::NULLSP;
}

Session::~Session()
{
    // Types first: dropping them still needs the registry, which the service cache would fetch
    // again had it been emptied before.
    plugin::modeling::EntityTypeID::unRegister();
    plugin::modeling::ServiceHelper::releaseServices();
    m_kernel->stop();
}

}  // namespace vrn::orlo::app
