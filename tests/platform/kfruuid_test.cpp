#include "platform/kfr/kfruuid.h"

#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"

#include <gtest/gtest.h>

#include <set>

namespace KFR {
namespace {

template <class... Is>
void expectToDiffer()
{
    EXPECT_EQ((std::set<unsigned long long>{Is::kfrInterfaceId().high...}).size(), sizeof...(Is));
    EXPECT_EQ((std::set<unsigned long long>{Is::kfrInterfaceId().low...}).size(), sizeof...(Is));
}

TEST(KFRUUID, DiffersFromInterfaceToInterface)
{
    using namespace Framework;
    expectToDiffer<KFRIServiceInterface, KFRIServiceProviderInterface,
                   KFRIServicePublisherInterface, KFRIServiceFactoryInterface, KFRIServiceAccess,
                   KFRIServiceInfoInterface, Scripting::KFRITypeProviderInterface,
                   KFRIWeakReferenceInterface, KFRIWeakReferenceSupportInterface,
                   KFRILoggerInterface, KFRIServiceManagerInterface, KFRIKernelAccessInterface,
                   KFRIEventListenerInterface, KFRIEventManagerInterface,
                   KFRIConfigurationInterface, KFRIConfigurationManagerInterface,
                   CAE::IModelInterface, CAE::IPartInterface, CAE::IPFWInterface,
                   CAE::IPersistenceSessionInterface, CAE::IEntityReferenceListFactoryInterface,
                   Services::TypeRegistry::ITypeRegistryInterface>();
}

TEST(KFRUUID, OfANameDependsOnEveryCharacter)
{
    static_assert(KFRUUID::ofName("KFR.A") == KFRUUID::ofName("KFR.A"));
    EXPECT_NE(KFRUUID::ofName("KFR.A"), KFRUUID::ofName("KFR.B"));
    EXPECT_NE(KFRUUID::ofName("KFR.A"), KFRUUID::ofName("KFR.AA"));
    EXPECT_NE(KFRUUID::ofName("AB"), KFRUUID::ofName("BA"));
    EXPECT_NE(KFRUUID::ofName(""), KFRUUID{});
    // A component that was compiled against an older header asks with the value of then.
    EXPECT_EQ(KFRUUID::ofName("KFR.A").high, 0x3526cff11ddeba9fULL);
}

TEST(KFRUUID, OrdersByTheHighWordFirstWithoutSign)
{
    KFRUUID const ascending[] = {{0, 0}, {0, ~0ULL}, {1, 0}, {1, 1}, {~0ULL, 0}};
    for (auto const& left : ascending) {
        for (auto const& right : ascending) {
            EXPECT_EQ(left < right, &left < &right);
            EXPECT_EQ(left == right, &left == &right);
        }
    }
}

TEST(KFRTypeCode, ComparesByIdentifierAndNotByRecord)
{
    static constexpr KFRTypeCodeRecord other("another name",
                                             KFRIServiceInterface::kfrInterfaceId());
    EXPECT_EQ(KFRTypeCode(other), KFRIServiceInterface::kfrTypeCode());
    EXPECT_NE(Framework::KFRILoggerInterface::kfrTypeCode(), KFRIServiceInterface::kfrTypeCode());
    EXPECT_TRUE(KFRTypeCode().isNull());
    EXPECT_STREQ(KFRTypeCode().name(), "");
    EXPECT_STREQ(KFRIServiceInterface::kfrTypeCode().name(), "KFR.KFRIService");
}

}  // namespace
}  // namespace KFR
