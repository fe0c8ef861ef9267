/// \file
/// Splits triangles into bodies.

#pragma once

#include "host/geometry/shapestore.h"

#include <cstddef>
#include <vector>

#include <Poly_Triangulation.hxx>
#include <TopoDS_Compound.hxx>

namespace vrn::orlo::host::geometry {

/// Bodies made of triangles, each with one face that has triangles and no surface.
struct FacetBodies {
    TopoDS_Compound m_shape;          ///< All bodies.
    std::vector<BodyShape> m_bodies;  ///< In the order of their first triangle.
    std::size_t m_insideOut = 0;      ///< Closed bodies whose triangles pointed inwards.
};

/// Triangles that share an edge belong to one body. A closed body is a facet solid, and its
/// triangles are turned outwards; an open one is a facet sheet; one with an edge of more than two
/// triangles, or of one side only, is a facet general body. Triangles without area are left out.
///
/// Cost       Linear in the triangles.
[[nodiscard]] FacetBodies facetBodiesOf(Poly_Triangulation const& mesh);

}  // namespace vrn::orlo::host::geometry
