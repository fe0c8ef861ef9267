/// \file
/// The configurations of the application.

#pragma once

#include "host/kernel/configuration.h"

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace vrn::orlo::host::kernel {

/// Keeps the configurations by name.
///
/// A configuration of any name can be had, and is empty until it loads a file. Names that begin
/// with "VRN." are those of developer groups and the exception: without the developer's file or an
/// override there is no such group, and whoever asks for it goes by his defaults.
///
/// Failure    As SettingsFailure says.
/// Ownership  Configurations may be kept beyond the manager.
/// Threads    Any thread.
class ConfigurationManager final : public KFRServiceObjectImpl<KFRIConfigurationManagerInterface> {
public:
    struct Options {
        SearchFolders m_searchFolders;
        /// A file of settings whose top-level groups are configurations, filled from the start;
        /// their keys begin below the group. It need not be there.
        std::optional<std::filesystem::path> m_developerFile;
    };

    /// Reads the developer's file, once and for good. What is wrong with it is logged as an error,
    /// and there are no groups then.
    explicit ConfigurationManager(Options options);

    /// Overrides a key as the command line says: see Configuration::set. The group is there from
    /// then on.
    void set(std::string const& group, std::string const& key, std::string const& text);

    /// The same object for one name every time; nothing else is given out when it fails.
    KFRResult getConfiguration(icu::UnicodeString const& name,
                               KFRSmartPointer<KFRIConfigurationInterface>& configuration) override;

    std::string getObjectName() override { return "vrn.orlo.host.kernel:ConfigurationManager"; }

private:
    [[nodiscard]] KFRSmartPointer<Configuration> configurationOf(std::string const& name);

    std::shared_ptr<SearchFolders const> const m_folders;
    std::optional<std::filesystem::path> const m_developerFile;
    std::mutex m_mutex;  // guards all below
    std::map<std::string, KFRSmartPointer<Configuration>> m_configurations;
};

}  // namespace vrn::orlo::host::kernel
