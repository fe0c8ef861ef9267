/// \file
/// Tight boxes of the kernel's shapes.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometry {

/// The tight box of a shape: neither tolerances nor the control points of curves enlarge it.
///
/// Failure    Sub-shapes that the kernel cannot bound are left out.
/// Cost       Linear in the sub-shapes; a search for extremes only for free-form shapes that may
///            reach beyond all others.
[[nodiscard]] Box tightBox(TopoDS_Shape const& shape);

/// The tight box of a shape that is turned, mirrored or scaled. Empty when the kernel cannot do it.
[[nodiscard]] Box turnedTightBox(TopoDS_Shape const& shape, Placement const& placement);

/// Adds a box to a box. An empty one adds nothing.
void addBox(Box& box, Box const& other);

}  // namespace vrn::orlo::host::geometry
