// The operations that ask a service for something: every step of them there, and missing.

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "tests/support/geometryfakes.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

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

KFRSmartPointer<test::FakeGSCSession> putActiveSession(PlatformScope& platform, int steps = 2)
{
    auto const server = KFR::make<test::FakeGSCServer>();
    auto const session = KFR::make<test::FakeGSCSession>();
    if (steps > 0) {
        platform.services().put(kServer, server);
    }
    if (steps > 1) {
        server->session = session;
    }
    return session;
}

KFRSmartPointer<test::FakeGeomSession> putGeomSession(PlatformScope& platform, int steps = 2)
{
    auto const common = KFR::make<test::FakeGeomCommonService>();
    auto const session = KFR::make<test::FakeGeomSession>();
    if (steps > 0) {
        platform.services().put(kGeometry, common);
    }
    if (steps > 1) {
        common->session = session;
    }
    return session;
}

/// A chain of calls. `build` makes as much of what it needs as the number of steps says, and gives
/// the object at its end.
struct ChainCase {
    char const* operation;
    KFRIService (*ask)();
    int steps;
    KFRIService (*build)(PlatformScope&, int steps);
};

void PrintTo(ChainCase const& row, std::ostream* out)
{
    *out << row.operation;
}

class Chain : public ::testing::TestWithParam<ChainCase> {};

TEST_P(Chain, EndsAtItsObjectWhateverTheResultsSay)
{
    PlatformScope platform;
    KFRIService const last = GetParam().build(platform, GetParam().steps);
    EXPECT_THAT(GetParam().ask(), IsObject(last));
}

TEST_P(Chain, IsNullWhenAnyStepIs)
{
    for (int steps = 0; steps < GetParam().steps; ++steps) {
        SCOPED_TRACE(steps);
        PlatformScope platform;
        static_cast<void>(GetParam().build(platform, steps));
        EXPECT_THAT(GetParam().ask(), IsNullHandle());
    }
}

ChainCase const kChainCases[] = {
    {"getGSCActiveSession", &ServiceHelper::getGSCActiveSession, 2,
     [](PlatformScope& platform, int steps) -> KFRIService {
         return putActiveSession(platform, steps);
     }},
    {"getGSCMath", &ServiceHelper::getGSCMath, 2,
     [](PlatformScope& platform, int steps) -> KFRIService {
         auto const factory = KFR::make<test::FakeGSCUtilityFactory>();
         auto const math = makePlain<gsc::KFRIGSCMath>();
         if (steps > 0) {
             platform.services().put(kUtility, factory);
         }
         if (steps > 1) {
             factory->math = math;
         }
         return math;
     }},
    {"getGeomSession", &ServiceHelper::getGeomSession, 2,
     [](PlatformScope& platform, int steps) -> KFRIService {
         return putGeomSession(platform, steps);
     }},
    {"getGeomOpeProgress", &ServiceHelper::getGeomOpeProgress, 2,
     [](PlatformScope& platform, int steps) -> KFRIService {
         auto const common = KFR::make<test::FakeGeomCommonService>();
         auto const progress = KFR::make<Stranger>();
         if (steps > 0) {
             platform.services().put(kGeometry, common);
         }
         if (steps > 1) {
             common->progress = progress;
         }
         return progress;
     }},
    {"getGSCQueryTool", &ServiceHelper::getGSCQueryTool, 3,
     [](PlatformScope& platform, int steps) -> KFRIService {
         auto const session = putActiveSession(platform, steps);
         auto const tool = makePlain<gsc::GSCIQueryTool>();
         if (steps > 2) {
             session->queryTool = tool;
         }
         return tool;
     }},
    {"getGSCModifyTool", &ServiceHelper::getGSCModifyTool, 3,
     [](PlatformScope& platform, int steps) -> KFRIService {
         auto const session = putActiveSession(platform, steps);
         auto const tool = makePlain<gsc::GSCIModifyTool>();
         if (steps > 2) {
             session->modifyTool = tool;
         }
         return tool;
     }},
    {"getTransformService", &ServiceHelper::getTransformService, 2,
     [](PlatformScope& platform, int steps) -> KFRIService {
         auto const common = KFR::make<test::FakeTransformCommon>();
         auto const transform = KFR::make<Stranger>();
         if (steps > 0) {
             platform.services().put(kTransform, common);
         }
         if (steps > 1) {
             common->transform = transform;
         }
         return transform;
     }},
    {"getTrashbin", &ServiceHelper::getTrashbin, 2,
     [](PlatformScope&, int steps) -> KFRIService {
         auto const factory = KFR::make<test::FakeTrashBinFactory>();
         auto const trashBin = makePlain<appfw::KFRITrashBinInterface>();
         if (steps > 0) {
             Holder::trashBinFactory_ = factory;
         }
         if (steps > 1) {
             factory->trashBin = trashBin;
         }
         return trashBin;
     }},
    {"getURMacro", &ServiceHelper::getURMacro, 2,
     [](PlatformScope&, int steps) -> KFRIService {
         auto const factory = KFR::make<test::FakeUndoRedoFactory>();
         auto const recorder = KFR::make<Stranger>();
         if (steps > 0) {
             Holder::undoRedoFactory_ = factory;
         }
         if (steps > 1) {
             factory->recorder = recorder;
         }
         return recorder;
     }},
    {"getViewport", &ServiceHelper::getViewport, 3,
     [](PlatformScope& platform, int steps) -> KFRIService {
         auto const managers = KFR::make<test::FakeManagers>();
         auto const viewports = KFR::make<test::FakeViewportManager>();
         auto const viewport = makePlain<shell::IViewport>();
         if (steps > 0) {
             platform.services().put(kShell, managers);
         }
         if (steps > 1) {
             managers->viewports = viewports;
         }
         if (steps > 2) {
             viewports->viewport = viewport;
         }
         return viewport;
     }},
};

INSTANTIATE_TEST_SUITE_P(ServiceHelper, Chain, ::testing::ValuesIn(kChainCases),
                         [](auto const& row) { return std::string(row.param.operation); });

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
    PlatformScope platform;
    auto const geometry = putGeomSession(platform);
    auto const server = putActiveSession(platform);
    geometry->queryTool = makePlain<gsc::GSCIQueryTool>();
    server->queryTool = makePlain<gsc::GSCIQueryTool>();
    geometry->modifyTool = makePlain<gsc::GSCIModifyTool>();
    server->modifyTool = makePlain<gsc::GSCIModifyTool>();
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
    PlatformScope platform;
    putGeomSession(platform)->queryTool = makePlain<gsc::GSCIQueryTool>();
    platform.services().putStranger(kServer);
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
