#include "plugins/modelingplugin/utilities/identity/entconvert.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"

#include <gmock/gmock.h>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::testing::ElementsAre;

TEST(EntConvert, LeavesOutWhatDoesNotResolve)
{
    ModelScope scope;
    Entity const a = scope.make<PlainEntity>(1, 1);
    Entity const b = scope.make<PlainEntity>(1, 2);
    Refs const refs{b->getEntityReference(), {{}, 1, 99, 0}, a->getEntityReference()};
    EntConvert convert;
    EXPECT_TRUE(convert.toEntRefSeq(EntConvert::ConstList()).empty());
    EXPECT_THAT(convert.toEntRefSeq({b, KFR::NULLSP}), ElementsAre(refs[0], Ref()));
    EXPECT_THAT(convert.toEntities(KFR::make<FakeList>(refs)), ElementsAre(b, a));
    EXPECT_EQ(convert.toEntRefSeq(convert.toEntRefList(refs)), refs);
    Refs const ordered = convert.toEntRefSeq(convert.toOrderEntRefList(refs));
    EXPECT_THAT(ordered, ElementsAre(Ref(), refs[0], refs[1], refs[2]));
}

TEST(EntConvert, PacksIdsUnderTheReferenceOfTheirOwner)
{
    ModelScope scope;
    Entity const owner = scope.make<PlainEntity>(7, 8);
    auto const object = KFR::make<FakeObject>();
    object->lost = IEntityInterface::kfrInterfaceId();
    auto const pack = [](KFRIService const& of, Ids const& ids) {
        appfw::IEntRefSequence containers;
        static_cast<void>(EntConvert().toEntRefList(of, 5, ids, {9})->getContainers(containers));
        return containers;
    };
    EXPECT_TRUE(pack(owner, {}).empty() && pack({}, {1}).empty() && pack(object, {1}).empty());
    auto const packed = pack(owner, {1, 2});
    EXPECT_EQ(pack(owner, {3}), packed);  // found again
    FakeContainer const& container = *scope.model->made.at(0);
    EXPECT_EQ(container.owner, (Ref{owner, 7, 8, 0}));
    EXPECT_EQ(container.emptyFlag, 1);
    EXPECT_THAT(container.ids, ElementsAre(std::pair(5u, Ids{1, 2, 3})));
    EXPECT_EQ(container.subIds, Ids{9});
    scope.model->objectsEntity = owner;
    EXPECT_EQ(pack(object, {4}).size(), 1u);
    EXPECT_EQ(scope.model->made.back()->owner, (Ref{object, 7, 8, 0}));
}

TEST(EntConvert, TakesTheFirstIdOfAContainerForItsEntity)
{
    auto const container = KFR::make<FakeContainer>();
    container->ids[5] = {};
    EXPECT_THAT(EntConvert().toEntity(container), IsNullHandle());
    container->ids[6] = {3, 4};
    container->entities[3] = KFR::make<PlainEntity>();
    EXPECT_EQ(EntConvert().toEntity(container), container->entities[3]);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
