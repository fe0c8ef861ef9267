#include "host/kernel/kernel.h"

#include "host/kernel/servicename.h"
#include "host/kernel/testcomponent.h"
#include "host/kernel/testservices.h"

#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "platform/sysutils/sysutils.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vrn::orlo::host::kernel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Holder = plugin::modeling::ServiceCacheModelingPlugin;

KFRSmartPointer<ITestComponentInterface> testComponentService()
{
    return KFRSmartPointer<ITestComponentInterface>(
        Holder::kfrServiceAccess_->getService(kTestComponentService, ""));
}

TEST(Kernel, FillsTheHoldersAndEmptiesThemAtTheStop)
{
    Kernel kernel;
    EXPECT_TRUE(KFR::loose_cast<KFR::Util::SystemUtils::KFRIOSUtilsInterface>(Holder::fileUtils_));
    EXPECT_EQ(Holder::pathUtils_, Holder::fileUtils_);
    EXPECT_EQ(KFRIService(Holder::kfrServiceAccess_->getService("KFR.Services.TypeRegistry", "")),
              KFRIService(KFRSmartPointer<TypeRegistry>(&kernel.typeRegistry())));
    ASSERT_TRUE(KFR::Framework::getKernelAccessInterface());
    EXPECT_TRUE(KFR::Framework::getKernelAccessInterface()->getLogger());

    EXPECT_THAT(kernel.stop(), IsEmpty());
    EXPECT_EQ(Holder::fileUtils_, KFR::NULLSP);
    EXPECT_EQ(Holder::pathUtils_, KFR::NULLSP);
    EXPECT_EQ(Holder::kfrServiceAccess_, nullptr);
    EXPECT_EQ(KFR::Framework::getKernelAccessInterface(), KFR::NULLSP);
}

TEST(Kernel, IsAloneInItsProcess)
{
    {
        Kernel const first;
        EXPECT_THROW(Kernel(), std::logic_error);
    }
    EXPECT_NO_THROW(Kernel());
}

TEST(Kernel, LoadsAComponentOnceAndLetsItFindTheServicesOfTheHost)
{
    Kernel kernel;
    EXPECT_EQ(kernel.loadComponent(TESTFILE_COMPONENT).info("Name"), "vrn.orlo.test.Component");
    EXPECT_THAT(kernel.services().names(), Contains(kTestComponentService));
    auto const service = testComponentService();
    ASSERT_TRUE(service);
    EXPECT_EQ(service, testComponentService());
    EXPECT_TRUE(service->lookUp(serviceNameOf("getTypeRegistry")));
    EXPECT_FALSE(service->lookUp("nobody"));
    EXPECT_THROW(kernel.loadComponent(TESTFILE_COMPONENT), ComponentError);
    EXPECT_EQ(kernel.components().size(), 1U);
}

TEST(Kernel, NamesAndLogsTheTrackedObjectsThatOutliveTheStop)
{
    ::testing::internal::CaptureStderr();
    {
        Kernel kernel;
        kernel.loadComponent(TESTFILE_COMPONENT);
        auto const kept = testComponentService();
        EXPECT_THAT(kernel.stop(), ElementsAre(kTestComponentService));
        EXPECT_THAT(kernel.stop(), IsEmpty());
        EXPECT_THROW(kernel.loadComponent(TESTFILE_COMPONENT), ComponentError);
        EXPECT_FALSE(kept->lookUp(serviceNameOf("getTypeRegistry")));  // harmless, if in vain
    }
    EXPECT_THAT(::testing::internal::GetCapturedStderr(),
                HasSubstr("Still alive at the end: vrn.orlo.test.Component.Service"));
    EXPECT_THAT(Kernel().stop(), IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
