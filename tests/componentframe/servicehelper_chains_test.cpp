// The operations that ask a service for something: every step of them there, and missing.

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "tests/support/geometryfakes.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using Holder = ServiceCacheModelingPlugin;
using test::IsMissingInterface;
using test::IsNullHandle;
using test::IsObject;
using test::LookUp;
using test::LookUpForm;
using test::makePlain;
using test::PlatformScope;
using test::Stranger;
using ::testing::ElementsAre;

constexpr char const* kServer = "vrn.orlo.gsc.GSCMain";
constexpr char const* kUtility = "vrn.orlo.gsc.GSCUtility";
constexpr char const* kGeometry = "vrn.orlo.plugin.geometry.GeometryCommonService";
constexpr char const* kTransform = "vrn.orlo.plugin.transform.CommonService";
constexpr char const* kShell = "vrn.orlo.plugin.shell.ShellEntities";

/// All that the chains of calls lead through, none of it linked to another.
struct World {
    PlatformScope platform;
    KFRSmartPointer<test::FakeGSCServer> server = KFR::make<test::FakeGSCServer>();
    KFRSmartPointer<test::FakeGSCSession> session = KFR::make<test::FakeGSCSession>();
    KFRSmartPointer<test::FakeGSCUtilityFactory> utility = KFR::make<test::FakeGSCUtilityFactory>();
    KFRSmartPointer<test::FakeGeomCommonService> geometry =
        KFR::make<test::FakeGeomCommonService>();
    KFRSmartPointer<test::FakeGeomSession> geomSession = KFR::make<test::FakeGeomSession>();
    KFRSmartPointer<test::FakeTransformCommon> transform = KFR::make<test::FakeTransformCommon>();
    KFRSmartPointer<test::FakeTrashBinFactory> trash = KFR::make<test::FakeTrashBinFactory>();
    KFRSmartPointer<test::FakeUndoRedoFactory> undoRedo = KFR::make<test::FakeUndoRedoFactory>();
    KFRSmartPointer<test::FakeManagers> managers = KFR::make<test::FakeManagers>();
    KFRSmartPointer<test::FakeViewportManager> viewports = KFR::make<test::FakeViewportManager>();

    void put(char const* name, KFRIService const& service)
    {
        platform.services().put(name, service);
    }
    void putBothSessions()
    {
        put(kGeometry, geometry);
        geometry->session = geomSession;
        put(kServer, server);
        server->session = session;
    }
};

#define STEP(...)                 \
    [](World& w) -> KFRIService { \
        __VA_ARGS__;              \
    }
#define PUT(name, member) STEP(w.put(name, w.member); return w.member)
#define HOLD(held, member) STEP(return Holder::held = w.member)

// clang-format off
struct {
    char const* operation;
    KFRIService (*ask)();
    std::vector<KFRIService (*)(World&)> steps;
} const kChainCases[] = {
    {"getGSCActiveSession", &ServiceHelper::getGSCActiveSession,
     {PUT(kServer, server), STEP(return w.server->session = w.session)}},
    {"getGSCMath", &ServiceHelper::getGSCMath,
     {PUT(kUtility, utility), STEP(return w.utility->math = makePlain<gsc::KFRIGSCMath>())}},
    {"getGeomSession", &ServiceHelper::getGeomSession,
     {PUT(kGeometry, geometry), STEP(return w.geometry->session = w.geomSession)}},
    {"getGeomOpeProgress", &ServiceHelper::getGeomOpeProgress,
     {PUT(kGeometry, geometry), STEP(return w.geometry->progress = KFR::make<Stranger>())}},
    {"getGSCQueryTool", &ServiceHelper::getGSCQueryTool,
     {PUT(kServer, server), STEP(return w.server->session = w.session),
      STEP(return w.session->queryTool = makePlain<test::silent::QueryToolView>())}},
    {"getGSCModifyTool", &ServiceHelper::getGSCModifyTool,
     {PUT(kServer, server), STEP(return w.server->session = w.session),
      STEP(return w.session->modifyTool = makePlain<test::silent::ModifyToolView>())}},
    {"getTransformService", &ServiceHelper::getTransformService,
     {PUT(kTransform, transform), STEP(return w.transform->transform = KFR::make<Stranger>())}},
    {"getTrashbin", &ServiceHelper::getTrashbin,
     {HOLD(trashBinFactory_, trash),
      STEP(return w.trash->trashBin = makePlain<appfw::KFRITrashBinInterface>())}},
    {"getURMacro", &ServiceHelper::getURMacro,
     {HOLD(undoRedoFactory_, undoRedo), STEP(return w.undoRedo->recorder = KFR::make<Stranger>())}},
    {"getViewport", &ServiceHelper::getViewport,
     {PUT(kShell, managers), STEP(return w.managers->viewports = w.viewports),
      STEP(return w.viewports->viewport = makePlain<shell::IViewport>())}},
};
// clang-format on

TEST(Chain, EndsAtItsObjectWhateverTheResultsSayAndIsNullWhenAnyStepIs)
{
    for (auto const& row : kChainCases) {
        SCOPED_TRACE(row.operation);
        World world;
        for (auto const step : row.steps) {
            EXPECT_THAT(row.ask(), IsNullHandle());
            KFRIService const next = step(world);
            if (step == row.steps.back()) {
                EXPECT_THAT(row.ask(), IsObject(next));
            }
        }
    }
}

