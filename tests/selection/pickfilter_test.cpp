// What the filter tells its managers. It keeps those that it finds first: a program of its own.

#include "plugins/modelingplugin/utilities/selection/selectfilter.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/appframefakes.h"
#include "tests/support/eventfakes.h"
#include "tests/support/silent.h"

#include <gmock/gmock.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using Ids = KFRSequence<unsigned int>;
using Kinds = KFRSequence<int>;
using Mode = ddm::SelectionChangeMode;
using Stage = std::string;
using ::testing::DoAll;
using ::testing::Return;
using ::testing::SetArgReferee;

constexpr int kOwner = 20130711;
constexpr unsigned int kMinus7 = 0U - 7;
constexpr unsigned int kMinus9 = 0U - 9;

struct Managers : KFRServiceObjectImpl<appfw::IPickFilterManagerInterface,
                                       test::silent::DisplayView, ddm::KFRIPickingSettingAdapter> {
    using Settings = KFRSmartPointer<ddm::KFRIPickingSettingAdapter>;
    KFRResult getPickingSettings(Settings& out) override { return out = Settings(this), KFR::ok; }
    MOCK_METHOD(KFRResult, getPickTargets, (Ids&), (override));
    MOCK_METHOD(KFRResult, getActiveTargets, (Ids&), (override));
    MOCK_METHOD(KFRResult, clearPickFilter, (int), (override));
    MOCK_METHOD(KFRResult, setMultiSelection, (int, bool), (override));
    MOCK_METHOD(KFRResult, setContiguousPick, (int, bool), (override));
    MOCK_METHOD(KFRResult, setPickFilter, (int, Ids const&, int, Ids const&, bool, int),
                (override));
    MOCK_METHOD(KFRResult, initStagePickFilter,
                (int, Ids const&, int, Ids const&, bool, Stage const&), (override));
    MOCK_METHOD(KFRResult, clearHighlights, (Kinds const&), (override));
    MOCK_METHOD(KFRResult, setPickMode, (bool, Mode), (override));
};

struct PickFilter : ::testing::Test {
    PickFilter()
    {
        auto const selection = KFR::make<test::FakeSelectionManager>();
        selection->pickFilters = held;
        ServiceCacheModelingPlugin::selectionManager_ = selection;
        platform.services().put("vrn.orlo.ddm.Display3DDataManager", held);
        filter = SelectFilter::instance();
        ::testing::Mock::AllowLeak(&managers);
    }
    ~PickFilter() override { ::testing::Mock::VerifyAndClear(&managers); }

    unsigned int id(std::string const& name) { return platform.idOf(name); }
    void expectSet(Ids const& ids, Ids const& active, bool multi, int userSet = 0)
    {
        EXPECT_CALL(managers, setPickFilter(kOwner, ids, userSet, active, multi, 0));
    }
    void expectStage(Ids const& ids, Ids const& overwritable)
    {
        EXPECT_CALL(managers, initStagePickFilter(kOwner, ids, 0, overwritable, true, "pick"));
    }
    void setTargets(Ids const& active, Ids const& all)
    {
        ON_CALL(managers, getActiveTargets)
            .WillByDefault(DoAll(SetArgReferee<0>(active), Return(1)));
        ON_CALL(managers, getPickTargets).WillByDefault(DoAll(SetArgReferee<0>(all), Return(1)));
    }

    /// The process's, and never destroyed: the filter keeps it until after the end of the tests.
    static inline auto const& held = *new auto(KFR::make<::testing::NiceMock<Managers>>());
    static inline Managers& managers = *held;
    ::testing::InSequence inSequence;
    test::SelectionScope platform;
    SelectFilter* filter = nullptr;
};

TEST_F(PickFilter, HandsKindsOnAsTheirTypesAndIdsAsTheyAre)
{
    SelectFilterType const kinds[]{FilterSheetBody, SelectFilterType(25), FilterFace};
    expectSet({}, {}, true);
    filter->setFilter(kinds, 0, true);
    expectSet({id("SHEETBODY"), id("FACE")}, {id("REGION")}, false);
    filter->setFilter(kinds, 3, false, FilterRegion);
    Ids ids{kMinus7, 9};
    expectSet({5, 6}, ids, true);
    filter->setFilterByTypeID({5, 6}, true, ids);
    expectStage({id("FACE"), id("FACE")}, {});
    filter->initStageFilter({2, 25, 2}, true, "pick");
    expectStage({8}, {7, kMinus9});
    filter->initStageFilterByID({8}, true, ids, "pick");
    EXPECT_EQ(ids, (Ids{7, kMinus9}));  // the caller's own
}

