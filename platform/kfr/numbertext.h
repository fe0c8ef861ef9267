/// \file
/// The framework's text of a number.

#pragma once

#include "platform/kfr/kfrapi.h"

#include <string>

namespace KFR {

/// Shortest text that reads back as the same number: "0", "0.5", "1e-09", "-0", "inf", "nan". The
/// shorter of plain and exponent notation, plain when they are equal. No locale.
///
/// Cost       No allocation beyond the answer.
[[nodiscard]] KFR_API std::string numberText(double value);

}  // namespace KFR
