// The look-ups by name: their names, and what is kept of them.

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::IsMissingInterface;
using test::IsNullHandle;
using test::IsObject;
using test::LookUp;
using test::LookUpForm;
using test::makePlain;
using test::PlatformScope;
using ::testing::ElementsAre;
using ::testing::SizeIs;

static_assert(!std::is_default_constructible_v<ServiceHelper>);

LookUp byName(std::string const& name)
{
    return {LookUpForm::nameParameters, name, ""};
}

struct NamedCase {
    char const* operation;
    KFRIService (*ask)();
    char const* name;
};

// clang-format off
NamedCase const kNamedCases[] = {
    {"getAEMController", &ServiceHelper::getAEMController, "KFR.AEM.Controller"},
    {"getAEMPFW", &ServiceHelper::getAEMPFW, "KFR.AEM.TestBed.AEMPFW"},
    {"getAEMResultsAccess", &ServiceHelper::getAEMResultsAccess, "KFR.EOM.Results"},
    {"getARPivotViewModelService", &ServiceHelper::getARPivotViewModelService, "vrn.orlo.plugin.modeling.AnalysisReadinessPivotViewModel"},
    {"getBaseCommandFactory", &ServiceHelper::getBaseCommandFactory, "vrn.orlo.plugin.baseplugin.BaseCommands"},
    {"getBaseCommonService", &ServiceHelper::getBaseCommonService, "vrn.orlo.plugin.baseplugin.BaseCommonService"},
    {"getBaseEntityService", &ServiceHelper::getBaseEntityService, "vrn.orlo.plugin.baseplugin.BaseEntities"},
    {"getBehaviorController", &ServiceHelper::getBehaviorController, "vrn.orlo.appfw.EntityFW"},
    {"getCommandFactory", &ServiceHelper::getCommandFactory, "vrn.orlo.plugin.modeling.Command"},
    {"getContextManager", &ServiceHelper::getContextManager, "vrn.orlo.appfw.ContextMenuManager"},
    {"getDisplayDataManager", &ServiceHelper::getDisplayDataManager, "vrn.orlo.ddm.Display3DDataManager"},
    {"getElementQuality", &ServiceHelper::getElementQuality, "KFR.AEM.ElementQuality"},
    {"getEntityCategoryManagerService", &ServiceHelper::getEntityCategoryManagerService, "vrn.orlo.appfw.EntityCategoryManager"},
    {"getEventManager", &ServiceHelper::getEventManager, "KFR.Framework.EventManager"},
    {"getFEMBussinessLogic", &ServiceHelper::getFEMBussinessLogic, "vrn.orlo.plugin.fem.FEMPluginBusinessLogic"},
    {"getFEMCommand", &ServiceHelper::getFEMCommand, "vrn.orlo.plugin.fem.FEMPluginCommand"},
    {"getFEMCompAccess", &ServiceHelper::getFEMCompAccess, "vrn.orlo.plugin.fem.ComponentAccess"},
    {"getFEMEntities", &ServiceHelper::getFEMEntities, "vrn.orlo.plugin.fem.FEMEntities"},
    {"getFEMPMService", &ServiceHelper::getFEMPMService, "vrn.orlo.plugin.fem.FEMPluginPM"},
    {"getFreeFaceService", &ServiceHelper::getFreeFaceService, "vrn.orlo.muc.FreeFaceService"},
    {"getGSCServer", &ServiceHelper::getGSCServer, "vrn.orlo.gsc.GSCMain"},
    {"getGeomCommandService", &ServiceHelper::getGeomCommandService, "vrn.orlo.plugin.geometry.GeomPluginCommands"},
    {"getGeomCommonService", &ServiceHelper::getGeomCommonService, "vrn.orlo.plugin.geometry.GeometryCommonService"},
    {"getGeomPMService", &ServiceHelper::getGeomPMService, "vrn.orlo.plugin.geometry.GeomPluginPM"},
    {"getGeomPluginHelper", &ServiceHelper::getGeomPluginHelper, "vrn.orlo.plugin.geometry.GeomPluginHelper"},
    {"getGuiExeutive", &ServiceHelper::getGuiExeutive, "vrn.orlo.appfw.GuiExecutive"},
    {"getInitializerService", &ServiceHelper::getInitializerService, "vrn.orlo.plugin.modeling.Initializer"},
    {"getInverseRelationshipHelper", &ServiceHelper::getInverseRelationshipHelper, "vrn.orlo.muc.InverseRelationshipHelper"},
    {"getMUCBeamTessService", &ServiceHelper::getMUCBeamTessService, "vrn.orlo.muc.BeamTessService"},
    {"getMenuManager", &ServiceHelper::getMenuManager, "vrn.orlo.appfw.MenuManager"},
    {"getMeshCrossSectionService", &ServiceHelper::getMeshCrossSectionService, "vrn.orlo.muc.MeshCrossSectionService"},
    {"getMeshRegionService", &ServiceHelper::getMeshRegionService, "vrn.orlo.muc.MeshRegionService"},
    {"getMeshUtility", &ServiceHelper::getMeshUtility, "vrn.orlo.muc.MeshUtility"},
    {"getMidSurfService", &ServiceHelper::getMidSurfService, "vrn.orlo.plugin.midsurface.MidSurfService"},
    {"getPMService", &ServiceHelper::getPMService, "vrn.orlo.plugin.modeling.PM"},
    {"getPluginURService", &ServiceHelper::getPluginURService, "vrn.orlo.plugin.modeling.UndoRedo"},
    {"getPostPMService", &ServiceHelper::getPostPMService, "vrn.orlo.plugin.post.PostPluginPM"},
    {"getRegionTessellator", &ServiceHelper::getRegionTessellator, "KFR.RegionTessellator.RegionTessellator"},
    {"getScriptingService", &ServiceHelper::getScriptingService, "vrn.orlo.plugin.modeling.Scripting"},
    {"getSectionViewService", &ServiceHelper::getSectionViewService, "vrn.orlo.plugin.modeling.SectionView"},
    {"getShellEntities", &ServiceHelper::getShellEntities, "vrn.orlo.plugin.shell.ShellEntities"},
    {"getStudyViewService", &ServiceHelper::getStudyViewService, "vrn.orlo.plugin.modeling.StudyPivotViewModel"},
    {"getTranformCommonService", &ServiceHelper::getTranformCommonService, "vrn.orlo.plugin.transform.CommonService"},
    {"getTypeRegistry", &ServiceHelper::getTypeRegistry, "KFR.Services.TypeRegistry"},
    {"getUnitsService", &ServiceHelper::getUnitsService, "vrn.orlo.appfw.Units"},
    {"getViewportCommandService", &ServiceHelper::getViewportCommandService, "vrn.orlo.plugin.shell.ShellPluginCommand"},};
