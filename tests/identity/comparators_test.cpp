// The senses in which entities are the same, and the orders that go with them.

#include "plugins/modelingplugin/utilities/identity/eomcompare.h"
#include "plugins/modelingplugin/utilities/identity/groupkey.h"
#include "plugins/modelingplugin/utilities/identity/modelingentitycompare.h"

#include "tests/support/appframefakes.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::Entity;
using test::Ref;
using Scope = test::ModelScope<test::PlatformScope>;

Entity const kNull;

/// A strict order: the left one comes first, and only so.
template <class Compare, class T>
void expectBefore(Compare const& lessThan, T const& left, T const& right)
{
    EXPECT_TRUE(lessThan(left, right));
    EXPECT_FALSE(lessThan(right, left));
    EXPECT_FALSE(lessThan(left, left));
}

class Group final : public test::EntityOf<IBaseEntityInterface> {
public:
    HANDS_OUT(getName, icu::UnicodeString, name)
    HANDS_OUT(getParent, Entity, parent)
    HANDS_OUT(getFlag, bool, flag)
};

TEST(EntityCompare, AsksTheAdapterManagerWithTheEmptyReferenceForNull)
{
    Scope scope;
    Entity const entity = scope.make<test::PlainEntity>(9, 1);
    Entity const other = scope.make<test::PlainEntity>(1, 2);
    EntityCompare const compare;
    expectBefore([&](auto const& a, auto const& b) { return compare.lessThan(a, b); }, other,
                 entity);
    expectBefore(EntityHashCompare(), kNull, other);
    expectBefore(EntityHashCompare(), other->getEntityReference(), entity->getEntityReference());
    EXPECT_TRUE(compare.equals(kNull, kNull));
    EXPECT_FALSE(compare.equals(kNull, entity));
    EXPECT_EQ(compare.getByEntityReference({.service = {}, .typeId = 1, .id = 2}), other);
    EXPECT_EQ(compare.hashCode(entity), -1);
    EXPECT_EQ(EntityHashCompare()(entity), 0xFFFFFFFFFFFFFFFFULL);

    EXPECT_TRUE(EntityEquanPred(entity)(entity->getEntityReference()));
    EXPECT_TRUE(EntityEquanPred(entity->getEntityReference())(entity));
    EXPECT_FALSE(EntityEquanPred(entity)(other));
    EXPECT_TRUE(EntityEquanPred(kNull)(Ref()));
}

TEST(EntityCompare, WantsARootManagerThatIsTheAdapterManagerAsWell)
{
    Scope scope;
    ServiceCacheModelingPlugin::rootManager_ = KFR::make<test::FakeRootManager>();
    EXPECT_THAT([] { EntityCompare(); },
                ::testing::Throws<KFRSystemException>(
                    test::IsMissingInterface("vrn.orlo.appfw.IInterfaceAdapterManager")));
    ServiceCacheModelingPlugin::rootManager_ = scope.model;
    EXPECT_TRUE(EntityCompare().equals(Ref(), Ref()));
}

TEST(ModelingEntityCompare, GoesByNumberThenTypeAndLeavesTheOwnerOut)
{
    ModelingEntityCompare const compare;
    auto const owner = KFR::make<test::PlainEntity>();
    expectBefore(compare, Ref{{}, 9, 1, 0}, Ref{{}, 1, 2, 0});
    expectBefore(compare, Ref{{}, 1, 0x7FFFFFFF, 0}, Ref{{}, 1, 0x80000000, 0});
    expectBefore(compare, Ref{{}, 1, 1, 5}, Ref{{}, 0x80000000, 1, 0});
    EXPECT_TRUE(compare.equals(Ref{owner, 1, 2, 3}, Ref{{}, 1, 2, 4}));
    EXPECT_FALSE(compare.equals(Ref{owner, 1, 2, 3}, Ref{owner, 1, 3, 3}));
    EXPECT_FALSE(compare.equals(Ref{owner, 1, 2, 3}, Ref{owner, 2, 2, 3}));
}

