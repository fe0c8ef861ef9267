#include "apps/orlo/modelingplugin.h"

#include "host/kernel/servicename.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"
#include "plugins/modelingplugin/utilities/componentframe/atmouseinstruction.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/logger.h"
#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"
#include "plugins/modelingplugin/utilities/identity/entitycompare.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"

#include <string>
#include <utility>

namespace vrn::orlo::app {

using namespace plugin::modeling;  // NOLINT: this plug-in's own library

namespace {

constexpr char const* kName = "VRN.ModelingPlugin";

/// The plug-in's initializer service: what the event manager calls.
class Initializer final : public KFRServiceObjectImpl<KFRIEventListenerInterface> {
public:
    KFRResult handleEvent(KFREvent const& event) override
    {
        return EventHandler::instance()->handleEvent(event) == kHandled ? KFR::ok : KFR::notDone;
    }
    std::string getObjectName() override { return "vrn.orlo.plugin.modeling:Initializer"; }
};

}  // namespace

ModelingPlugin::ModelingPlugin(host::kernel::Kernel& kernel) : m_kernel(kernel)
{
    static_cast<void>(
        m_kernel.services().addService(host::kernel::serviceNameOf("getInitializerService"),
                                       []() -> KFRIService { return KFR::make<Initializer>(); }));
}

ModelingPlugin::~ModelingPlugin()
{
    stop();
}

void ModelingPlugin::start(std::filesystem::path const& resources)
{
    m_started = true;
    Logger::initialize();
    auto provider = m_kernel.services().getKFRIServiceProvider();
    LocalizationHelper::instance()->initialize(kName, provider);
    static_cast<void>(AtMouseInstruction::initialize(kName, provider, resources.string()));
}

void ModelingPlugin::stop()
{
    if (!std::exchange(m_started, false)) {
        return;
    }
    EventHandler::instance()->removeAllEventHandler();
    static_cast<void>(AtMouseInstruction::instance()->terminate());
    LocalizationHelper::instance()->release();
    Logger::uninitialize();
    // Types before services: dropping them still needs the registry, which the service cache would
    // fetch again had it been emptied before.
    EntityCompare::release();
    EntityTypeID::unRegister();
    ServiceHelper::releaseServices();
}

}  // namespace vrn::orlo::app
