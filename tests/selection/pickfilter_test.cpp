// What the filter tells its managers. It keeps those that it finds first: a program of its own.

#include "platform/fem/fementities.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/eventfakes.h"
#include "tests/support/freshprocess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using Ids = KFRSequence<unsigned int>;
using Kinds = KFRSequence<int>;
using Mode = ddm::SelectionChangeMode;
using Store = KFRSmartPointer<fem::IPropertyStoreInterface>;

constexpr int kOwner = 20130711;
constexpr unsigned int kMinus7 = 0U - 7;
constexpr SelectFilterType kKinds[]{FilterSheetBody, SelectFilterType(25), FilterFace,
                                    FilterSheetBody};

/// All that the filter talks to, in one object.
class Managers
    : public KFRServiceObjectImpl<appfw::ISelectionManagerInterface,
                                  appfw::IPickFilterManagerInterface, ddm::KFRIDisplay3DDataManager,
                                  ddm::KFRIPickingSettingAdapter, fem::IFEMPluginManagerInterface,
                                  fem::IPropertyStoreInterface> {
public:
    Ids targets;
    Ids active;
    KFRAny nodes;

    template <class T, class U>
    KFRResult handOut(T const& held, U& out)
    {
        out = held;
        return KFR::ok;
    }
    KFRIService self() { return {kfrRoot(), {}}; }
    using Filters = KFRSmartPointer<appfw::IPickFilterManagerInterface>;
    using Settings = KFRSmartPointer<ddm::KFRIPickingSettingAdapter>;
    KFRResult getPickFilterManager(Filters& out) override { return handOut(self(), out); }
    KFRResult getPickingSettings(Settings& out) override { return handOut(self(), out); }
    KFRResult getPropertyStore(Store& out) override { return handOut(self(), out); }
    KFRResult getPickTargets(Ids& out) override { return handOut(targets, out); }
    KFRResult getActiveTargets(Ids& out) override { return handOut(active, out); }
    KFRResult getProperty(std::string const& name, KFRAny& out) override
    {
        return name == "Nodes" ? handOut(nodes, out) : KFRResult(KFR::notDone);
    }
    using Text = std::string const&;
    MOCK_METHOD(KFRResult, clearPickFilter, (int), (override));
    MOCK_METHOD(KFRResult, setMultiSelection, (int, bool), (override));
    MOCK_METHOD(KFRResult, setContiguousPick, (int, bool), (override));
    MOCK_METHOD(KFRResult, setPickFilter, (int, Ids const&, int, Ids const&, bool, int),
                (override));
    MOCK_METHOD(KFRResult, initStagePickFilter, (int, Ids const&, int, Ids const&, bool, Text),
                (override));
    MOCK_METHOD(KFRResult, clearHighlights, (Kinds const&), (override));
    MOCK_METHOD(KFRResult, setPickMode, (bool, Mode), (override));
};

class PickFilter : public ::testing::Test {
protected:
    using Names = std::vector<std::string>;

    PickFilter()
    {
        ServiceCacheModelingPlugin::selectionManager_ = managers().self();
        platform.services().put("vrn.orlo.ddm.Display3DDataManager", managers().self());
        filter = SelectFilter::instance();
    }
    ~PickFilter() override { ::testing::Mock::VerifyAndClearExpectations(&managers()); }

    static Managers& managers()
    {
        static auto const one = KFR::make<::testing::StrictMock<Managers>>();
        return *one;
    }
    Ids idsOf(Names const& names)
    {
        Ids ids;
        for (std::string const& name : names) {
            ids.append(platform.idOf(name));
        }
        return ids;
    }
    void expectSet(Ids const& ids, Ids const& active, bool multi, int userSet = 0)
    {
        EXPECT_CALL(managers(), setPickFilter(kOwner, ids, userSet, active, multi, 0));
    }
    void expectStage(Ids const& ids, Ids const& overwritable, bool multi)
    {
        EXPECT_CALL(managers(), initStagePickFilter(kOwner, ids, 0, overwritable, multi, "pick"));
    }

    ::testing::InSequence inSequence;
    test::SelectionScope platform;
    SelectFilter* filter = nullptr;
};

TEST_F(PickFilter, HandsKindsOnAsTheirTypesAndIdsAsTheyAre)
{
    expectSet({}, {}, true);
    filter->setFilter(kKinds, 0, true);
    expectSet(idsOf({"SHEETBODY", "FACE", "SHEETBODY"}), {}, false);
    filter->setFilter(kKinds, 4, false);
    expectSet(idsOf({"SHEETBODY"}), idsOf({"REGION"}), false);
    filter->setFilter(kKinds, 2, false, FilterRegion);
    expectSet(idsOf({"FACE"}), {}, true);
    filter->setFilter(FilterFace, true);
    Ids active{kMinus7};
    expectSet({5, 6}, {kMinus7}, true);
    filter->setFilterByTypeID({5, 6}, true, active);
    expectStage(idsOf({"FACE", "SHEETBODY"}), {}, true);
    filter->initStageFilter({2, 25, 9}, true, "pick");
    expectStage({5, 6}, {}, false);
    filter->initStageFilterByID({5, 6}, false, "pick");
    Ids overwritable{5, kMinus7};
    expectStage({8}, {0U - 5, 7}, true);
    filter->initStageFilterByID({8}, true, overwritable, "pick");
    EXPECT_EQ(overwritable, (Ids{0U - 5, 7}));  // the caller's own
}

