// The service that the factory makes.

#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"
#include "platform/kfr/kfrkernelaccess.h"
#include "platform/modeling/modelingutilities.h"
#include "plugins/modelingplugin/utilities/componentframe/componententry.h"
#include "plugins/modelingplugin/utilities/componentframe/utilitiesserviceaccess.h"
#include "tests/support/fakepublisher.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using KFR::Framework::KFRIServiceAccess;
using KFR::Framework::KFRIServiceInfoInterface;
using KFR::Framework::KFRIWeakReferenceSupportInterface;
using KFR::Framework::Scripting::KFRITypeProviderInterface;
using test::FakePublisher;
using test::FakeServices;
using test::IsNullHandle;
using test::IsObject;
using test::LookUp;
using test::LookUpForm;
using ::testing::ElementsAre;

constexpr char const* kServiceName = "vrn.orlo.plugin.modeling.Utilities";

std::size_t trackedObjects()
{
    return KFR::Framework::getServiceManagerInterface()->getTrackedInstances().size();
}

class UtilitiesService : public ::testing::Test {
protected:
    UtilitiesService() { KFR_Comp_Init(m_publisher); }

    KFRIService make(char const* name = kServiceName)
    {
        return m_publisher->published.at(0).factory->getServiceInstance(name, m_framework,
                                                                        m_result);
    }

    test::PlatformScope m_platform;
    KFRSmartPointer<FakePublisher> m_publisher = KFR::make<FakePublisher>();
    /// Another one than the platform's, so that what the service hands over is told from what was
    /// there.
    KFRSmartPointer<FakeServices> m_framework = KFR::make<FakeServices>();
    KFRResult m_result;
};

TEST_F(UtilitiesService, IsMadeUnderItsNameOnly)
{
    KFRIService const service = make();
    EXPECT_TRUE(m_result.isOk());
    ASSERT_FALSE(service == KFR::NULLSP);
    EXPECT_EQ(service->getObjectName(), "vrn.orlo.plugin.modeling.Utilities:Utilities");
    EXPECT_THAT(make("vrn.orlo.plugin.modeling.utilities"), IsNullHandle());
    EXPECT_EQ(m_result.getCode(), KFR::notDone);
    EXPECT_FALSE(make() ==
                 service);  // the factory makes; that there is one is the framework's doing
}

TEST_F(UtilitiesService, HandsTheProviderToOneHelperAndTheAccessToTheOther)
{
    EXPECT_THAT(ServiceHelper::getServiceProvider(), IsNullHandle());
    KFRIService const wanted = m_framework->putStranger("wanted");
    KFRIService const service = make();

    EXPECT_THAT(ServiceHelper::getServiceProvider(), IsObject(KFRIService(m_framework)));
    EXPECT_EQ(ServiceHelper::getServiceProvider().typeCode(), KFRIServiceAccess::kfrTypeCode());
    EXPECT_THAT(ServiceProviderHelper::getService("wanted", "a=b"), IsObject(wanted));
    EXPECT_THAT(m_framework->takeLookUps(),
                ElementsAre(LookUp{LookUpForm::nameParametersResult, "wanted", "a=b"}));
    // The look-ups by name go on through the holder of the other library.
    EXPECT_THAT(ServiceHelper::getServiceByName("wanted"), IsNullHandle());
    EXPECT_THAT(m_framework->takeLookUps(), ElementsAre());
    m_framework->clear();
}

TEST_F(UtilitiesService, IsMadeWithoutAProviderToo)
{
    KFRIService const service =
        m_publisher->published.at(0).factory->getServiceInstance(kServiceName, {}, m_result);
    EXPECT_FALSE(service == KFR::NULLSP);
    EXPECT_THAT(ServiceHelper::getServiceProvider(), IsNullHandle());
    m_platform.services().putStranger("kept");
    EXPECT_FALSE(ServiceProviderHelper::getService("kept", "") == KFR::NULLSP);
}

template <class I>
KFRIServiceInterface* rootThrough(void* view)
{
    return static_cast<I*>(view);
}

// clang-format off
struct {
    char const* name;
    KFRUUID id;
    KFRIServiceInterface* (*root)(void*);
} const kViewCases[] = {
    {"TheObjectItself", {0x1ddf3037966e36f3, 0xa7ffd8e54160cbd8}, &rootThrough<KFRIUtilitiesServiceAccess>},
    {"TypeProvider",    {0x483bee7ad9913217, 0x9d654bdc4d7dfae8}, &rootThrough<KFRITypeProviderInterface>},
    {"ServiceInfo",     {0xae89535be7c13f9e, 0x8bc4dba870482a04}, &rootThrough<KFRIServiceInfoInterface>},
    {"TypedName",       {0x2446605f161730c1, 0x8e40f8b0433fc39e}, &rootThrough<KFRIModelingUtilitiesInterface>},
    // Those of the framework's base.
    {"Root",            KFRIServiceInterface::kfrInterfaceId(),              &rootThrough<KFRIServiceInterface>},
    {"ServiceAccess",   KFRIServiceAccess::kfrInterfaceId(),                 &rootThrough<KFRIServiceAccess>},
    {"WeakReferences",  KFRIWeakReferenceSupportInterface::kfrInterfaceId(), &rootThrough<KFRIWeakReferenceSupportInterface>},
};
// clang-format on

