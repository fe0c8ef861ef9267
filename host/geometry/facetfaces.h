/// \file
/// Faces that are made of triangles and have no surface: where they are, and what they enclose.
/// The kernel's own searches need a surface.

#pragma once

#include <array>
#include <optional>

#include <gp_XYZ.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometry {

/// True for a face that is made of triangles only.
[[nodiscard]] bool isFacetFace(TopoDS_Face const& face);

/// True when one of the shape's faces is made of triangles only.
[[nodiscard]] bool hasFacetFaces(TopoDS_Shape const& shape);

/// mm from a point to the nearest triangle; infinite for a face without triangles.
[[nodiscard]] double distanceToFacets(TopoDS_Face const& face, gp_XYZ const& point);

/// True for a point that the triangles of a shape's faces enclose. They must close up.
[[nodiscard]] bool areFacetsAround(TopoDS_Shape const& shape, gp_XYZ const& point);

/// The triangle whose middle is nearest to the centre of all of them.
struct MiddleFacet {
    gp_XYZ m_point;
    gp_XYZ m_normal;  ///< Unit vector; outward in a closed body.
};

/// Nothing for a face without a triangle that has an area.
[[nodiscard]] std::optional<MiddleFacet> middleFacet(TopoDS_Face const& face);

}  // namespace vrn::orlo::host::geometry
