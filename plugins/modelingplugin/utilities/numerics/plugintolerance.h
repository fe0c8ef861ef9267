/// \file
/// The tolerance of the plug-in layer's geometry.

#pragma once

namespace vrn::orlo::plugin::modeling {

/// What Transform3, BoundingBox and isUnitMatrix take for nothing; absolute, in the caller's unit.
/// It is not the tolerance of the X3DS family (kVectorTolerance), and the two are kept apart.
inline constexpr double kPluginTolerance = 5e-9;

}  // namespace vrn::orlo::plugin::modeling
