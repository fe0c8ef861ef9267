#include "host/kernel/typeregistry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {
namespace {

icu::UnicodeString numbered(int number)
{
    return icu::UnicodeString::fromUTF8("Type" + std::to_string(number));
}

std::vector<unsigned int> idsOf(TypeRegistry& registry, int count)
{
    std::vector<unsigned int> ids;
    for (int i = 0; i < count; ++i) {
        ids.push_back(registry.getTypeId(numbered(i)));
    }
    return ids;
}

TEST(TypeRegistry, GivesEachNameOneIdThatLeadsBackToIt)
{
    auto const registry = KFR::make<TypeRegistry>();
    std::vector<unsigned int> const ids = idsOf(*registry, 5000);
    EXPECT_EQ(std::set<unsigned int>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_THAT(ids,
                ::testing::Each(::testing::AllOf(::testing::Ge(1U), ::testing::Le(0x7FFFFFFFU))));
    EXPECT_EQ(idsOf(*registry, 5000), ids);
    EXPECT_EQ(registry->getTypeName(ids[4321]), numbered(4321));
    EXPECT_TRUE(registry->getTypeName(0).isEmpty());
}

TEST(TypeRegistry, RepeatsItsIdsForOneSeedOnly)
{
    auto const ids = idsOf(*KFR::make<TypeRegistry>(7U), 20);
    EXPECT_EQ(idsOf(*KFR::make<TypeRegistry>(7U), 20), ids);
    EXPECT_NE(idsOf(*KFR::make<TypeRegistry>(8U), 20), ids);
    EXPECT_NE(idsOf(*KFR::make<TypeRegistry>(), 20), ids);
    EXPECT_NE(ids[1] - ids[0], ids[2] - ids[1]);
}

TEST(TypeRegistry, UnregisteredNameIsForgottenAndItsIdNotGivenAgain)
{
    auto const registry = KFR::make<TypeRegistry>();
    unsigned int const before = registry->getTypeId(u"Face");
    registry->unregisterType(u"Face");
    EXPECT_TRUE(registry->getTypeName(before).isEmpty());
    EXPECT_NE(registry->getTypeId(u"Face"), before);
    registry->unregisterType(u"Unknown");
}

TEST(TypeRegistry, GroupKeepsItsIdWhenItsMembersChange)
{
    auto const registry = KFR::make<TypeRegistry>();
    unsigned int const group = registry->getGroupTypeId(u"Region", {3U, 5U});
    EXPECT_THAT(registry->groupMembers(group), ::testing::ElementsAre(3U, 5U));
    EXPECT_EQ(registry->getGroupTypeId(u"Region", {5U}), group);
    EXPECT_THAT(registry->groupMembers(group), ::testing::ElementsAre(5U));
    EXPECT_EQ(registry->getTypeName(group), u"Region");
    EXPECT_THAT(registry->groupMembers(registry->getTypeId(u"Face")), ::testing::IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