TEST_F(PickFilter, HandsModesOn)
{
    EXPECT_CALL(managers(), clearPickFilter(kOwner));
    filter->clearFilters();
    EXPECT_CALL(managers(), setContiguousPick(kOwner, true));
    filter->setContiguousPickFlag(true);
    EXPECT_CALL(managers(), setMultiSelection(kOwner, false));
    filter->setMulitSelectionWithoutChangePickingFilter(false);
    EXPECT_CALL(managers(), setPickMode(true, Mode::remove));
    filter->setPickMode(true, Mode::remove, false);
    EXPECT_CALL(managers(), setPickMode(false, Mode::toggle));
    EXPECT_CALL(managers(), clearHighlights(Kinds{0}));
    filter->setPickMode(false, Mode::toggle, true);
    EXPECT_CALL(managers(), clearHighlights(Kinds{0, 3, 4})).WillOnce(::testing::Return(4711));
    EXPECT_EQ(filter->cleanHightlights().getCode(), 4711);
}

TEST_F(PickFilter, KeepsOfTheUsersTargetsWhatTheStageAllows)
{
    struct Row {
        Ids active, targets, kept;
    };
    for (Row const& row : {Row{{9, 6, 7}, {7, 8}, {9, 7}}, Row{{}, {kMinus7}, {}},
                           Row{{9, 6, 7}, {8, kMinus7, 0U - 9}, {kMinus7}},
                           Row{{9, 6, 7}, {0U - 8, kMinus7}, {9, 7}}}) {
        managers().active = row.active;
        managers().targets = row.targets;
        Ids overwritable{5};
        expectStage({7, 8, 9}, {5}, true);
        expectSet({7, 8, 9}, row.kept, true);
        filter->initStageFilterWithOverwritableTargets({7, 8, 9}, true, overwritable, "pick");
    }
}

TEST_F(PickFilter, ReadsAndRewritesTheTargets)
{
    managers().targets = {kMinus7, 9};
    managers().active = {};
    Ids out{1};
    filter->getPickTargets(out);
    EXPECT_EQ(out, (Ids{1, 7, 9}));
    filter->getPickTargetTypes(out);
    EXPECT_EQ(out, (Ids{kMinus7, 9}));
    expectSet({kMinus7, 0U - 9}, {9, 4}, true, 1);
    Ids users{9, 4};
    filter->setUserHierarchies(users);
    managers().active = {3};
    filter->getPickTargetTypes(out);
    EXPECT_EQ(out, Ids{3});
}

TEST_F(PickFilter, GrowsByTheBodiesOfEveryDefaultFilter)
{
    for (int round = 1; round < 3; ++round) {
        expectSet(
            idsOf({"SHEETBODY"}),
            idsOf({"SHEETBODY", "BODY", "GENERALsBODY", "FEM.Simulation.2DContinuousMesh",
                   "FEM.Simulation.3DContinuousMesh", "PRIMITIVEBOXSOLID", "PRIMITIVECYLINDERSOLID",
                   "PRIMITIVESPHERESOLID", "PRIMITIVEELLIPSOIDSOLID"}),
            true);
        filter->setFilterWithDefault2D3DBodies(kKinds, 1, true);
    }
    EXPECT_CALL(managers(), setPickFilter(kOwner, ::testing::SizeIs(27), 0, Ids{}, true, 0));
    filter->setFilter(FilterBody, true);
    std::string const mesh = "FEM.Simulation.3DContinuousMesh";
    expectSet(idsOf({mesh, mesh, mesh}), {}, true);
    filter->setFilter(Filter3dMesh, true);
}

TEST_F(PickFilter, PublishesWhetherVerticesAndNodesAreSeen)
{
    EXPECT_FALSE(SelectFilter::getNodesVisibility());
    EXPECT_EQ(SelectFilter::showHideVertex(true).getCode(), KFR::notDone);
    auto const events = KFR::make<test::FakeEventManager>();
    platform.services().put("KFR.Framework.EventManager", events);
    platform.services().put("vrn.orlo.plugin.fem.FEMPluginPM", managers().self());
    events->put("GeomPluginEventDomain");
    events->put("VRN.Tamarak.Plugins.FEMPlugin");
    for (bool const show : {true, false}) {
        EXPECT_EQ(SelectFilter::showHideVertex(show).getCode(), events->kAnswer);
        EXPECT_EQ(*events->lastEvent.payload.get<unsigned short>(), show ? 1 : 2);
        EXPECT_EQ(events->takeNotes().back(), "publish GeomPluginEventDomain 116 0");
    }
    auto const shown = [&](bool refresh) {
        EXPECT_EQ(filter->showNode(refresh).getCode(), events->kAnswer);
        EXPECT_EQ(events->takeNotes().back(), "publish VRN.Tamarak.Plugins.FEMPlugin 108 0");
        auto const& values = *events->lastEvent.payload.get<KFRSequence<KFRAny>>();
        EXPECT_TRUE(values.size() == 3 && *values[0].get<unsigned int>() == 0);
        EXPECT_FALSE(*values[2].get<bool>());
        return *values[1].get<bool>();
    };
    managers().nodes = KFRAny(true);
    EXPECT_FALSE(shown(false));
    EXPECT_TRUE(shown(true));
    managers().nodes = KFRAny(1);
    EXPECT_TRUE(shown(false));
    EXPECT_FALSE(shown(true));  // an int is no truth value
}

TEST(PickFilterWithoutManagers, DoesWhatItCan)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        test::SelectionScope scope;
        EXPECT_NO_THROW(SelectFilter::instance()->setContiguousPickFlag(true));
        EXPECT_TRUE(SelectFilter::instance()->cleanHightlights().isOk());
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
