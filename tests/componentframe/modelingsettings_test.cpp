// The settings of the modeling and the meshing plug-in.

#include "plugins/modelingplugin/utilities/componentframe/modelingsettinghelper.h"

#include "tests/support/appframefakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"
#include "tests/support/settingsfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace vrn::orlo::plugin::modeling {
namespace {

using Helper = ModelingSettingHelper;
using Configuration = KFRSmartPointer<KFRIConfigurationInterface>;
using Load = test::FakeConfiguration::Load;
using test::IsNullHandle;
using test::IsObject;
using ::testing::ElementsAre;

/// An application that has all that both loads need.
struct Application {
    test::PlatformScope platform;
    KFRSmartPointer<test::FakeSettings> settings = KFR::make<test::FakeSettings>();
    KFRSmartPointer<test::FakeSystem> system = KFR::make<test::FakeSystem>();
    KFRSmartPointer<test::FakeConfiguration> modeling = settings->put(u"ModelingConfiguration");
    KFRSmartPointer<test::FakeConfiguration> fem = settings->put(u"FEMConfig");

    Application()
    {
        ServiceCacheModelingPlugin::configMgr_ = settings;
        ServiceCacheModelingPlugin::pathUtils_ = system;
        system->variables = {{u"APP_DIR", "C:\\app"}, {u"LEAF_DIR", "C:\\leaf"}};
        system->files = {u"C:\\app\\Plugins\\ModelingPlugin\\res\\ModelingConfig.xml",
                         u"C:\\leaf\\Plugins\\FEMPlugin\\res\\FEMConfig.xml"};
    }
};

constexpr struct {
    KFRResult (*load)(Configuration&);
    KFRSmartPointer<test::FakeConfiguration> Application::*configuration;
    char16_t const* folderVariable;
    char16_t const* file;
    char16_t const* lock;
} kSources[] = {{&Helper::LoadModelingConfiguration, &Application::modeling, u"APP_DIR",
                 u"C:\\app\\Plugins\\ModelingPlugin\\res\\ModelingConfig.xml",
                 u"C:\\app\\Plugins\\ModelingPlugin\\res\\ModelingConfig.lck"},
                {&Helper::LoadFEMConfiguration, &Application::fem, u"LEAF_DIR",
                 u"C:\\leaf\\Plugins\\FEMPlugin\\res\\FEMConfig.xml",
                 u"C:\\leaf\\Plugins\\FEMPlugin\\res\\FEMConfig.lck"}};

TEST(ModelingSettings, AreLoadedAfterTwoAttemptsAtMostToRemoveAStaleLock)
{
    for (auto const& [load, configuration, variable, file, lock] : kSources) {
        for (int const failing : {0, 1, 2}) {
            Application application;
            application.system->files.insert(lock);
            application.system->failingRemovals = failing;
            Configuration out;
            EXPECT_TRUE(load(out).isOk());
            EXPECT_THAT(out, IsObject(application.*configuration));
            EXPECT_THAT((application.*configuration)->loads,
                        ElementsAre(Load{file, u"", 3, 0, 1000}));
            EXPECT_EQ(application.system->removals, failing == 0 ? 1 : 2);
            EXPECT_EQ(application.system->files.contains(lock), failing == 2);
        }
    }
}

TEST(ModelingSettings, FailAsTheirFileDoesAndGenericallyWithoutASource)
{
    for (auto const& [load, configuration, variable, file, lock] : kSources) {
        Application application;
        Configuration out;
        (application.*configuration)->loadResult = 35;
        EXPECT_EQ(load(out).getCode(), 35);
        application.system->files = {lock};
        EXPECT_EQ(load(out).getCode(), 32);  // what the test for the file gave
        EXPECT_THAT(out, IsObject(application.*configuration));
        EXPECT_EQ((application.*configuration)->loads.size(), 1u);
        EXPECT_EQ(application.system->removals, 0);
        application.system->variables.erase(variable);
        EXPECT_EQ(load(out).getCode(), KFR::notDone);
        ServiceCacheModelingPlugin::pathUtils_ = KFR::make<test::FakePathUtils>();  // paths only
        EXPECT_EQ(load(out).getCode(), KFR::notDone);
        application.settings->known.clear();
        EXPECT_EQ(load(out).getCode(), KFR::notDone);
        EXPECT_THAT(out, IsNullHandle());
        out = application.modeling;
        ServiceCacheModelingPlugin::configMgr_ = KFR::NULLSP;
        EXPECT_EQ(load(out).getCode(), KFR::notDone);
        EXPECT_THAT(out, IsNullHandle());
    }
}

TEST(ModelingSettings, AreChosenByTheBeginningOfTheKeyAndLoadedOnce)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        Application application;
        application.settings->known.erase(u"ModelingConfiguration");
        EXPECT_THAT(Helper::getConfigByOption(u"ModelingPlugin.X"), IsNullHandle());
        application.settings->known[u"ModelingConfiguration"] = application.modeling;
        application.modeling->loadResult = 35;  // the settings are there all the same
        for (char16_t const* const key : {u"MODELINGPLUGIN.X", u"modelingpluginX"}) {
            EXPECT_THAT(Helper::getConfigByOption(key), IsObject(application.modeling));
        }
        for (char16_t const* const key : {u"FemPlugin.X", u"FEMPLUGIN"}) {
            EXPECT_THAT(Helper::getConfigByOption(key), IsObject(application.fem));
        }
        for (char16_t const* const key : {u"", u"Modeling", u" ModelingPlugin.X", u"Other.X"}) {
            EXPECT_THAT(Helper::getConfigByOption(key), IsNullHandle());
        }
        EXPECT_EQ(application.modeling->loads.size(), 1u);
        EXPECT_EQ(application.fem->loads.size(), 1u);
    });
}

TEST(ModelingSettings, AreReadByTheFullKeyAndAFailureLeavesTheValue)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        Application application;
        auto const expectReads = [](icu::UnicodeString const& begin, int code, bool flag,
                                    long long integer, double number, char16_t const* text) {
            bool readFlag = true;
            long long readInteger = 1;
            double readNumber = 1.0;
            icu::UnicodeString readText(u"1");
            EXPECT_EQ(Helper::loadBoolConfiguration(begin + u".B", readFlag).getCode(), code);
            EXPECT_EQ(Helper::loadIntConfiguration(begin + u".I", readInteger).getCode(), code);
            EXPECT_EQ(Helper::loadDoubleConfiguration(begin + u".D", readNumber).getCode(), code);
            EXPECT_EQ(Helper::loadStringConfiguration(begin + u".S", readText).getCode(), code);
            EXPECT_EQ(std::tuple(readFlag, readInteger, readNumber, readText),
                      std::tuple(flag, integer, number, icu::UnicodeString(text)));
        };
        application.fem->values = {{u"FEMPlugin.B", KFRAny(false)},
                                   {u"FEMPlugin.I", KFRAny(1LL << 40)},
                                   {u"FEMPlugin.D", KFRAny(0.25)},
                                   {u"FEMPlugin.S", KFRAny(icu::UnicodeString(u"text"))}};
        expectReads(u"FEMPlugin", KFR::ok, false, 1LL << 40, 0.25, u"text");
        expectReads(u"ModelingPlugin", 31, true, 1, 1.0, u"1");
        expectReads(u"Other", KFR::notDone, true, 1, 1.0, u"1");
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
