// Ids of new nodes and of points.

#include "platform/kfr/kfrexception.h"
#include "platform/servicecaches/servicecacheappframe.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "tests/support/appframefakes.h"
#include "tests/support/meshfakes.h"

#include <gmock/gmock.h>

namespace vrn::orlo::plugin::modeling::test {
namespace {

/// Node ids 77 and up are free, and so is 5.
struct FakeEOMMeshPart final : ObjectOf<KFR::EOM::IEOMMeshPartInterface> {
    HANDS_OUT(getNextAvaialbleNodeID, LongId, next, 77)
    KFRResult isNodeIdFree(LongId id, bool& isFree) override { return isFree = id == 5, KFR::ok; }
};
/// A part or an assembly.
template <class I>
struct FakeMeshOwner final : ObjectOf<I> {
    EOMObject named;
    HANDS_OUT(getMeshParts, KFR::EOM::IEOMMeshPartSequence, meshParts, std::in_place)
    KFRResult getChild(std::string const& name, EOMObject& out) override
    {
        return out = name == "MeshPart" ? named : out, KFR::ok;
    }
};
struct FakeEOMInstance final : KFRServiceObjectImpl<silent::EOMInstanceView> {
    HANDS_OUT(getReferenceObject, EOMObject, placed)
};
struct FakeNumberedModel final : KFRServiceObjectImpl<silent::ModelView> {
    HANDS_OUT(getNextAvaialbleNodeID, LongId, next, 1234)
};

template <class I>
EOMObject ownerOf(SP<FakeEOMMeshPart> const& listed, SP<FakeEOMMeshPart> const& named)
{
    auto const owner = KFR::make<FakeMeshOwner<I>>();
    if (listed != KFR::NULLSP) {
        owner->meshParts = {listed};
    }
    owner->named = named;
    return owner;
}

TEST(MeshHelper, AsksTheMeshPartOfAnInstanceForFreeNodeIds)
{
    PlatformScope scope;
    using Part = silent::EOMPartView;
    using Assembly = KFR::EOM::IEOMAssemblyInterface;
    auto const other = KFR::make<FakeEOMMeshPart>();
    auto const right = KFR::make<FakeEOMMeshPart>();
    other->next = 99;
    struct {
        EOMObject placed;
        bool isFound;
    } const rows[] = {{ownerOf<Part>(right, other), true},
                      {ownerOf<Part>({}, right), true},
                      {ownerOf<Assembly>(right, other), true},
                      {ownerOf<Assembly>({}, right), true},
                      {right, true},
                      {ownerOf<Part>({}, {}), false},
                      {KFR::make<FakeObject>(), false},
                      {{}, false}};
    for (auto const& row : rows) {
        SCOPED_TRACE(&row - rows);
        auto const instance = KFR::make<FakeEOMInstance>();
        instance->placed = row.placed;
        int const code = row.isFound ? KFR::ok : KFR::notDone;
        LongId next = 1, wanted = 1, taken = 1;
        EXPECT_EQ(MeshHelper::getNextAvailableNodeId(instance, next).getCode(), code);
        EXPECT_EQ(MeshHelper::getNextAvailableNodeId(instance, 5, wanted).getCode(), code);
        EXPECT_EQ(MeshHelper::getNextAvailableNodeId(instance, 6, taken).getCode(), code);
        EXPECT_EQ(std::tuple(next, wanted, taken),
                  row.isFound ? std::tuple(77U, 5U, 77U) : std::tuple(1U, 1U, 1U));
    }
    LongId id = 1;
    EXPECT_FALSE(MeshHelper::getNextAvailableNodeId(id).isOk());  // no model
    auto const persistence = KFR::make<FakePFW>();
    auto const session = KFR::make<FakeSession>();
    persistence->session = session;
    session->currentModel = KFR::make<FakeNumberedModel>();
    appfw::ServiceCacheAppFrame::PFW_ = persistence;
    EXPECT_TRUE(MeshHelper::getNextAvailableNodeId(id).isOk());
    EXPECT_EQ(id, 1234U);
}

/// A point and its owner in one, which has given every id below 40.
struct FakePoint final
    : KFRServiceObjectImpl<KFR::EOM::IEOMPointInterface, KFR::EOM::IEOMPointOwnerInterface> {
    bool isOwned = true;
    std::vector<std::pair<int, LongId>> assigned;
    HANDS_OUT(getStoredNumber, int, number, 3)
    HANDS_OUT(getNextAvaialbleNodeID, LongId, next, 41)
    KFRResult getOwner(SP<IEOMPointOwnerInterface>& out) override
    {
        out = isOwned ? SP<IEOMPointOwnerInterface>(this) : out;
        return isOwned ? KFR::ok : KFR::notDone;
    }
    KFRResult assignNodeId(int number_, LongId id) override
    {
        if (id < 40) {
            throw KFRUserException(5, "taken");
        }
        return assigned.emplace_back(number_, id), KFR::ok;
    }
};

TEST(MeshHelper, GivesAPointItsIdUnlessThePlatformThrows)
{
    SP<KFR::EOM::IEOMPointInterface> nothing;
    EXPECT_NO_THROW(MeshHelper::setEOMPointId(nothing));
    auto const point = KFR::make<FakePoint>();
    SP<KFR::EOM::IEOMPointInterface> asked = point;
    point->isOwned = false;
    MeshHelper::setEOMPointId(asked);
    point->isOwned = true;
    point->next = 39;
    EXPECT_NO_THROW(MeshHelper::setEOMPointId(asked));
    EXPECT_EQ(asked, point);
    EXPECT_TRUE(point->assigned.empty());
    point->next = 41;
    MeshHelper::setEOMPointId(asked);
    EXPECT_THAT(point->assigned, ::testing::ElementsAre(std::pair(3, 41)));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
