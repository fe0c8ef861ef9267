#include "platform/kfr/kfruuid.h"

#include "platform/appfw/appfw.h"
#include "platform/caedata/caedata.h"
#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"
#include "platform/sysutils/sysutils.h"
#include "platform/units/units.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace KFR {
namespace {

template <class... Is>
std::map<std::string, KFRUUID> namesOf()
{
    return {{Is::kfrTypeName(), Is::kfrInterfaceId()}...};
}

std::map<std::string, KFRUUID> namesOfThePlatform()
{
    using namespace Framework;
    return namesOf<KFRIServiceInterface, KFRIServiceProviderInterface,
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

TEST(KFRUUID, DiffersFromInterfaceToInterface)
{
    auto const names = namesOfThePlatform();
    EXPECT_EQ(names.size(), 22U);
    std::set<KFRUUID> ids;
    std::set<unsigned long long> highWords;
    std::set<unsigned long long> lowWords;
    for (auto const& [name, id] : names) {
        EXPECT_TRUE(ids.insert(id).second) << name;
        EXPECT_TRUE(highWords.insert(id.high).second) << name;
        EXPECT_TRUE(lowWords.insert(id.low).second) << name;
        EXPECT_NE(id.high, id.low) << name;
    }
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
