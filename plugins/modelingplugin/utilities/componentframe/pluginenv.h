/// \file
/// What the library reads from its surroundings: environment variables and the developers' settings.

#pragma once

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrconfiguration.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <map>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// Environment variables, and the settings of the group "VRN.ModelingPlugin.NonDeliverable", which
/// developers have and users do not.
///
/// Failure    Silent: what cannot be read has the default that its operation names.
/// Threads    Main thread, no lock.
class MODELING_API PluginEnv {
public:
    using FloatValue = KFR::Util::Units::FloatValue;

    static PluginEnv* instance();
    PluginEnv(PluginEnv const&) = delete;
    PluginEnv& operator=(PluginEnv const&) = delete;

    /// Whether "NEW_TESTRUNNER" is set, empty or not. Read anew at every call.
    [[nodiscard]] bool isTestMode() const;

    /// Value of an environment variable, read once per process: what the first call gave, be it the
    /// variable or the default of that call, is what all later calls give.
    std::string getEnvValue(icu::UnicodeString const& name, std::string const& defaultValue);
    /// "TEMP"; empty where it is not set.
    std::string getTempFolderPath();
    /// "ORLO_MODELING_PERFORMANCE_LOG" as a truth value.
    bool isEnablePerformanceLog();

    // Developers' settings. The group is asked for until it is there, and never anew after that.

    /// The truth value of a key; false without group, key or value.
    bool isDevConfigSet(icu::UnicodeString const& key);
    bool isRunSPFScenarioSet();
    bool isScenarioDebugEnabled();
    bool isPrintDMGraphSet();
    bool isGlueDiagnosticsSet();
    bool isNodeTieRepDisplay();
    /// True also without a group and without the key; false for every word but "linear".
    bool isLinearSPFSimType();
    /// Least level that the log takes, 0 to 3; 4, which lets nothing through, for every other value
    /// and for none.
    long long getModelingLogFilter();
    /// 1, or 0 for every other value and for none.
    long long getCoLinearCalculationMethod();
    /// 0.001 in the unit 0xC0001 where it is not set.
    FloatValue getCoLinearTolerance();
    /// The number that a key holds as a text; 0 without one.
    float getManufacturingDisplaySize(icu::UnicodeString key);

    [[nodiscard]] long long getAEMSolutionMode() const { return 1; }
    [[nodiscard]] bool showUnexposedModelingTools() const { return false; }

    /// Whether nobody sits in front of the application; false when it does not say.
    bool isHeadlessOrHandlessMode();

    /// "EnableAggregatePattern" of the display settings, whose file is loaded at every call.
    bool CheckedDDMAggregatePattern();

    /// Whether the developers' settings are there.
    static bool loadConfig();

private:
    PluginEnv() = default;
    ~PluginEnv() = default;

    std::map<icu::UnicodeString, icu::UnicodeString> m_values;
    static KFRSmartPointer<KFRIConfigurationInterface> s_devConfig;
};

}  // namespace vrn::orlo::plugin::modeling
