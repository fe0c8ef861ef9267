#include "plugins/modelingplugin/utilities/identity/eomcompare.h"
#include "plugins/modelingplugin/utilities/identity/groupkey.h"
#include "plugins/modelingplugin/utilities/identity/modelingentitycompare.h"
#include "tests/support/modelfakes.h"

#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using BaseEntity = SP<IBaseEntityInterface>;

struct Group final : EntityOf<IBaseEntityInterface> {
    HANDS_OUT(getName, icu::UnicodeString, name, u"Loads")
    HANDS_OUT(getParent, Entity, parent)
    HANDS_OUT(getFlag, bool, flag, true)
};

/// Each comes before the next, and only so.
template <class Compare, class T>
void expectOrder(std::vector<T> const& ordered)
{
    for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
        EXPECT_TRUE(Compare()(ordered[i], ordered[i + 1])) << i;
        EXPECT_FALSE(Compare()(ordered[i + 1], ordered[i])) << i;
        EXPECT_FALSE(Compare()(ordered[i], ordered[i])) << i;
    }
}

TEST(EntityCompare, AsksTheAdapterManagerWithTheEmptyReferenceForNull)
{
    ModelScope scope;
    Entity const entity = scope.make<PlainEntity>(9, 1);
    Entity const other = scope.make<PlainEntity>(1, 2);
    expectOrder<EntityHashCompare, Entity>({{}, other, entity});
    expectOrder<EntityHashCompare, Ref>({{}, {{}, 1, 2, 0}, {{}, 9, 1, 0}});
    EXPECT_EQ(EntityHashCompare()(entity), 0xFFFFFFFFFFFFFFFFULL);  // of -1
    EXPECT_EQ(EntityCompare().getByEntityReference({{}, 1, 2, 0}), other);
    EXPECT_TRUE(EntityCompare().equals(Entity(), Entity()));
    EXPECT_TRUE(EntityEquanPred(entity)(Ref{{}, 9, 1, 0}));
    EXPECT_FALSE(EntityEquanPred(Ref{{}, 9, 1, 0})(other));
}

TEST(ModelingEntityCompare, GoesByNumberThenTypeAndLeavesTheOwnerOut)
{
    ModelScope scope;
    using Compare = ModelingEntityCompare;
    auto const first = scope.make<Group>(9, 1);
    constexpr Word kBig = 0x80000000;
    expectOrder<Compare, Ref>({{{}, 9, 1, 5}, {{}, 1, 2, 4}, {{}, kBig, 2, 3}, {{}, 1, kBig, 2}});
    expectOrder<Compare, BaseEntity>({first, scope.make<Group>(1, 2)});
    EXPECT_TRUE(Compare().equals(Ref{first, 1, 2, 3}, Ref{{}, 1, 2, 4}));
    EXPECT_FALSE(Compare().equals(Ref{{}, 1, 2, 3}, Ref{{}, 2, 2, 3}));
    // Null is before, after and the same as nothing.
    EXPECT_FALSE(Compare()({}, BaseEntity(first)) || Compare()(BaseEntity(first), {}));
    EXPECT_FALSE(Compare().equals(Entity(), first) || Compare().equals(Entity(), Entity()));
    EXPECT_TRUE(ModelingEntityCompareEx(Entity(first))(Ref{{}, 9, 1, 7}));
    EXPECT_FALSE(ModelingEntityCompareEx(Entity())(Entity()));
}

TEST(EOMCompare, OrdersByGuidAndEquatesByTheObjectsOwnTest)
{
    ModelScope scope;
    auto const low = scope.make<FakeObject>(9, 9);
    auto const twin = scope.make<FakeObject>(1, 1);
    auto const high = scope.make<FakeObject>(1, 2);
    low->guid = twin->guid = {1, 0x8000000000000000ULL};
    high->guid = {0x8000000000000000ULL, 0};
    expectOrder<EOMCompare, EOMObject>({{}, low, high});
    expectOrder<GUIDCompare, CAE::GUIDDATA>({{1, 2}, low->guid, high->guid});
    EXPECT_FALSE(EOMCompare(low)(twin) || EOMCompare()(low, twin) || EOMCompare().equals({}, {}));
    EXPECT_TRUE(EOMCompare(low)(low) && GUIDEuqanPred(low->guid)(twin->guid));
    // An entity outside of the object model has GUID zero beside one inside, else its reference.
    Entity const outside = scope.make<PlainEntity>(5, 1);
    expectOrder<EntityW2Compare, Entity>({{}, outside, low, high});
    EntityW2Compare const w2;
    EXPECT_TRUE(w2.equal(outside, outside) && w2.equal(low, low));
    EXPECT_FALSE(w2.equal(low, twin) || w2.equal(outside, low) || w2.equal(low, outside));
}

TEST(GroupKey, GoesByKindThenFlagThenParent)
{
    ModelScope scope;
    Entity const a = scope.make<PlainEntity>(1, 2);
    Entity const b = scope.make<PlainEntity>(9, 1);
    expectOrder<std::less<>, GroupKey>(
        {{}, {0, a, false}, {1, a, true}, {1, b, true}, {1, a, false}, {0x80000000, a, true}});
    auto const group = scope.make<Group>(3, 3);
    group->parent = b;
    GroupKey2 const loads{BaseEntity(group)};
    // By code unit: the surrogates of U+1F600 come before U+FFFD.
    expectOrder<std::less<>, GroupKey2>({{u"Loads", a, true},
                                         loads,
                                         {u"Loads", a, false},
                                         {u"\U0001F600", b, false},
                                         {u"\uFFFD", a, true}});
    expectOrder<PivotValueCompare, appfw::PivotValue>({{-1, 5}, {1, -5}, {1, 5}});
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
