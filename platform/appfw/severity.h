/// \file
/// How grave a message to the user is.

#pragma once

namespace vrn::orlo::appfw {

/// Order      Ascending: a graver message has a greater number.
enum class Severity : int { plain = 0, information = 1, warning = 2, error = 3 };

}  // namespace vrn::orlo::appfw