// clang-format on

TEST(NamedService, IsLookedUpOnceUnderItsOwnName)
{
    for (NamedCase const& row : kNamedCases) {
        SCOPED_TRACE(row.operation);
        PlatformScope platform;
        KFRIService const service = platform.services().putStranger(row.name);
        EXPECT_THAT(row.ask(), IsObject(service));
        EXPECT_THAT(row.ask(), IsObject(service));
        EXPECT_THAT(platform.services().lookUps(), ElementsAre(byName(row.name)));
    }
}

TEST(ServiceHelper, KeepsWhatItFoundEvenWhenTheFrameworkHasAnother)
{
    PlatformScope platform;
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsNullHandle());
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsNullHandle());
    EXPECT_THAT(platform.services().takeLookUps(), SizeIs(2));  // what is missing is not kept
    auto const first = KFR::make<test::Stranger>();
    platform.services().put("vrn.orlo.muc.MeshUtility", first);
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsObject(first));
    KFRIService const second = platform.services().putStranger("vrn.orlo.muc.MeshUtility");
    ServiceCacheModelingPlugin::kfrServiceAccess_ = nullptr;
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsObject(first));
    EXPECT_EQ(first->referenceCount(), 2);
    ServiceHelper::releaseServices();
    EXPECT_EQ(first->referenceCount(), 1);
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsNullHandle());
    ServiceCacheModelingPlugin::kfrServiceAccess_ = &platform.services();
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsObject(second));
    EXPECT_THAT(platform.services().lookUps(), SizeIs(2));
}

TEST(ServiceHelper, KeepsTheStoredProviderWhenItReleasesTheServices)
{
    PlatformScope platform;
    EXPECT_THAT(ServiceHelper::getServiceProvider(), IsNullHandle());
    KFRIService const provider = KFR::make<test::Stranger>();
    ServiceHelper::setServiceProvider(provider);
    ServiceHelper::releaseServices();
    EXPECT_THAT(ServiceHelper::getServiceProvider(), IsObject(provider));
    ServiceHelper::setServiceProvider(KFR::NULLSP);
    EXPECT_THAT(ServiceHelper::getServiceProvider(), IsNullHandle());
}

