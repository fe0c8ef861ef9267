// Environment variables and the developers' settings.

#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"

#include "tests/support/appframefakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"
#include "tests/support/settingsfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::FakeSettings;
using test::PlatformScope;

constexpr char const* kManager = "KFR.Framework.ConfigurationManager";
constexpr char16_t const* kGroup = u"VRN.ModelingPlugin.NonDeliverable";

PluginEnv& env()
{
    return *PluginEnv::instance();
}

TEST(PluginEnv, IsInTestModeForAnyValueOfTheVariableAtEveryCall)
{
    for (char const* const value : {"", "false"}) {
        ::setenv("NEW_TESTRUNNER", value, 1);
        EXPECT_TRUE(env().isTestMode());
        ::unsetenv("NEW_TESTRUNNER");
        EXPECT_FALSE(env().isTestMode());
    }
}

TEST(PluginEnv, ReadsAVariableOnceAndKeepsTheFirstDefault)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        auto const system = KFR::make<test::FakeSystem>();
        ServiceCacheModelingPlugin::fileUtils_ = system;
        system->variables[u"SET"] = "Stra\xC3\x9F";
        EXPECT_EQ(env().getEnvValue(u"SET", "default"), "Stra\xC3\x9F");
        EXPECT_EQ(env().getEnvValue(u"UNSET", "first"), "first");
        system->variables = {{u"SET", "late"},
                             {u"UNSET", "late"},
                             {u"TEMP", "/tmp"},
                             {u"ORLO_MODELING_PERFORMANCE_LOG", "TRUE"}};
        EXPECT_EQ(env().getEnvValue(u"SET", ""), "Stra\xC3\x9F");
        EXPECT_EQ(env().getEnvValue(u"UNSET", "second"), "first");
        EXPECT_EQ(env().getTempFolderPath(), "/tmp");
        EXPECT_TRUE(env().isEnablePerformanceLog());
        ServiceCacheModelingPlugin::fileUtils_ = KFR::NULLSP;
        EXPECT_EQ(env().getEnvValue(u"NOBODY", "to ask"), "to ask");
        ServiceCacheModelingPlugin::fileUtils_ = KFR::make<test::FakeFileUtils>();
        EXPECT_THROW(env().getEnvValue(u"OTHER", ""), KFRException);  // reads no variables
    });
}

TEST(PluginEnv, HasItsDefaultsUntilTheDevelopersSettingsAreThereAndThenKeepsThese)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        auto const expectDefaults = [] {
            EXPECT_FALSE(PluginEnv::loadConfig());
            EXPECT_FALSE(env().isDevConfigSet(u"GLUE_DIAGNOSTICS"));
            EXPECT_TRUE(env().isLinearSPFSimType());
            EXPECT_EQ(env().getModelingLogFilter(), 4);
            EXPECT_EQ(env().getCoLinearCalculationMethod(), 0);
            EXPECT_EQ(env().getCoLinearTolerance(), (PluginEnv::FloatValue{1, 0x0C, 0, 0.001}));
            EXPECT_EQ(env().getManufacturingDisplaySize(u"SIZE"), 0.0F);
        };
        expectDefaults();
        auto const settings = KFR::make<FakeSettings>();
        platform.services().put(kManager, settings);
        expectDefaults();
        settings->put(kGroup)->values[u"GLUE_DIAGNOSTICS"] <<= true;
        EXPECT_TRUE(env().isGlueDiagnosticsSet());
        int const asked = settings->asked;
        settings->put(kGroup);
        EXPECT_TRUE(PluginEnv::loadConfig());
        EXPECT_TRUE(env().isGlueDiagnosticsSet());
        EXPECT_EQ(settings->asked, asked);
    });
}

TEST(PluginEnv, ReadsEachOfTheDevelopersKeysByItsName)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        auto const settings = KFR::make<FakeSettings>();
        auto const group = settings->put(kGroup);
        platform.services().put(kManager, settings);

        constexpr struct {
            char16_t const* key;
            bool (PluginEnv::*isSet)();
        } kFlags[] = {{u"RUN_SPF_SCENARIO", &PluginEnv::isRunSPFScenarioSet},
                      {u"SCENARIO_DEBUG", &PluginEnv::isScenarioDebugEnabled},
                      {u"VRN_PRINT_DM_GRAPH", &PluginEnv::isPrintDMGraphSet},
                      {u"GLUE_DIAGNOSTICS", &PluginEnv::isGlueDiagnosticsSet},
                      {u"NodeTie_RepDisplay", &PluginEnv::isNodeTieRepDisplay}};
        for (auto const& [key, isSet] : kFlags) {
            EXPECT_FALSE((env().*isSet)());
            group->values[key] <<= true;
            EXPECT_TRUE((env().*isSet)());
        }

        // clang-format off
        struct Number { long long value, filter, method; };
        constexpr Number kNumbers[] = {{0, 0, 0}, {1, 1, 1}, {2, 2, 0}, {3, 3, 0}, {4, 4, 0},
                                       {9, 4, 0}, {-1, 4, 0}, {1LL << 32, 4, 0}};
        // clang-format on
        EXPECT_EQ(env().getModelingLogFilter(), 4);
        for (auto const& [value, filter, method] : kNumbers) {
            group->values[u"LogFilter"] <<= value;
            group->values[u"VRN_ATTRIBUTES_COLINEAR_METHOD"] <<= value;
            EXPECT_EQ(env().getModelingLogFilter(), filter) << value;
            EXPECT_EQ(env().getCoLinearCalculationMethod(), method) << value;
        }
        EXPECT_TRUE(env().isLinearSPFSimType());
        for (char16_t const* const word : {u"linear", u"LiNEAR", u"linear ", u"", u"nonlinear"}) {
            group->values[u"SPF_SIMULATION_TYPE"] <<= icu::UnicodeString(word);
            EXPECT_EQ(env().isLinearSPFSimType(),
                      icu::UnicodeString(word).caseCompare(u"linear", 0) == 0);
        }
        PluginEnv::FloatValue const tolerance{7, 1, 2, 0.5};
        group->values[u"VRN_ATTRIBUTES_COLINEAR_TOLERANCE"] <<= tolerance;
        EXPECT_EQ(env().getCoLinearTolerance(), tolerance);
        group->values[u"SIZE"] <<= icu::UnicodeString(u"2.5");
        EXPECT_EQ(env().getManufacturingDisplaySize(u"SIZE"), 2.5F);
    });
}

TEST(PluginEnv, LoadsTheDisplaySettingsAtEveryQuestionForTheAggregatePattern)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        EXPECT_FALSE(env().CheckedDDMAggregatePattern());
        auto const settings = KFR::make<FakeSettings>();
        platform.services().put(kManager, settings);
        EXPECT_FALSE(env().CheckedDDMAggregatePattern());
        auto const display = settings->put(u"Display3DDataManager");
        EXPECT_FALSE(env().CheckedDDMAggregatePattern());  // loaded, without the key
        display->values[u"Graphics.EnableAggregatePattern"] <<= true;
        EXPECT_TRUE(env().CheckedDDMAggregatePattern());
        display->loadResult = KFR::notDone;
        EXPECT_FALSE(env().CheckedDDMAggregatePattern());
        test::FakeConfiguration::Load const load{u"DDMOptionsCfg.xml", u"Graphics", 0, 0, 3000};
        EXPECT_THAT(display->loads, ::testing::ElementsAre(load, load, load));
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
