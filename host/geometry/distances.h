/// \file
/// Exact distances from points to the kernel's shapes.

#pragma once

#include <optional>

#include <gp_Pnt.hxx>
#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometry {

/// mm from a point to a trimmed face, an edge or a vertex. An edge without length lies in its
/// vertex.
///
/// Failure    Nothing for a shape that the kernel fails on, or that has no place.
[[nodiscard]] std::optional<double> distanceTo(TopoDS_Shape const& shape, gp_Pnt const& point);

/// True for a point inside one of the solids in a shape, or on its boundary. False, too, where the
/// kernel fails.
[[nodiscard]] bool isInSolid(TopoDS_Shape const& shape, gp_Pnt const& point);

}  // namespace vrn::orlo::host::geometry
