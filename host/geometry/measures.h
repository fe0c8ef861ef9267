/// \file
/// Lengths, areas and volumes of the kernel's shapes.

#pragma once

#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometry {

/// mm of an edge, mm2 of a face, mm3 of a solid, never negative; 0 of anything else, and of a shape
/// whose measure the kernel cannot find. Faces made of triangles are measured by their triangles.
[[nodiscard]] double measureOf(TopoDS_Shape const& shape);

}  // namespace vrn::orlo::host::geometry
