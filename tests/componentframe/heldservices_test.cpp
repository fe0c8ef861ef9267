// The services that are read from the holder of another library.

#include "platform/eom/eom.h"
#include "platform/mxp/domparser.h"
#include "platform/study/study.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "tests/support/appframefakes.h"
#include "tests/support/commandfakes.h"
#include "tests/support/fakeunits.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <set>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using Holder = ServiceCacheModelingPlugin;
using test::IsNullHandle;
using test::IsObject;
using test::makePlain;

template <class I>
void fillPlain(KFRSmartPointer<I>& member)
{
    member = makePlain<I>();
}

/// Puts an object of its own into every member of the holder.
void fillHolder()
{
    fillPlain(Holder::DOMParser_);
    fillPlain(Holder::studyEntityFactory_);
    Holder::transactionBrokerFactory_ = KFR::make<test::FakeTransactionBroker>();
    Holder::undoRedoFactory_ = KFR::make<test::FakeUndoRedoFactory>();
    Holder::trashBinFactory_ = KFR::make<test::FakeTrashBinFactory>();
    fillPlain(Holder::pluginMgr_);
    fillPlain(Holder::pivotManager_);
    fillPlain(Holder::objectPropertiesManager_);
    fillPlain(Holder::entityAssociationManager_);
    fillPlain(Holder::colorManager_);
    fillPlain(Holder::typeBuffer_);
    fillPlain(Holder::metaDataManager_);
    fillPlain(Holder::entRefUtil_);
    Holder::commandProcessor_ = KFR::make<test::FakeCmdProcessor>();
    Holder::configMgr_ = KFR::make<test::FakeConfigurationManager>();
    Holder::pathUtils_ = KFR::make<test::FakePathUtils>();
    Holder::fileUtils_ = KFR::make<test::FakeFileUtils>();
    Holder::kfrUnitsSvc_ = KFR::make<test::FakeUnits>();
    fillPlain(Holder::entRefListFactory_);
    fillPlain(Holder::eomObjectFactory_);
    Holder::PFW_ = KFR::make<test::FakePFW>();
    fillPlain(Holder::entRefContainerFactory_);
    fillPlain(Holder::adapterManager_);
    Holder::rootManager_ = KFR::make<test::FakeRootManager>();
    Holder::selectionManager_ = KFR::make<test::FakeSelectionManager>();
    fillPlain(Holder::entRefFactory_);
    Holder::frameworkAccess_ = KFR::make<test::FakeFrameworkAccess>();
}

struct HeldCase {
    char const* operation;
    KFRIService (*ask)();
    KFRIService (*member)();
};

void PrintTo(HeldCase const& row, std::ostream* out)
{
    *out << row.operation;
}

class HeldService : public ::testing::TestWithParam<HeldCase> {};

TEST_P(HeldService, IsItsOwnMemberOfTheHolder)
{
    test::PlatformScope platform;
    EXPECT_THAT(GetParam().ask(), IsNullHandle());
    fillHolder();
    EXPECT_THAT(GetParam().ask(), IsObject(GetParam().member()));
    Holder::releaseAll();
    EXPECT_THAT(GetParam().ask(), IsNullHandle());  // nothing is kept
    EXPECT_THAT(platform.services().lookUps(), ::testing::IsEmpty());
}

#define HELD(operation, name)                       \
    HeldCase                                        \
    {                                               \
#operation, &ServiceHelper::operation, [] { \
            return KFRIService(Holder::name);       \
        }                                           \
    }

// clang-format off
HeldCase const kHeldCases[] = {
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
    HELD(getSelectionManager,         selectionManager_),
    HELD(getTransactionBroker,        transactionBrokerFactory_),
    HELD(getTypeBuffer,               typeBuffer_),
    HELD(getUndoRedoFactory,          undoRedoFactory_),
    HELD(getUtilUnitsService,         kfrUnitsSvc_),
};
// clang-format on

#undef HELD

INSTANTIATE_TEST_SUITE_P(ServiceHelper, HeldService, ::testing::ValuesIn(kHeldCases),
                         [](auto const& row) { return std::string(row.param.operation); });

TEST(HeldServices, GiveTheRootManagerTyped)
{
    test::PlatformScope platform;
    EXPECT_THAT(ServiceHelper::getRootManager(), IsNullHandle());
    fillHolder();
    KFRSmartPointer<appfw::IRootManagerInterface> const root = ServiceHelper::getRootManager();
    EXPECT_EQ(root.get(), Holder::rootManager_.get());
}

TEST(HeldServices, AreANewReferenceEach)
{
    test::PlatformScope platform;
    auto const files = KFR::make<test::FakeFileUtils>();
    Holder::fileUtils_ = files;
    KFRIService const first = ServiceHelper::getFileUtils();
    KFRIService const second = ServiceHelper::getFileUtils();
    EXPECT_EQ(files->referenceCount(), 4);
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
              23u);  // 27 operations, of which two pairs and a triple share a member
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
