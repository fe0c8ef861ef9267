/// \file
/// Arithmetic of placements: rotation, scale and translation in three rows of four.

#pragma once

#include "host/geometry/geometrymodel.h"

namespace vrn::orlo::host::geometry {

/// First `inner`, then `outer`.
[[nodiscard]] Placement composed(Placement const& outer, Placement const& inner);

/// Negative for a placement that mirrors; not 1 for one that scales.
[[nodiscard]] double determinant(Placement const& placement);

/// True when axes come to lie on axes, so that a tight box stays tight.
[[nodiscard]] bool mapsAxesToAxes(Placement const& placement);

/// The box around the eight moved corners of a box; empty for an empty one.
[[nodiscard]] Box movedBox(Box const& box, Placement const& placement);

}  // namespace vrn::orlo::host::geometry
