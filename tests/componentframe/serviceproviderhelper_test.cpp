#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"

#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::appfw {
namespace {

using plugin::modeling::test::FakeServices;
using plugin::modeling::test::IsNullHandle;
using plugin::modeling::test::IsObject;
using plugin::modeling::test::LookUp;
using plugin::modeling::test::LookUpForm;
using plugin::modeling::test::PlatformScope;
using ::testing::ElementsAre;

TEST(ServiceProviderHelper, AsksTheProviderAfreshEveryTimeAndGivesItsResult)
{
    PlatformScope platform;
    KFRIService const wanted = platform.services().putStranger("wanted");
    EXPECT_THAT(ServiceProviderHelper::getService("wanted", "a=b"), IsObject(wanted));
    KFRResult result;
    EXPECT_THAT(ServiceProviderHelper::getService("wanted", result), IsObject(wanted));
    EXPECT_TRUE(result.isOk());
    EXPECT_THAT(platform.services().lookUps(),
                ElementsAre(LookUp{LookUpForm::nameParametersResult, "wanted", "a=b"},
                            LookUp{LookUpForm::nameParametersResult, "wanted", ""}));
    EXPECT_THAT(ServiceProviderHelper::getService("missing", result), IsNullHandle());
    EXPECT_EQ(result.getCode(), KFR::notDone);
    EXPECT_THAT(ServiceProviderHelper::getService("missing", ""), IsNullHandle());
}

TEST(ServiceProviderHelper, KeepsItsProviderAgainstANullOneAndReleasesItForAnother)
{
    PlatformScope platform;
    auto const first = KFR::make<FakeServices>();
    KFRIService const wanted = first->putStranger("wanted");
    EXPECT_TRUE(ServiceProviderHelper::setServiceProvider(first).isOk());
    EXPECT_EQ(first->referenceCount(), 2);
    EXPECT_EQ(ServiceProviderHelper::setServiceProvider({}).getCode(), 0x7FFFFFFF);
    EXPECT_THAT(ServiceProviderHelper::getService("wanted", ""), IsObject(wanted));

    EXPECT_TRUE(ServiceProviderHelper::setServiceProvider(KFR::make<FakeServices>()).isOk());
    EXPECT_EQ(first->referenceCount(), 1);
    EXPECT_THAT(ServiceProviderHelper::getService("wanted", ""), IsNullHandle());
}

#ifdef NDEBUG
TEST(ServiceProviderHelper, GivesNothingBeforeThereIsAProvider)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        KFRResult result(KFR::ok);
        EXPECT_THAT(ServiceProviderHelper::getService("wanted", result), IsNullHandle());
        EXPECT_EQ(result.getCode(), KFR::notDone);
        EXPECT_THAT(ServiceProviderHelper::getService("wanted", ""), IsNullHandle());
    });
}
#else
TEST(ServiceProviderHelper, StopsOnItsAssertionBeforeThereIsAProvider)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    KFRResult result;
    EXPECT_DEATH(ServiceProviderHelper::getService("wanted", ""), "m_kfrServiceProvider != NULLSP");
    EXPECT_DEATH(ServiceProviderHelper::getService("wanted", result),
                 "m_kfrServiceProvider != NULLSP");
}
#endif

}  // namespace
}  // namespace vrn::orlo::appfw
