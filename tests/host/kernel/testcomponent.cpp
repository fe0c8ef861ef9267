#include "host/kernel/testcomponent.h"

#include "platform/kfr/kfrfactory.h"
#include "platform/kfr/kfrkernelaccess.h"

#ifndef TESTCOMPONENT_KERNEL_MAJOR
#define TESTCOMPONENT_KERNEL_MAJOR "24"
#endif
#ifndef TESTCOMPONENT_NAME
#define TESTCOMPONENT_NAME "vrn.orlo.test.Component"
#endif
#ifndef TESTCOMPONENT_INIT_STATUS
#define TESTCOMPONENT_INIT_STATUS 0
#endif

namespace vrn::orlo::host::kernel {
namespace {

class Service final : public KFRServiceObjectImpl<ITestComponentInterface> {
public:
    explicit Service(KFRIFactoryAccess& access) : m_provider(access.getServiceProvider())
    {
        KFR::Framework::getServiceManagerInterface()->trackInstance(getInstanceID(),
                                                                    kTestComponentService);
    }

    KFRIService lookUp(std::string const& name) override
    {
        KFRResult unread;
        return m_provider->getService(name, "#=vrn_orlo_test_Component_ServiceTable", unread);
    }

private:
    KFRSmartPointer<KFRIServiceProviderInterface> m_provider;
};

class Factory final : public KFR::Framework::KFRFactory {
public:
    explicit Factory(KFRSmartPointer<KFRIServicePublisherInterface> const& publisher)
        : KFRFactory(publisher, kTestComponentService, true, "", "", "00;")
    {
    }
    std::string getProperty(std::string const&) override { return {}; }

protected:
    KFRIServiceInterface* create(KFRIFactoryAccess& access) override { return new Service(access); }
};

}  // namespace
}  // namespace vrn::orlo::host::kernel

#define COMPONENT_ENTRY extern "C" __attribute__((visibility("default")))

COMPONENT_ENTRY std::string KFR_Comp_Info(std::string key)
{
    if (key == "*") {
        return "KernelMajorVersion,Name,MinorVersion";
    }
    if (key == "KernelMajorVersion") {
        return TESTCOMPONENT_KERNEL_MAJOR;
    }
    if (key == "Name") {
        return TESTCOMPONENT_NAME;
    }
    return key == "VersionNumbers" ? ",,24,8" : "";
}

COMPONENT_ENTRY void KFR_Get_ServiceVersionTable(KFRSequence<std::string>& table)
{
    table = {"one row"};
}

#ifndef TESTCOMPONENT_WITHOUT_INIT
COMPONENT_ENTRY int KFR_Comp_Init(KFRSmartPointer<KFRIServicePublisherInterface> publisher)
{
    new vrn::orlo::host::kernel::Factory(publisher);
    return TESTCOMPONENT_INIT_STATUS;
}
#endif
