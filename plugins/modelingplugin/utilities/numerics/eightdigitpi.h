/// \file
/// The plug-in layer's pi.

#pragma once

namespace vrn::orlo::plugin::modeling {

/// Pi to eight decimals, which is what angles of screen and model space are compared with. The
/// missing digits are meant: half turns that are built from it do not end exactly opposite.
inline constexpr double kEightDigitPi = 3.14159265;

}  // namespace vrn::orlo::plugin::modeling
