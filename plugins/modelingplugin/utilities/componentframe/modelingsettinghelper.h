/// \file
/// The settings of the modeling and the meshing plug-in.

#pragma once

#include "platform/kfr/kfrconfiguration.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

namespace vrn::orlo::plugin::modeling {

/// Reads settings by their full key, "ModelingPlugin.GravitySettings.AutoCreate"; see
/// modelingsettingkeys.h.
///
/// The beginning of the key, in any case of letters, says which settings are meant: "modelingplugin"
/// or "femplugin". They are loaded from their file at the first use and not again in the process.
///
/// Failure    Results of the configuration service, or KFR::notDone without settings, with the
///            value as it was. A file that could not be loaded leaves settings without keys.
/// Threads    Main thread, no lock.
class MODELING_API ModelingSettingHelper {
public:
    static ModelingSettingHelper* instance();

    /// The settings that a key is of; null for any other key.
    static KFRSmartPointer<KFRIConfigurationInterface> getConfigByOption(
        icu::UnicodeString const& key);

    /// Makes the settings and loads "\Plugins\ModelingPlugin\res\ModelingConfig.xml" below the
    /// folder that "APP_DIR" names. A lock file beside it is removed: a crash may have left it.
    /// \param out  null when there are none; set, but without keys, when only the file fails
    static KFRResult LoadModelingConfiguration(KFRSmartPointer<KFRIConfigurationInterface>& out);
    /// The same with "\Plugins\FEMPlugin\res\FEMConfig.xml" and "LEAF_DIR".
    static KFRResult LoadFEMConfiguration(KFRSmartPointer<KFRIConfigurationInterface>& out);

    static KFRResult loadBoolConfiguration(icu::UnicodeString const& key, bool& value);
    static KFRResult loadDoubleConfiguration(icu::UnicodeString const& key, double& value);
    static KFRResult loadIntConfiguration(icu::UnicodeString const& key, long long& value);
    /// The first text of the key.
    static KFRResult loadStringConfiguration(icu::UnicodeString const& key,
                                             icu::UnicodeString& value);

private:
    ModelingSettingHelper() = default;
};

}  // namespace vrn::orlo::plugin::modeling