TEST(ServiceHelper, FindsAnyServiceByItsNameInTheSameCache)
{
    PlatformScope platform;
    KFRIService const service = platform.services().putStranger("vrn.orlo.muc.MeshUtility");
    EXPECT_THAT(ServiceHelper::getServiceByName("vrn.orlo.muc.MeshUtility"), IsObject(service));
    EXPECT_THAT(ServiceHelper::getMeshUtility(), IsObject(service));
    EXPECT_THAT(ServiceHelper::getServiceByName(""), IsNullHandle());
    EXPECT_THAT(platform.services().lookUps(),
                ElementsAre(byName("vrn.orlo.muc.MeshUtility"), byName("")));
}

TEST(ServiceHelper, AsksTheProviderForThreeServicesAfreshEveryTime)
{
    for (auto const& row :
         {NamedCase{"", &ServiceHelper::getAEMExportBulk, "KFR.AEM.ExportBulk"},
          NamedCase{"", &ServiceHelper::getAEMImportBulk, "KFR.AEM.ImportBulk"},
          NamedCase{"", &ServiceHelper::getInteractionContact, "KFR.AEM.Contact"}}) {
        SCOPED_TRACE(row.name);
        PlatformScope platform;
        ServiceCacheModelingPlugin::kfrServiceAccess_ = nullptr;
        KFRIService const first = platform.services().putStranger(row.name);
        EXPECT_THAT(row.ask(), IsObject(first));
        KFRIService const second = platform.services().putStranger(row.name);
        EXPECT_THAT(row.ask(), IsObject(second));
        LookUp const expected{LookUpForm::nameParametersResult, row.name, ""};
        EXPECT_THAT(platform.services().lookUps(), ElementsAre(expected, expected));
    }
}

TEST(ServiceHelper, TakesAFailureOfTheFrameworkForAMissingService)
{
    PlatformScope platform;
    constexpr char const* kName = "vrn.orlo.appfw.MenuManager";
    platform.services().fail(kName, KFRException(1, "plain"));
    EXPECT_THAT(ServiceHelper::getMenuManager(), IsNullHandle());
    platform.services().fail(kName, KFRSystemException(2, "of the system"));
    EXPECT_THAT(ServiceHelper::getMenuManager(), IsNullHandle());
    platform.services().fail(kName, KFRUserException(3, "of the user"));
    EXPECT_THAT(ServiceHelper::getMenuManager(), IsNullHandle());
    EXPECT_THAT(platform.services().lookUps(), SizeIs(3));
    platform.services().fail(kName, std::runtime_error("not the framework's"));
    EXPECT_THROW(ServiceHelper::getMenuManager(), std::runtime_error);
    platform.services().fail(kName, 7);
    EXPECT_THROW(ServiceHelper::getMenuManager(), int);
}

/// A service with a typed operation: null without it, thrown when it lacks the interface, kept.
template <class I>
void expectTyped(KFRSmartPointer<I> (*ask)(), char const* name, char const* typeName)
{
    SCOPED_TRACE(name);
    PlatformScope platform;
    EXPECT_THAT(ask(), IsNullHandle());
    EXPECT_THAT(platform.services().takeLookUps(), ElementsAre(byName(name)));
    platform.services().putStranger(name);
    EXPECT_THAT([ask] { ask(); },
                ::testing::Throws<KFRSystemException>(IsMissingInterface(typeName)));

    ServiceHelper::releaseServices();
    auto const service = makePlain<I>();
    platform.services().put(name, service);
    platform.services().takeLookUps();
    EXPECT_EQ(ask().get(), service.get());
    EXPECT_EQ(ask().get(), service.get());
    EXPECT_THAT(platform.services().lookUps(), ElementsAre(byName(name)));
}

TEST(ServiceHelper, CastsFourServicesStrictly)
{
    expectTyped(&ServiceHelper::getAEMFPStar, "KFR.AEM.Legacy.IFPStar",
                "KFR.AEM.Legacy.IFPStar.KFRIAEMIFPStar");
    expectTyped(&ServiceHelper::getBizLogicService, "vrn.orlo.plugin.modeling.BizLogic",
                "vrn.orlo.plugin.modeling.KFRIBizLogic");
    expectTyped(&ServiceHelper::getCommonService, "vrn.orlo.plugin.modeling.Service",
                "vrn.orlo.plugin.modeling.KFRICommonService");
    expectTyped(&ServiceHelper::getEntityFactory, "vrn.orlo.plugin.modeling.Entity",
                "vrn.orlo.plugin.modeling.IEntityFactory");
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
