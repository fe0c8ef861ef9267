/// \file
/// The parameter text of a service look-up.

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::kernel {

/// What the parameter text of a look-up says.
struct ServiceParameters {
    /// Service tables to resolve the name against, in the order of the text. More than one when a
    /// component appends its own to a text that names one already.
    std::vector<std::string> m_tables;
    /// All other items.
    std::map<std::string, std::string> m_values;

    /// Reads "key=value" items with commas between them. The keys "#" and "serviceTable" name a
    /// table. A value goes from the first '=' to the next comma and may be empty, but for a table's
    /// name.
    ///
    /// Failure    Nothing for a text with an empty item, an item without a key or without '=', a
    /// table
    ///            without a name, or a key that stands twice with different values.
    [[nodiscard]] static std::optional<ServiceParameters> parse(std::string_view text);
};

}  // namespace vrn::orlo::host::kernel
