#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"

#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"
#include "platform/appfw/frameworkaccess.h"
#include "platform/kfr/textvalues.h"
#include "platform/servicenames.h"
#include "platform/sysutils/sysutils.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <unicode/locid.h>

#include <cstdlib>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using KFR::Util::SystemUtils::KFRIOSUtilsInterface;

namespace {

KFRSmartPointer<KFRIConfigurationInterface> configurationOf(icu::UnicodeString const& name)
{
    auto const manager = KFR::strict_cast<KFRIConfigurationManagerInterface>(
        ServiceProviderHelper::getService(servicenames::kConfigurationManager, ""));
    KFRSmartPointer<KFRIConfigurationInterface> configuration;
    if (manager == NULLSP || !manager->getConfiguration(name, configuration).isOk()) {
        return {};
    }
    return configuration;
}

/// The value, unless it is outside 0 to `last`; negative ones are outside as well.
long long upTo(long long last, long long value, long long otherwise)
{
    return value < 0 || value > last ? otherwise : value;
}

}  // namespace

KFRSmartPointer<KFRIConfigurationInterface> PluginEnv::s_devConfig;

PluginEnv* PluginEnv::instance()
{
    static PluginEnv env;
    return &env;
}

bool PluginEnv::isTestMode() const
{
    return std::getenv("NEW_TESTRUNNER") != nullptr;
}

std::string PluginEnv::getEnvValue(icu::UnicodeString const& name, std::string const& defaultValue)
{
    std::string value = defaultValue;
    if (auto const known = m_values.find(name); known != m_values.end()) {
        value.clear();
        return known->second.toUTF8String(value);
    }
    if (auto const system = KFR::strict_cast<KFRIOSUtilsInterface>(ServiceHelper::getFileUtils());
        system != NULLSP) {
        static_cast<void>(system->getEnvironmentVariable(name, value));
    }
    m_values.emplace(name, icu::UnicodeString::fromUTF8(value));
    return value;
}

std::string PluginEnv::getTempFolderPath()
{
    return getEnvValue(u"TEMP", "");
}

bool PluginEnv::isEnablePerformanceLog()
{
    return KFR::stringToBool(getEnvValue(u"ORLO_MODELING_PERFORMANCE_LOG", "False"));
}

bool PluginEnv::loadConfig()
{
    if (s_devConfig == NULLSP) {
        s_devConfig = configurationOf(u"VRN.ModelingPlugin.NonDeliverable");
    }
    return s_devConfig != NULLSP;
}

bool PluginEnv::isDevConfigSet(icu::UnicodeString const& key)
{
    bool value = false;
    return loadConfig() && s_devConfig->readBool(key, value).isOk() && value;
}

bool PluginEnv::isRunSPFScenarioSet()
{
    return isDevConfigSet(u"RUN_SPF_SCENARIO");
}

bool PluginEnv::isScenarioDebugEnabled()
{
    return isDevConfigSet(u"SCENARIO_DEBUG");
}

bool PluginEnv::isPrintDMGraphSet()
{
    return isDevConfigSet(u"VRN_PRINT_DM_GRAPH");
}

bool PluginEnv::isGlueDiagnosticsSet()
{
    return isDevConfigSet(u"GLUE_DIAGNOSTICS");
}

bool PluginEnv::isNodeTieRepDisplay()
{
    return isDevConfigSet(u"NodeTie_RepDisplay");
}

bool PluginEnv::isLinearSPFSimType()
{
    icu::UnicodeString type;
    if (!loadConfig() || !s_devConfig->readString(u"SPF_SIMULATION_TYPE", 0, type).isOk()) {
        return true;
    }
    return type.toLower(icu::Locale::getRoot()) == u"linear";
}

long long PluginEnv::getModelingLogFilter()
{
    constexpr long long kNothing = 4;
    long long level = kNothing;
    if (loadConfig()) {
        static_cast<void>(s_devConfig->readInt(u"LogFilter", level));
    }
    return upTo(3, level, kNothing);
}

long long PluginEnv::getCoLinearCalculationMethod()
{
    long long method = 0;
    if (loadConfig()) {
        static_cast<void>(s_devConfig->readInt(u"VRN_ATTRIBUTES_COLINEAR_METHOD", method));
    }
    return upTo(1, method, 0);
}

PluginEnv::FloatValue PluginEnv::getCoLinearTolerance()
{
    FloatValue tolerance{0x0001, 0x0C, 0x00, 0.001};  // the unit code 0xC0001 in its parts
    if (loadConfig()) {
        static_cast<void>(
            s_devConfig->readFloatValue(u"VRN_ATTRIBUTES_COLINEAR_TOLERANCE", tolerance));
    }
    return tolerance;
}

float PluginEnv::getManufacturingDisplaySize(icu::UnicodeString key)
{
    icu::UnicodeString text;
    if (!loadConfig() || !s_devConfig->readString(key, 0, text).isOk()) {
        return 0.0F;
    }
    std::string utf8;
    return KFR::stringToReal32(text.toUTF8String(utf8));
}

bool PluginEnv::isHeadlessOrHandlessMode()
{
    auto const executive =
        KFR::strict_cast<appfw::KFRIAppExecutive>(ServiceHelper::getFrameworkAccess());
    return executive != NULLSP && executive->isHeadless() != 0;
}

bool PluginEnv::CheckedDDMAggregatePattern()
{
    static icu::UnicodeString const kSection(u"Graphics");
    static KFRSmartPointer<KFRIConfigurationInterface> display;
    if (display == NULLSP) {
        display = configurationOf(u"Display3DDataManager");
    }
    if (display == NULLSP || !display->load(u"DDMOptionsCfg.xml", kSection, 0, 0, 3000).isOk()) {
        return false;
    }
    bool enabled = false;
    return display->readBool(kSection + u".EnableAggregatePattern", enabled).isOk() && enabled;
}

}  // namespace vrn::orlo::plugin::modeling