struct CastCase {
    KFRIService (*ask)();
    char const* service;
    char const* thrown;  // the interface that is missed; null: the cast is a loose one
};

TEST(Chains, CastTheirFirstServiceStrictlyOrLoosely)
{
    for (auto const& row :
         {CastCase{&ServiceHelper::getGSCActiveSession, kServer, "vrn.orlo.gsc.KFRIGSCServer"},
          CastCase{&ServiceHelper::getGSCMath, kUtility, "vrn.orlo.gsc.KFRIGSCUtilityFactory"},
          CastCase{&ServiceHelper::getGeomSession, kGeometry, nullptr},
          CastCase{&ServiceHelper::getGeomOpeProgress, kGeometry,
                   "vrn.orlo.plugin.geometry.KFRIGeomCommonService"},
          CastCase{&ServiceHelper::getGSCQueryTool, kGeometry, nullptr},
          CastCase{&ServiceHelper::getGSCModifyTool, kGeometry, nullptr},
          CastCase{&ServiceHelper::getGSCQueryTool, kServer, "vrn.orlo.gsc.KFRIGSCServer"},
          CastCase{&ServiceHelper::getGSCModifyTool, kServer, "vrn.orlo.gsc.KFRIGSCServer"},
          CastCase{&ServiceHelper::getTransformService, kTransform,
                   "vrn.orlo.appfw.KFRICommonService"},
          CastCase{&ServiceHelper::getViewport, kShell, "vrn.orlo.plugin.shell.IGetManagers"}}) {
        SCOPED_TRACE(row.service);
        PlatformScope platform;
        platform.services().putStranger(row.service);
        if (row.thrown == nullptr) {
            EXPECT_THAT(row.ask(), IsNullHandle());
        } else {
            EXPECT_THAT([&row] { row.ask(); },
                        ::testing::Throws<KFRSystemException>(IsMissingInterface(row.thrown)));
        }
    }
}

TEST(Chains, PreferTheToolsOfTheGeometrySession)
{
    World world;
    world.putBothSessions();
    auto const& geometry = world.geomSession;
    auto const& server = world.session;
    geometry->queryTool = makePlain<test::silent::QueryToolView>();
    server->queryTool = makePlain<test::silent::QueryToolView>();
    geometry->modifyTool = makePlain<test::silent::ModifyToolView>();
    server->modifyTool = makePlain<test::silent::ModifyToolView>();
    EXPECT_THAT(ServiceHelper::getGSCQueryTool(), IsObject(geometry->queryTool));
    EXPECT_THAT(ServiceHelper::getGSCModifyTool(), IsObject(geometry->modifyTool));

    // Each tool falls back on its own.
    geometry->queryTool.release();
    EXPECT_THAT(ServiceHelper::getGSCQueryTool(), IsObject(server->queryTool));
    EXPECT_THAT(ServiceHelper::getGSCModifyTool(), IsObject(geometry->modifyTool));
    geometry->modifyTool.release();
    EXPECT_THAT(ServiceHelper::getGSCModifyTool(), IsObject(server->modifyTool));
}

TEST(Chains, DoNotAskTheServerForAToolThatTheGeometrySessionHas)
{
    World world;
    world.putBothSessions();
    world.geomSession->queryTool = makePlain<test::silent::QueryToolView>();
    world.platform.services().putStranger(kServer);
    EXPECT_FALSE(ServiceHelper::getGSCQueryTool() == KFR::NULLSP);
    EXPECT_THROW(ServiceHelper::getGSCModifyTool(), KFRSystemException);
}

TEST(Chains, LookForTheViewportsServiceAfreshBesideTheCache)
{
    PlatformScope platform;
    platform.services().put(kShell, KFR::make<test::FakeManagers>());
    static_cast<void>(ServiceHelper::getViewport());
    static_cast<void>(ServiceHelper::getViewport());
    static_cast<void>(ServiceHelper::getShellEntities());
    static_cast<void>(ServiceHelper::getShellEntities());
    LookUp const fresh{LookUpForm::nameParametersResult, kShell, ""};
    EXPECT_THAT(platform.services().lookUps(),
                ElementsAre(fresh, fresh, LookUp{LookUpForm::nameParameters, kShell, ""}));
}

TEST(ModelByName, IsFoundThroughThePluginsOwnHolder)
{
    PlatformScope platform;
    EXPECT_THAT(ServiceHelper::getModelByName(u"bracket"), IsNullHandle());
    auto const persistence = KFR::make<test::FakePFW>();
    auto const model = KFR::make<test::FakeModel>();
    persistence->models[u"bracket"] = model;
    appfw::ServiceCacheAppFrame::PFW_ = persistence;
    EXPECT_THAT(ServiceHelper::getModelByName(u"bracket"), IsNullHandle());
    Holder::PFW_ = persistence;
    EXPECT_EQ(ServiceHelper::getModelByName(u"bracket").get(), model.get());
    EXPECT_THAT(ServiceHelper::getModelByName(u"Bracket"), IsNullHandle());
    EXPECT_THAT(ServiceHelper::getModelByName(u""), IsNullHandle());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
