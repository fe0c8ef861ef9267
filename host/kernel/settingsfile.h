/// \file
/// Files of settings.

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {

/// What a setting says, not yet read as a value of any type.
struct Setting {
    std::vector<std::string> m_texts;  ///< UTF-8; at least one.
    /// Unit id in the low 16 bits, then the first and the second byte beside it.
    std::optional<std::uint32_t> m_unitCode;
    std::string m_place;  ///< "FILE:LINE", or who else said so.
};

/// Settings by key; keys tell capitals from small letters.
using Settings = std::map<std::string, Setting>;

/// A file that is no file of settings. The text is one line, "FILE:LINE: what is wrong; the mend",
/// without the line number where the file cannot be read at all.
class SettingsFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A file of settings, read whole:
///
/// \code
/// <settings name="ModelingConfiguration">
///   <group name="ModelingPlugin">
///     <group name="GravitySettings">
///       <value key="AutoCreate">true</value>
///       <value key="Vector"><item>0</item><item>0</item><item>-9.80665</item></value>
///       <value key="Acceleration" unit="0x080C" first="0" second="0">9.80665</value>
///     </group>
///   </group>
/// </settings>
/// \endcode
///
/// A setting's key is the names of its groups and its own with dots between them. A group may stand
/// in several parts; a key stands once. A value has a text, or items with a text each, or an empty
/// text. Blanks and line ends around a text do not count. A number with a unit has the unit's id,
/// up to 0xFFFF, as `unit`, and may have two bytes with it, 0 without them; all three are decimal
/// or, with "0x" in front, hexadecimal. The root's name is for the reader.
struct SettingsFile {
    /// By top-level group, with keys from below the group on; values outside of groups under "".
    std::map<std::string, Settings> m_groups;

    /// Failure    SettingsFileError, also for a file that cannot be read, is not UTF-8, or has an
    ///            element or attribute other than these.
    [[nodiscard]] static SettingsFile read(std::filesystem::path const& file);
};

}  // namespace vrn::orlo::host::kernel
