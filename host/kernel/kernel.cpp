#include "host/kernel/kernel.h"

#include "host/kernel/servicename.h"
#include "host/kernel/systemutilities.h"

#include "platform/servicecaches/servicecacheappframe.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::host::kernel {

namespace {

using Holder = plugin::modeling::ServiceCacheModelingPlugin;

std::atomic<bool> placeTaken{false};

class KernelAccess final : public KFRServiceObjectImpl<KFR::Framework::KFRIKernelAccessInterface> {
public:
    explicit KernelAccess(KFRSmartPointer<KFR::Framework::KFRILoggerInterface> logger)
        : m_logger(std::move(logger))
    {
    }
    KFRSmartPointer<KFR::Framework::KFRILoggerInterface> getLogger() override { return m_logger; }

private:
    KFRSmartPointer<KFR::Framework::KFRILoggerInterface> m_logger;
};

}  // namespace

Kernel::Place::Place()
{
    if (placeTaken.exchange(true)) {
        throw std::logic_error("Kernel: there is one in this process already");
    }
}

Kernel::Place::~Place()
{
    placeTaken = false;
}

Kernel::Kernel(Options const& options)
    : m_logger(KFR::make<Logger>(options.m_logLevel)),
      m_typeRegistry(KFR::make<TypeRegistry>(options.m_typeRegistrySeed)),
      m_services(KFR::make<ServiceRegistry>())
{
    static_cast<void>(m_services->addService(
        serviceNameOf("getTypeRegistry"), [types = m_typeRegistry] { return KFRIService(types); }));
    KFRSmartPointer<SystemUtilities> const utilities = KFR::make<SystemUtilities>();
    KFR::Framework::setKernelAccessInterface(KFR::make<KernelAccess>(m_logger));
    Holder::fileUtils_ = utilities;
    Holder::pathUtils_ = utilities;
    Holder::kfrServiceAccess_ = m_services.get();
}

Kernel::~Kernel()
{
    static_cast<void>(stop());
}

Component const& Kernel::loadComponent(std::string const& path)
{
    if (m_stopped) {
        throw ComponentError(path + ": is loaded after the stop");
    }
    ComponentLoader const loader(path);
    Component const& component = loader.component();
    std::string const name = component.info("Name");
    if (std::ranges::any_of(m_components,
                            [&](Component const& other) { return other.info("Name") == name; })) {
        throw ComponentError(path + ": the component " + name + " is loaded already");
    }
    m_services->addServiceTable(component.m_serviceTable);
    loader.initialise(m_services);
    m_logger->log("Loaded " + name + " from " + path, LogLevel::information);
    return m_components.emplace_back(component);
}

std::vector<std::string> Kernel::stop()
{
    if (std::exchange(m_stopped, true)) {
        return {};
    }
    m_services->stop();
    Holder::releaseAll();
    appfw::ServiceCacheAppFrame::releaseAll();

    KFRSequence<std::string> const alive =
        KFR::Framework::getServiceManagerInterface()->getTrackedInstances();
    std::vector<std::string> names(alive.begin(), alive.end());
    for (std::string const& name : names) {
        m_logger->log("Still alive at the end: " + name, LogLevel::warning);
    }
    KFR::Framework::setKernelAccessInterface(KFR::NULLSP);
    return names;
}

}  // namespace vrn::orlo::host::kernel