TEST_F(UtilitiesService, GivesEveryViewWithAReferenceAdded)
{
    KFRIService const service = make();
    KFRSmartPointer<KFRIServiceAccess> const access(service);
    for (auto const& row : kViewCases) {
        SCOPED_TRACE(row.name);
        void* view = nullptr;
        ASSERT_EQ(service->getInterface(row.id, &view), 0);
        KFRIServiceInterface* const root = row.root(view);
        EXPECT_EQ(root->getInstanceID(), service->getInstanceID());
        EXPECT_EQ(root->getObjectName(), "vrn.orlo.plugin.modeling.Utilities:Utilities");
        EXPECT_EQ(access->compareReferenceCount(3), 0);
        void* holder = view;
        root->releaseReference(&holder);
        EXPECT_EQ(holder, nullptr);
        EXPECT_EQ(access->compareReferenceCount(3), -1);
    }
}

TEST_F(UtilitiesService, LeavesUnknownIdentifiersToTheBaseWhichRefusesThem)
{
    KFRIService const service = make();
    int mark = 0;
    void* view = &mark;
    // The words of known ones, mixed up.
    for (KFRUUID const id : {KFRUUID{1, 2}, KFRUUID{0x1ddf3037966e36f3, 0x9d654bdc4d7dfae8},
                             KFRUUID{0xa7ffd8e54160cbd8, 0x1ddf3037966e36f3}, KFRUUID{}}) {
        EXPECT_EQ(service->getInterface(id, &view), 1);
        EXPECT_EQ(view, &mark);
    }
    EXPECT_THAT(KFR::loose_cast<test::IStrangerInterface>(service), IsNullHandle());
}

TEST_F(UtilitiesService, GoesWithTheLastReferenceThroughWhateverView)
{
    std::size_t const before = trackedObjects();
    KFRIService service = make();
    EXPECT_EQ(trackedObjects(), before + 1);
    auto access = KFRSmartPointer<KFRIServiceAccess>(service);
    auto own = KFRSmartPointer<KFRIUtilitiesServiceAccess>(service);
    auto types = KFRSmartPointer<KFRITypeProviderInterface>(service);
    auto info = KFRSmartPointer<KFRIServiceInfoInterface>(service);
    auto named = KFRSmartPointer<KFRIModelingUtilitiesInterface>(service);
    EXPECT_EQ(access->compareReferenceCount(0), 6);
    auto const weak =
        KFRSmartPointer<KFRIWeakReferenceSupportInterface>(service)->getWeakReference();
    EXPECT_EQ(access->compareReferenceCount(0), 6);
    EXPECT_TRUE(weak->lock() == service);

    service.release();
    own.release();
    types.release();
    access.release();
    named.release();
    EXPECT_TRUE(weak->lock() == info);
    EXPECT_EQ(trackedObjects(), before + 1);
    info.release();
    EXPECT_THAT(weak->lock(), IsNullHandle());
    EXPECT_EQ(trackedObjects(), before);
}

TEST_F(UtilitiesService, NamesItsTypesInTheirOrder)
{
    KFRSequence<KFRTypeCode> types{KFRIServiceInfoInterface::kfrTypeCode()};
    KFRSmartPointer<KFRITypeProviderInterface> const provider(make());
    EXPECT_TRUE(provider->getTypes(types).isOk());
    std::vector<std::string> names;
    for (KFRTypeCode const type : types) {
        names.emplace_back(type.name());
    }
    EXPECT_THAT(
        names, ElementsAre("vrn.orlo.plugin.modeling.KFRIUtilitiesServiceAccess", "KFR.KFRIService",
                           "vrn.orlo.plugin.modeling.KFRIModelingUtilities"));
    EXPECT_STREQ(KFRITypeProviderInterface::kfrTypeName(),
                 "KFR.Framework.Scripting.KFRITypeProvider");
}

