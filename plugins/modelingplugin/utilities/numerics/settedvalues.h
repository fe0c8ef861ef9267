/// \file
/// What the wrappers of values that may be set have in common.

#pragma once

namespace vrn::orlo::plugin::modeling {

/// Values nearer than this are equal, and those nearer to 0 are zero. Absolute, strict.
inline constexpr double kSettedValueTolerance = 5e-9;

}  // namespace vrn::orlo::plugin::modeling
