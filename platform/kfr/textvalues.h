/// \file
/// The framework's readings of texts as values.

#pragma once

#include "platform/kfr/kfrapi.h"

#include <optional>
#include <string_view>

namespace KFR {

/// True for "true", "yes", "on" and "1" in any case of letters; false for every other text.
[[nodiscard]] KFR_API bool stringToBool(std::string_view text) noexcept;

/// The number at the beginning of the text, blanks before it left out; 0 when there is none, or
/// none that a float can hold. The decimal sign is a point, whatever the locale.
[[nodiscard]] KFR_API float stringToReal32(std::string_view text) noexcept;

/// A text that is a truth value and nothing else: "true", "yes", "on", "1", and "false", "no",
/// "off", "0", in any case of letters.
[[nodiscard]] KFR_API std::optional<bool> readBool(std::string_view text) noexcept;

}  // namespace KFR
