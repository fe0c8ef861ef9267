// The services that are read from the holder of another library.

#include "platform/eom/eom.h"
#include "platform/mxp/domparser.h"
#include "platform/study/study.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "tests/support/appframefakes.h"
#include "tests/support/commandfakes.h"
#include "tests/support/fakeunits.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace vrn::orlo::plugin::modeling {
namespace {

using Holder = ServiceCacheModelingPlugin;
using test::IsNullHandle;
using test::IsObject;
using test::makePlain;

template <class... I>
void fillPlain(KFRSmartPointer<I>&... members)
{
    ((members = makePlain<I>()), ...);
}

/// Puts an object of its own into every member of the holder.
void fillHolder()
{
    fillPlain(Holder::DOMParser_, Holder::studyEntityFactory_, Holder::pluginMgr_,
              Holder::pivotManager_, Holder::objectPropertiesManager_,
              Holder::entityAssociationManager_, Holder::colorManager_, Holder::typeBuffer_,
              Holder::metaDataManager_, Holder::entRefUtil_);
    Holder::entRefListFactory_ = KFR::make<test::FakeModelServices>();
    Holder::eomObjectFactory_ = KFR::make<test::FakeModelServices>();
    Holder::entRefContainerFactory_ = KFR::make<test::FakeModelServices>();
    Holder::adapterManager_ = KFR::make<test::FakeModelServices>();
    Holder::entRefFactory_ = KFR::make<test::FakeModelServices>();
    Holder::transactionBrokerFactory_ = KFR::make<test::FakeTransactionBroker>();
    Holder::undoRedoFactory_ = KFR::make<test::FakeUndoRedoFactory>();
    Holder::trashBinFactory_ = KFR::make<test::FakeTrashBinFactory>();
    Holder::commandProcessor_ = KFR::make<test::FakeCmdProcessor>();
    Holder::configMgr_ = KFR::make<test::FakeConfigurationManager>();
    Holder::pathUtils_ = KFR::make<test::FakePathUtils>();
    Holder::fileUtils_ = KFR::make<test::FakeFileUtils>();
    Holder::kfrUnitsSvc_ = KFR::make<test::FakeUnits>();
    Holder::PFW_ = KFR::make<test::FakePFW>();
    Holder::rootManager_ = KFR::make<test::FakeRootManager>();
    Holder::selectionManager_ = KFR::make<test::FakeSelectionManager>();
    Holder::frameworkAccess_ = KFR::make<test::FakeFrameworkAccess>();
}

// clang-format off
#define HELD(operation, name) \
    {#operation, [] { return KFRIService(ServiceHelper::operation()); }, \
     [] { return KFRIService(Holder::name); }}

struct {
    char const* operation;
    KFRIService (*ask)();
    KFRIService (*member)();
} const kHeldCases[] = {
    HELD(getAssociationManager,       entityAssociationManager_),
    HELD(getEntityAssociationManager, entityAssociationManager_),
    HELD(getCmdProcessor,             commandProcessor_),
    HELD(getColorManager,             colorManager_),
    HELD(getConfigManager,            configMgr_),
    HELD(getEOMDependencyMgr,         eomObjectFactory_),
    HELD(getEOMObjectFactory,         eomObjectFactory_),
    HELD(getEOMUtility,               eomObjectFactory_),
    HELD(getEntRefContainerFactory,   entRefContainerFactory_),
    HELD(getEntityRefListFactory,     entRefListFactory_),
    HELD(getFileUtils,                fileUtils_),
    HELD(getFrameworkAccess,          frameworkAccess_),
    HELD(getIEntRefFactory,           entRefFactory_),
    HELD(getInterfaceAdapterManager,  adapterManager_),
    HELD(getMetaDataManagerService,   metaDataManager_),
    HELD(getObjectPropertiesManager,  objectPropertiesManager_),
    HELD(getObjectReferenceManager,   entRefUtil_),
    HELD(getObjectReferenceUtilities, entRefUtil_),
    HELD(getPFW,                      PFW_),
    HELD(getPathUtils,                pathUtils_),
    HELD(getPivotManager,             pivotManager_),
    HELD(getPluginMgrService,         pluginMgr_),
    HELD(getRootManager,              rootManager_),
    HELD(getSelectionManager,         selectionManager_),
    HELD(getTransactionBroker,        transactionBrokerFactory_),
    HELD(getTypeBuffer,               typeBuffer_),
    HELD(getUndoRedoFactory,          undoRedoFactory_),
    HELD(getUtilUnitsService,         kfrUnitsSvc_),
};
// clang-format on

#undef HELD

TEST(HeldService, IsItsOwnMemberOfTheHolder)
{
    for (auto const& row : kHeldCases) {
        SCOPED_TRACE(row.operation);
        test::PlatformScope platform;
        EXPECT_THAT(row.ask(), IsNullHandle());
        fillHolder();
        EXPECT_THAT(row.ask(), IsObject(row.member()));
        Holder::releaseAll();
        EXPECT_THAT(row.ask(), IsNullHandle());  // nothing is kept
        EXPECT_THAT(platform.services().lookUps(), ::testing::IsEmpty());
    }
}

TEST(HeldServices, OfTheTwoHoldersAreDifferentOnes)
{
    test::PlatformScope platform;
    fillHolder();
    EXPECT_TRUE(appfw::ServiceCacheAppFrame::PFW_ == KFR::NULLSP);
    EXPECT_TRUE(appfw::ServiceCacheAppFrame::eomObjectFactory_ == KFR::NULLSP);
    EXPECT_TRUE(appfw::ServiceCacheAppFrame::frameworkAccess_ == KFR::NULLSP);
    std::set<long long> objects;
    for (auto const& row : kHeldCases) {
        objects.insert(row.ask()->getInstanceID());
    }
    EXPECT_EQ(objects.size(),
              24u);  // 28 operations, of which two pairs and a triple share a member
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