TEST_F(PickFilter, HandsModesOn)
{
    EXPECT_CALL(managers, clearPickFilter(kOwner));
    EXPECT_CALL(managers, setContiguousPick(kOwner, true));
    EXPECT_CALL(managers, setMultiSelection(kOwner, false));
    EXPECT_CALL(managers, setPickMode(true, Mode::remove));
    EXPECT_CALL(managers, setPickMode(false, Mode::toggle));
    EXPECT_CALL(managers, clearHighlights(Kinds{0}));
    EXPECT_CALL(managers, clearHighlights(Kinds{0, 3, 4})).WillOnce(Return(4711));
    filter->clearFilters();
    filter->setContiguousPickFlag(true);
    filter->setMulitSelectionWithoutChangePickingFilter(false);
    filter->setPickMode(true, Mode::remove, false);
    filter->setPickMode(false, Mode::toggle, true);
    EXPECT_EQ(filter->cleanHightlights().getCode(), 4711);
}

TEST_F(PickFilter, ReadsRewritesAndKeepsTargets)
{
    Ids const rows[][3]{{{9, 6, 7}, {7, 8}, {9, 7}},
                        {{9, 6, 7}, {8, kMinus7, kMinus9}, {kMinus7}},
                        {{9, 6}, {kMinus7, kMinus9}, {9}}};
    Ids ids{5};
    for (auto const& [active, targets, kept] : rows) {
        setTargets(active, targets);
        expectStage({7, 9}, {5});
        expectSet({7, 9}, kept, true);
        filter->initStageFilterWithOverwritableTargets({7, 9}, true, ids, "pick");
    }
    filter->getPickTargets(ids);
    EXPECT_EQ(ids, (Ids{5, 7, 9}));
    filter->getPickTargetTypes(ids);
    EXPECT_EQ(ids, (Ids{9, 6}));
    setTargets({}, {kMinus7, 9});
    filter->getPickTargetTypes(ids);
    EXPECT_EQ(ids, (Ids{kMinus7, 9}));
    ids = {9, 4};
    expectSet({kMinus7, kMinus9}, {9, 4}, true, 1);
    filter->setUserHierarchies(ids);
}

TEST_F(PickFilter, GrowsByTheBodiesOfEveryDefaultFilter)
{
    Ids active;
    for (char const* const name :
         {"SHEETBODY", "BODY", "GENERALsBODY", "FEM.Simulation.2DContinuousMesh",
          "FEM.Simulation.3DContinuousMesh", "PRIMITIVEBOXSOLID", "PRIMITIVECYLINDERSOLID",
          "PRIMITIVESPHERESOLID", "PRIMITIVEELLIPSOIDSOLID"}) {
        active.append(id(name));
    }
    for (int round = 0; round < 2; ++round) {
        expectSet({}, active, true);
        filter->setFilterWithDefault2D3DBodies(nullptr, 0, true);
    }
    EXPECT_CALL(managers, setPickFilter(kOwner, ::testing::SizeIs(27), 0, Ids{}, true, 0));
    filter->setFilter(FilterBody, true);
}

TEST_F(PickFilter, PublishesWhetherVerticesAndNodesAreSeen)
{
    auto const events = KFR::make<test::FakeEventManager>();
    platform.services().put("KFR.Framework.EventManager", events);
    events->put("GeomPluginEventDomain");
    events->put("VRN.Tamarak.Plugins.FEMPlugin");
    for (bool const show : {true, false}) {
        EXPECT_EQ(SelectFilter::showHideVertex(show).getCode(), events->kAnswer);
        EXPECT_EQ(*events->lastEvent.payload.get<unsigned short>(), show ? 1 : 2);
        EXPECT_EQ(events->takeNotes().back(), "publish GeomPluginEventDomain 116 0");
    }
    EXPECT_EQ(filter->showNode(true).getCode(), events->kAnswer);
    EXPECT_EQ(events->takeNotes().back(), "publish VRN.Tamarak.Plugins.FEMPlugin 108 0");
    auto const& values = *events->lastEvent.payload.get<KFRSequence<KFRAny>>();
    EXPECT_TRUE(values.size() == 3 && *values[0].get<unsigned int>() == 0);
    EXPECT_FALSE(*values[1].get<bool>() || *values[2].get<bool>());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
