/// \file
/// The triangles of a face, one by one.

#pragma once

#include <array>
#include <cstddef>
#include <utility>

#include <BRep_Tool.hxx>
#include <gp_XYZ.hxx>
#include <Poly_Triangulation.hxx>
#include <TopoDS_Face.hxx>

namespace vrn::orlo::host::geometry {

using FacetCorners = std::array<gp_XYZ, 3>;

/// Calls `visit` with the corners of each triangle, counter-clockwise seen from outside the body.
template <typename Visit>
void forEachFacetOf(TopoDS_Face const& face, Visit const& visit)
{
    TopLoc_Location location;
    Handle(Poly_Triangulation) const mesh = BRep_Tool::Triangulation(face, location);
    for (int i = 1; !mesh.IsNull() && i <= mesh->NbTriangles(); ++i) {
        std::array<int, 3> nodes{};
        mesh->Triangle(i).Get(nodes[0], nodes[1], nodes[2]);
        if (face.Orientation() == TopAbs_REVERSED) {
            std::swap(nodes[1], nodes[2]);
        }
        FacetCorners corners;
        for (std::size_t k = 0; k < 3; ++k) {
            corners[k] = mesh->Node(nodes[k]).Transformed(location.Transformation()).XYZ();
        }
        visit(corners);
    }
}

}  // namespace vrn::orlo::host::geometry
