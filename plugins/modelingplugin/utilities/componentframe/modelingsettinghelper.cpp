#include "plugins/modelingplugin/utilities/componentframe/modelingsettinghelper.h"

#include "platform/sysutils/sysutils.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <unicode/locid.h>

#include <string>

namespace vrn::orlo::plugin::modeling {

using Configuration = KFRSmartPointer<KFRIConfigurationInterface>;
using KFR::NULLSP;
using KFR::Util::SystemUtils::KFRIFileUtilsInterface;
using KFR::Util::SystemUtils::KFRIOSUtilsInterface;

namespace {

/// Where a plug-in's settings are.
struct SettingsSource {
    char16_t const* m_keyBegin;  ///< How its keys begin, in lower case.
    char16_t const* m_name;      ///< Of the configuration.
    char16_t const* m_folderVariable;
    char16_t const* m_file;
    char16_t const* m_lock;  ///< What the framework's loader leaves behind in a crash.
};

constexpr SettingsSource kModeling{u"modelingplugin", u"ModelingConfiguration", u"APP_DIR",
                                   u"\\Plugins\\ModelingPlugin\\res\\ModelingConfig.xml",
                                   u"\\Plugins\\ModelingPlugin\\res\\ModelingConfig.lck"};
constexpr SettingsSource kFEM{u"femplugin", u"FEMConfig", u"LEAF_DIR",
                              u"\\Plugins\\FEMPlugin\\res\\FEMConfig.xml",
                              u"\\Plugins\\FEMPlugin\\res\\FEMConfig.lck"};

KFRResult load(SettingsSource const& source, Configuration& out)
{
    out.release();
    auto const manager =
        KFR::loose_cast<KFRIConfigurationManagerInterface>(ServiceHelper::getConfigManager());
    if (manager == NULLSP) {
        return KFR::notDone;
    }
    if (!manager->getConfiguration(source.m_name, out).isOk() || out == NULLSP) {
        out.release();
        return KFR::notDone;
    }
    KFRIService const utilities = ServiceHelper::getPathUtils();
    auto const files = KFR::loose_cast<KFRIFileUtilsInterface>(utilities);
    auto const system = KFR::loose_cast<KFRIOSUtilsInterface>(utilities);
    if (files == NULLSP || system == NULLSP) {
        return KFR::notDone;
    }
    std::string folder;
    if (!system->getEnvironmentVariable(source.m_folderVariable, folder).isOk()) {
        return KFR::notDone;
    }
    icu::UnicodeString const file = icu::UnicodeString::fromUTF8(folder) + source.m_file;
    icu::UnicodeString const lock = icu::UnicodeString::fromUTF8(folder) + source.m_lock;
    if (KFRResult const there = files->exists(file); !there.isOk()) {
        return there;
    }
    if (files->exists(lock).isOk() && !files->remove(lock).isOk()) {
        static_cast<void>(files->remove(lock));
    }
    KFRResult const there = files->exists(file);
    return there.isOk() ? out->load(file, u"", 3, 0, 1000) : there;
}

/// Loads at the first use. What a failed load leaves, settings without keys or none, is given out
/// all the same; only none is tried again.
Configuration const& loaded(SettingsSource const& source, Configuration& kept)
{
    if (kept == NULLSP) {
        static_cast<void>(load(source, kept));
    }
    return kept;
}

template <class Value>
KFRResult read(KFRResult (KFRIConfigurationInterface::*operation)(icu::UnicodeString const&,
                                                                  Value&),
               icu::UnicodeString const& key, Value& value)
{
    Configuration const settings = ModelingSettingHelper::getConfigByOption(key);
    return settings != NULLSP ? (settings.get()->*operation)(key, value) : KFR::notDone;
}

}  // namespace

ModelingSettingHelper* ModelingSettingHelper::instance()
{
    static ModelingSettingHelper helper;
    return &helper;
}

Configuration ModelingSettingHelper::getConfigByOption(icu::UnicodeString const& key)
{
    static Configuration modeling;
    static Configuration fem;
    icu::UnicodeString const lower = icu::UnicodeString(key).toLower(icu::Locale::getRoot());
    // Only the beginning counts, with or without a dot after it.
    if (lower.startsWith(kModeling.m_keyBegin)) {
        return loaded(kModeling, modeling);
    }
    if (lower.startsWith(kFEM.m_keyBegin)) {
        return loaded(kFEM, fem);
    }
    return {};
}

KFRResult ModelingSettingHelper::LoadModelingConfiguration(Configuration& out)
{
    return load(kModeling, out);
}

KFRResult ModelingSettingHelper::LoadFEMConfiguration(Configuration& out)
{
    return load(kFEM, out);
}

KFRResult ModelingSettingHelper::loadBoolConfiguration(icu::UnicodeString const& key, bool& value)
{
    return read(&KFRIConfigurationInterface::readBool, key, value);
}

KFRResult ModelingSettingHelper::loadDoubleConfiguration(icu::UnicodeString const& key,
                                                         double& value)
{
    return read(&KFRIConfigurationInterface::readDouble, key, value);
}

KFRResult ModelingSettingHelper::loadIntConfiguration(icu::UnicodeString const& key,
                                                      long long& value)
{
    return read(&KFRIConfigurationInterface::readInt, key, value);
}

KFRResult ModelingSettingHelper::loadStringConfiguration(icu::UnicodeString const& key,
                                                         icu::UnicodeString& value)
{
    Configuration const settings = getConfigByOption(key);
    return settings != NULLSP ? settings->readString(key, 0, value) : KFR::notDone;
}

}  // namespace vrn::orlo::plugin::modeling
