/// \file
/// The application around the library, for the length of a test.

#pragma once

#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"
#include "platform/servicecaches/servicecacheappframe.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "tests/support/fakeservices.h"
#include "tests/support/faketyperegistry.h"

#include <utility>

namespace vrn::orlo::plugin::modeling::test {

/// Installs a framework with a type registry in it, and takes back at its end all that the library
/// and the holders have kept. One at a time.
class PlatformScope {
public:
    explicit PlatformScope(unsigned int firstTypeId = 70001)
        : PlatformScope(KFR::make<FakeTypeRegistry>(firstTypeId))
    {
    }
    explicit PlatformScope(KFRSmartPointer<FakeTypeRegistry> registry)
        : m_services(KFR::make<FakeServices>()), m_registry(std::move(registry))
    {
        install();
    }
    PlatformScope(PlatformScope const&) = delete;
    PlatformScope& operator=(PlatformScope const&) = delete;
    ~PlatformScope()
    {
        // Whatever the test has put in its place: forgetting the types needs the registry.
        m_services->clear();
        ServiceHelper::releaseServices();
        install();
        EntityTypeID::unRegister();
        ServiceHelper::releaseServices();
        ServiceHelper::setServiceProvider(KFR::NULLSP);
        ServiceCacheModelingPlugin::releaseAll();
        appfw::ServiceCacheAppFrame::releaseAll();
        // ServiceProviderHelper keeps its provider for good: it has to be an empty one.
        m_services->clear();
    }

    [[nodiscard]] FakeServices& services() { return *m_services; }
    [[nodiscard]] FakeTypeRegistry& registry() { return *m_registry; }

    void removeRegistry()
    {
        m_services->remove(kRegistryName);
        ServiceHelper::releaseServices();
    }
    void putRegistryBack()
    {
        m_services->put(kRegistryName, m_registry);
        ServiceHelper::releaseServices();
    }
    /// In the registry's place an object that is no registry.
    void putStrangerForRegistry()
    {
        m_services->putStranger(kRegistryName);
        ServiceHelper::releaseServices();
    }

private:
    static constexpr char const* kRegistryName = "KFR.Services.TypeRegistry";

    void install()
    {
        m_services->put(kRegistryName, m_registry);
        ServiceCacheModelingPlugin::kfrServiceAccess_ = m_services.get();
        static_cast<void>(ServiceProviderHelper::setServiceProvider(m_services));
    }

    KFRSmartPointer<FakeServices> m_services;
    KFRSmartPointer<FakeTypeRegistry> m_registry;
};

}  // namespace vrn::orlo::plugin::modeling::test
