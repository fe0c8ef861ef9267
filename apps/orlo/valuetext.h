/// \file
/// Values of properties as text, both ways.

#pragma once

#include "platform/kfr/kfrany.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vrn::orlo::app {

/// The value for people: numbers in their shortest form, texts in quotes, sequences in brackets,
/// records by their names and values, handles by their objects' names.
[[nodiscard]] std::string textOf(KFRAny const& value);

/// "(1, 2.5, 0)", rounded to a millionth for people: what is left of a sine is no coordinate.
[[nodiscard]] std::string textOf(std::array<double, 3> const& point);

/// Reads a text as a value of the kind of `like`; nothing when it is none. Whole numbers may be
/// hexadecimal, with "0x" in front.
[[nodiscard]] std::optional<KFRAny> valueOf(std::string_view text, KFRAny const& like);

/// What a value of the kind of `like` looks like, for messages: "true or false".
[[nodiscard]] std::string exampleOf(KFRAny const& like);

}  // namespace vrn::orlo::app
