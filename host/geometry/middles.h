/// \file
/// Places in the middle of the kernel's shapes, and the way out of a body there.

#pragma once

#include "host/geometry/geometrypicker.h"

#include <array>
#include <optional>

#include <gp_Pnt2d.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometry {

/// As GeometryPicker::middleOf() tells. Nothing, too, for a shape that the kernel fails on.
///
/// Cost       A face with a hole at its middle is searched on grids of up to 27 x 27 places.
[[nodiscard]] std::optional<Middle> middleOfShape(TopoDS_Shape const& shape);

/// The middle of an edge in the parameters of a face that it bounds; nothing for unbounded ones.
[[nodiscard]] std::optional<gp_Pnt2d> middleOnFace(TopoDS_Edge const& edge,
                                                   TopoDS_Face const& face);

/// The face's unit normal out of its body, at parameters of its surface; nothing where the surface
/// has none. Throws the kernel's failures.
[[nodiscard]] std::optional<std::array<double, 3>> outwardNormal(TopoDS_Face const& face,
                                                                 gp_Pnt2d const& place);

}  // namespace vrn::orlo::host::geometry
