/// \file
/// One configuration of the application.

#pragma once

#include "host/kernel/settingsfile.h"

#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfrserviceobject.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {

/// Codes of settings that are not to be had; each comes with a text as its first parameter.
enum SettingsFailure : int {
    kNoSuchFile = 1,     ///< Looked for everywhere.
    kFileLocked = 2,     ///< Somebody else's lock did not go in time.
    kBrokenFile = 3,     ///< There, but no file of settings; the text tells the line.
    kNoSuchSection = 4,  ///< A good file without that top-level group.
    kNoSuchKey = 5,      ///< Also a text that the key does not have.
    kWrongType = 6,      ///< The key is there, but what it says is no such value.
    kNoSuchGroup = 7,    ///< From the manager: a developer group that nothing defines.
};

/// Where files with a relative name are looked for, in this order.
using SearchFolders = std::vector<std::filesystem::path>;

/// Settings of one name, from files and from the command line, which wins.
///
/// Failure    As SettingsFailure says. What a file or a value is refused for is logged too: a file
///            as an error every time, but for one that is not there; a value as a warning, once for
///            its key.
/// Threads    Any thread.
class Configuration final : public KFRServiceObjectImpl<KFRIConfigurationInterface> {
public:
    /// \param name  for messages only
    /// \param settings  what it begins with
    Configuration(std::string name, std::shared_ptr<SearchFolders const> folders,
                  Settings settings);

    /// Overrides a key, whatever files say before or after; all texts of a key with several. A
    /// number takes the unit that the file's has, or brings its own as a 32-bit unit code after a
    /// blank: "0.001 0xC0001".
    void set(std::string const& key, std::string const& text);

    /// Adds the settings of a file to those that are there; a key in both takes the file's value.
    /// After a failure everything is as it was.
    ///
    /// While it reads, a file with the extension ".lck" stands beside the settings file, so that
    /// those who write it wait. Where none can be made, as in a folder that is read-only, the file
    /// is read without.
    /// \param file     '\\' counts as '/'; a relative name is looked for in the search folders
    /// \param section  keep that top-level group only, its name in front of its keys as ever
    /// \param mode, reserved  the framework's; nothing here depends on them
    /// \param timeout  for how long to wait for another's lock, in milliseconds
    KFRResult load(icu::UnicodeString const& file, icu::UnicodeString const& section, int mode,
                   int reserved, int timeout) override;

    /// The words of KFR::readBool.
    KFRResult readBool(icu::UnicodeString const& key, bool& value) override;
    /// Decimal digits, with a sign or without.
    KFRResult readInt(icu::UnicodeString const& key, long long& value) override;
    /// A finite number; the decimal sign is a point.
    KFRResult readDouble(icu::UnicodeString const& key, double& value) override;
    KFRResult readString(icu::UnicodeString const& key, int index,
                         icu::UnicodeString& value) override;
    /// A number with a unit.
    KFRResult readFloatValue(icu::UnicodeString const& key,
                             KFR::Util::Units::FloatValue& value) override;

    std::string getObjectName() override { return "vrn.orlo.host.kernel:Configuration"; }

private:
    [[nodiscard]] std::optional<Setting> find(std::string const& key);
    [[nodiscard]] KFRResult missing(std::string const& key) const;
    KFRResult refuse(std::string const& key, Setting const& setting, char const* wanted);
    template <class Value, class Parse>
    KFRResult read(icu::UnicodeString const& key, char const* wanted, Parse parse, Value& value);

    std::string const m_name;
    std::shared_ptr<SearchFolders const> const m_folders;
    std::mutex m_mutex;  // guards all below
    Settings m_settings;
    Settings m_overrides;
    std::set<std::string> m_refused;  // keys whose value has been logged
};

}  // namespace vrn::orlo::host::kernel