TEST(ModelingEntityCompare, TakesANullEntityForNothing)
{
    Scope scope;
    auto const first = scope.make<Group>(9, 1);
    KFRSmartPointer<IBaseEntityInterface> const group = first;
    ModelingEntityCompare const compare;
    expectBefore(compare, group, {scope.make<Group>(1, 2)});
    EXPECT_FALSE(compare(KFR::NULLSP, group) || compare(group, KFR::NULLSP));
    EXPECT_TRUE(compare.equals(Entity(first), Entity(first)));
    EXPECT_FALSE(compare.equals(kNull, first) || compare.equals(first, kNull));
    EXPECT_FALSE(compare.equals(kNull, kNull));

    EXPECT_TRUE(ModelingEntityCompareEx(Entity(first))(Ref{first, 9, 1, 7}));
    EXPECT_TRUE(ModelingEntityCompareEx(Ref{{}, 9, 1, 0})(Entity(first)));
    EXPECT_TRUE(ModelingEntityCompareEx(kNull)(Ref()));
    EXPECT_FALSE(ModelingEntityCompareEx(kNull)(kNull));
}

TEST(EOMCompare, OrdersByGuidAndEquatesByTheObjectsOwnTest)
{
    Scope scope;
    auto const low = scope.make<test::FakeObject>(9, 9);
    auto const twin = scope.make<test::FakeObject>(1, 1);
    auto const high = scope.make<test::FakeObject>(1, 2);
    low->guid = twin->guid = {1, 0x8000000000000000ULL};
    high->guid = {0x8000000000000000ULL, 0};
    using Object = EOMCompare::Object;
    EOMCompare const compare;
    expectBefore(compare, Object(low), Object(high));
    expectBefore(compare, Object(), Object(low));
    EXPECT_FALSE(compare(low, twin) || compare.equals(low, twin));
    EXPECT_TRUE(EOMCompare(low)(low));
    EXPECT_FALSE(compare.equals({}, {}) || compare({}) || compare.equals(low, {}));
    expectBefore(GUIDCompare(), CAE::GUIDDATA{1, 2}, low->guid);
    EXPECT_TRUE(GUIDEuqanPred(low->guid)(twin->guid));
    EXPECT_FALSE(GUIDEuqanPred({1, 2})({1, 3}) || GUIDCompare().equal({1, 2}, {2, 2}));

    // Entities outside of the object model stand with GUID zero beside those inside.
    Entity const outside = scope.make<test::PlainEntity>(5, 1);
    expectBefore(EntityW2Compare(), outside, Entity(low));
    expectBefore(EntityW2Compare(), Entity(low), Entity(high));
    expectBefore(EntityW2Compare(), kNull, outside);  // neither is inside: by reference
    EXPECT_TRUE(EntityW2Compare().equal(outside, outside));
    EXPECT_TRUE(EntityW2Compare().equal(low, low));
    EXPECT_FALSE(EntityW2Compare().equal(low, twin) || EntityW2Compare().equal(outside, low));
    EXPECT_FALSE(EntityW2Compare().equal(low, outside));
}

TEST(GroupKey, GoesByKindThenFlagThenParent)
{
    Scope scope;
    Entity const first = scope.make<test::PlainEntity>(1, 2);
    Entity const second = scope.make<test::PlainEntity>(9, 1);
    std::less<> const less;
    expectBefore(less, GroupKey(1, second, false), GroupKey(0x80000000, first, true));
    expectBefore(less, GroupKey(1, second, true), GroupKey(1, first, false));
    expectBefore(less, GroupKey(1, first, true), GroupKey(1, second, true));
    expectBefore(less, GroupKey(), GroupKey(0, first, false));
    // By code unit: the surrogates of U+1F600 come before U+FFFD.
    expectBefore(less, GroupKey2(u"Z", second, false), GroupKey2(u"a", first, true));
    expectBefore(less, GroupKey2(u"\U0001F600", second, false), GroupKey2(u"\uFFFD", first, true));
    expectBefore(less, GroupKey2(u"a", second, true), GroupKey2(u"a", first, false));

    auto const group = scope.make<Group>(3, 3);
    group->name = u"Loads";
    group->flag = true;
    EXPECT_EQ(GroupKey2(KFRSmartPointer<IBaseEntityInterface>(group)).parent, Ref());
    group->parent = first;
    GroupKey2 const key{KFRSmartPointer<IBaseEntityInterface>(group)};
    EXPECT_TRUE(key.name == u"Loads" && key.flag && key.parent == first->getEntityReference());
}

TEST(PivotValueCompare, IsSigned)
{
    expectBefore(PivotValueCompare(), appfw::PivotValue{-1, 5}, appfw::PivotValue{1, -5});
    expectBefore(PivotValueCompare(), appfw::PivotValue{1, -5}, appfw::PivotValue{1, 5});
    EXPECT_FALSE(PivotValueCompare().equal({1, 2}, {1, 3}) ||
                 PivotValueCompare().equal({1, 2}, {2, 2}));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