TEST_F(UtilitiesService, AnswersEachInformationQueryFromTheBlock)
{
    struct Query {
        char const* key;
        KFRResult (KFRIServiceInfoInterface::*ask)(std::string&);
    };
    using Info = KFRIServiceInfoInterface;
    KFRSmartPointer<Info> const info(make());
    for (Query const& query :
         {Query{"MajorVersion", &Info::getMajorVersion},
          Query{"MinorVersion", &Info::getMinorVersion},
          Query{"BuildNumber", &Info::getBuildNumber},
          Query{"KernelMajorVersion", &Info::getKernelMajorVersion},
          Query{"KernelMinorVersion", &Info::getKernelMinorVersion},
          Query{"BuildDate", &Info::getBuildDate}, Query{"BuildTime", &Info::getBuildTime},
          Query{"Platform", &Info::getPlatform}, Query{"Name", &Info::getName}}) {
        SCOPED_TRACE(query.key);
        std::string fixed = "before";
        std::string general = "before";
        EXPECT_TRUE((info.get()->*query.ask)(fixed).isOk());
        EXPECT_TRUE(info->getInfo(query.key, general).isOk());
        EXPECT_EQ(fixed, KFR_Comp_Info(query.key));
        EXPECT_EQ(general, fixed);
    }
    std::string value = "before";
    EXPECT_TRUE(info->getInfo("*", value).isOk());
    EXPECT_EQ(value, KFR_Comp_Info("*"));
    EXPECT_TRUE(info->getInfo("Unknown", value).isOk());
    EXPECT_EQ(value, "");
}

TEST_F(UtilitiesService, AddsItsServiceTableToEveryParameterTextButNotToALookUpWithoutOne)
{
    KFRIService const wanted = m_framework->putStranger("wanted");
    KFRSmartPointer<KFRIServiceAccess> const access(make());
    std::string const table = "vrn_orlo_plugin_modeling_ModelingPluginUtilities_ServiceTable";
    for (std::string const& text :
         std::vector<std::string>{"", "a=b", "a=b,c=d", ",", " ", "#=" + table}) {
        SCOPED_TRACE(text);
        std::string const decorated = text.empty() ? "#=" + table : text + ",serviceTable=" + table;
        KFRResult result;
        EXPECT_THAT(access->getService("wanted", text, result), IsObject(wanted));
        EXPECT_TRUE(result.isOk());
        EXPECT_THAT(access->getService("wanted", text), IsObject(wanted));
        LookUp const expected{LookUpForm::nameParametersResult, "wanted", decorated};
        EXPECT_THAT(m_framework->takeLookUps(), ElementsAre(expected, expected));
    }
    KFRResult result;
    EXPECT_THAT(access->getService("missing", result), IsNullHandle());
    EXPECT_EQ(result.getCode(), KFR::notDone);
    EXPECT_EQ(m_framework->takeLookUps().at(0).parameters, "");
    try {
        static_cast<void>(access->getService("missing", ""));
        ADD_FAILURE() << "nothing thrown";
    } catch (KFRException const& thrown) {
        EXPECT_EQ(thrown.getCode(), KFR::notDone);
        EXPECT_THAT(thrown.getText(), ::testing::HasSubstr("missing"));
    }
}

/// Finds nothing, and says more than that the service is unknown.
class RefusingProvider final : public KFRServiceObjectImpl<KFRIServiceProviderInterface> {
public:
    explicit RefusingProvider(int code) : m_code(code) {}
    KFRIService getService(std::string const&, std::string const&, KFRResult& result) override
    {
        result = KFRResult(m_code);
        return {};
    }

private:
    int m_code;
};

TEST_F(UtilitiesService, ForwardsTheOtherOperationsToTheFramework)
{
    KFRIService const service = make();
    KFRSmartPointer<KFRIServiceAccess> const access(service);
    EXPECT_THAT(access->getKFRIService(), IsObject(service));
    EXPECT_TRUE(access->getKFRIServiceProvider() == KFRIService(m_framework));
    EXPECT_TRUE(access->getKFRIServicePublisher() == KFRIService(m_publisher));
    EXPECT_TRUE(access->getKFRIServiceFactory() == m_publisher->published.at(0).factory);
    EXPECT_THAT(access->getHeldReference(), IsObject(KFRIService(m_framework)));

    auto const second = KFR::make<FakeServices>();
    KFRIService const wanted = second->putStranger("of the second");
    EXPECT_FALSE(access->addNewProvider({}).isOk());
    EXPECT_TRUE(access->addNewProvider(second).isOk());
    KFRResult result;
    EXPECT_THAT(access->getService("of the second", result), IsObject(wanted));
    EXPECT_TRUE(access->addNewProvider(KFR::make<RefusingProvider>(42)).isOk());
    EXPECT_TRUE(access->addNewProvider(KFR::make<RefusingProvider>(43)).isOk());
    EXPECT_THAT(access->getService("of nobody", result), IsNullHandle());
    EXPECT_EQ(result.getCode(), 42);  // the first that says more than "unknown"
    EXPECT_TRUE(access->getKFRIServiceProvider() == KFRIService(m_framework));

    access->trackObject();
    KFRSequence<std::string> const tracked =
        KFR::Framework::getServiceManagerInterface()->getTrackedInstances();
    EXPECT_THAT(tracked, ::testing::Contains("vrn.orlo.plugin.modeling.Utilities:Utilities"));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
