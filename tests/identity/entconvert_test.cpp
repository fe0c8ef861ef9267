#include "plugins/modelingplugin/utilities/identity/entconvert.h"

#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::Entity;
using test::Ids;
using test::Ref;
using test::Refs;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Scope = test::ModelScope<test::PlatformScope>;

TEST(EntConvert, LeavesOutWhatDoesNotResolve)
{
    Scope scope;
    Entity const a = scope.make<test::PlainEntity>(1, 1);
    Entity const b = scope.make<test::PlainEntity>(1, 2);
    Refs const sequence{b->getEntityReference(), {{}, 1, 99, 0}, a->getEntityReference()};
    EntConvert::ConstList const list = KFR::make<test::FakeList>(true, sequence);
    EntConvert convert;
    EXPECT_EQ(convert.toEntRefSeq(list), sequence);
    EXPECT_THAT(convert.toEntRefSeq(EntConvert::ConstList()), IsEmpty());
    EXPECT_THAT(convert.toEntRefSeq({b, KFR::NULLSP}), ElementsAre(sequence[0], Ref()));
    EXPECT_THAT(convert.toEntities(sequence), ElementsAre(b, a));
    EXPECT_THAT(convert.toEntities(list), ElementsAre(b, a));
    for (auto const& made : {convert.toEntList(sequence), convert.toEntList(list),
                             convert.toEntList(appfw::IEntities{b, a})}) {
        appfw::IEntities listed;
        EXPECT_TRUE(made->getEntities(listed).isOk());
        EXPECT_THAT(listed, ElementsAre(b, a));
    }
    // The fake's list without an order of its own turns things round.
    EXPECT_EQ(convert.toEntRefSeq(convert.toOrderEntRefList(sequence)), sequence);
    EXPECT_THAT(convert.toEntRefSeq(convert.toEntRefList(appfw::IEntities{b, a})),
                ElementsAre(sequence[2], sequence[0]));
}

TEST(EntConvert, PacksIdsUnderTheReferenceOfTheirOwner)
{
    Scope scope;
    Entity const owner = scope.make<test::PlainEntity>(7, 8);
    auto const object = KFR::make<test::FakeObject>();
    object->lost.push_back(IEntityInterface::kfrInterfaceId());
    EntConvert convert;
    auto const containersOf = [&](KFRIService const& of, Ids const& ids) {
        appfw::IEntRefSequence containers;
        static_cast<void>(convert.toEntRefList(of, 5, ids, {9})->getContainers(containers));
        return containers;
    };
    EXPECT_THAT(containersOf(owner, {}), IsEmpty());
    EXPECT_THAT(containersOf({}, {1}), IsEmpty());
    EXPECT_THAT(containersOf(object, {1}), IsEmpty());
    auto const made = containersOf(owner, {1, 2});
    EXPECT_EQ(containersOf(owner, {3}), made);  // found again
    EXPECT_THAT(made, ElementsAre(scope.model->made.at(0)));
    scope.model->objectsEntity = owner;
    EXPECT_NE(containersOf(object, {4}), made);

    test::FakeContainer const& first = *scope.model->made[0];
    EXPECT_EQ(first.owner, (Ref{owner, 7, 8, 0}));
    EXPECT_EQ(first.emptyFlag, 1);
    EXPECT_THAT(first.ids, ElementsAre(std::pair(5u, Ids{1, 2, 3})));
    EXPECT_EQ(first.subIds, Ids{9});
    EXPECT_EQ(scope.model->made[1]->owner, (Ref{object, 7, 8, 0}));
}

TEST(EntConvert, TakesTheFirstIdOfAContainerForItsEntity)
{
    auto const container = KFR::make<test::FakeContainer>();
    container->owner = Ref{};
    EXPECT_THAT(EntConvert().toEntity({}), test::IsNullHandle());
    EXPECT_THAT(EntConvert().toEntity(container), test::IsNullHandle());
    container->ids = {{5, {}}, {6, {3, 4}}, {7, {5}}};
    EXPECT_EQ(EntConvert().toEntity(container)->getEntityReference(), (Ref{{}, 6, 3, 0}));
}

TEST(PluginHelper, ClimbsFromAnObjectToItsPart)
{
    auto const part = KFR::make<test::FakePart>();
    auto const face = KFR::make<test::FakeObject>();
    auto const body = KFR::make<test::FakeMeshBody>();
    EXPECT_THAT(PluginHelper::getPart(test::MeshBody(body)), test::IsNullHandle());
    EXPECT_THAT(PluginHelper::getPart(test::MeshBody()), test::IsNullHandle());
    body->parent = face;
    face->parent = part;
    EXPECT_THAT(PluginHelper::getPart(test::MeshBody(body)), test::IsObject(part));
    EXPECT_THAT(PluginHelper::getPart(test::Persistent(part)), test::IsObject(part));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
