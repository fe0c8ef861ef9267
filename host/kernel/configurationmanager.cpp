#include "host/kernel/configurationmanager.h"

#include "host/kernel/frameworklog.h"

#include <string_view>
#include <system_error>
#include <utility>

namespace vrn::orlo::host::kernel {

namespace {

constexpr std::string_view kDeveloperBegin = "VRN.";

}  // namespace

ConfigurationManager::ConfigurationManager(Options options)
    : m_folders(std::make_shared<SearchFolders const>(std::move(options.m_searchFolders))),
      m_developerFile(std::move(options.m_developerFile))
{
    std::error_code ignored;
    if (!m_developerFile || !std::filesystem::exists(*m_developerFile, ignored)) {
        return;
    }
    try {
        SettingsFile content = SettingsFile::read(*m_developerFile);
        content.m_groups.erase("");
        for (auto& [name, settings] : content.m_groups) {
            m_configurations[name] = KFR::make<Configuration>(name, m_folders, std::move(settings));
        }
    } catch (SettingsFileError const& error) {
        logToFramework(error.what(), LogLevel::error);
    }
}

KFRSmartPointer<Configuration> ConfigurationManager::configurationOf(std::string const& name)
{
    std::lock_guard const guard(m_mutex);
    KFRSmartPointer<Configuration>& configuration = m_configurations[name];
    if (configuration == KFR::NULLSP) {
        configuration = KFR::make<Configuration>(name, m_folders, Settings());
    }
    return configuration;
}

void ConfigurationManager::set(std::string const& group, std::string const& key,
                               std::string const& text)
{
    configurationOf(group)->set(key, text);
}

KFRResult ConfigurationManager::getConfiguration(
    icu::UnicodeString const& name, KFRSmartPointer<KFRIConfigurationInterface>& configuration)
{
    std::string group;
    name.toUTF8String(group);
    if (group.starts_with(kDeveloperBegin)) {
        std::lock_guard const guard(m_mutex);
        if (!m_configurations.contains(group)) {
            std::string const file = m_developerFile ? m_developerFile->string() : "a file";
            return KFRResult(kNoSuchGroup)
                .addParam("There is no developer group '" + group + "'; add <group name=\"" +
                          group + "\"> to " + file + " and start with that, or set a key of it.");
        }
    }
    configuration = configurationOf(group);
    return KFR::ok;
}

}  // namespace vrn::orlo::host::kernel
