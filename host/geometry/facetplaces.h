/// \file
/// Places on faces that are made of triangles and have no surface.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <gp_Lin.hxx>
#include <gp_XYZ.hxx>
#include <TopoDS_Face.hxx>

namespace vrn::orlo::host::geometry {

/// A place on a triangle.
struct FacetPlace {
    gp_XYZ m_point;
    gp_XYZ m_normal;  ///< Unit vector out of the body.
};

/// The place that is nearest to a point, on the first of the triangles that are equally near.
/// Nothing for a face without a triangle that has an area.
[[nodiscard]] std::optional<FacetPlace> nearestOnFacets(TopoDS_Face const& face,
                                                        gp_XYZ const& point);

/// Parameters of the line, ascending, where it goes through a triangle or its boundary. One at
/// which two triangles meet comes twice.
[[nodiscard]] std::vector<double> crossingsOfFacets(TopoDS_Face const& face, gp_Lin const& line);

/// The middles of triangles, at most `count` of them, spread over the order of the triangles.
[[nodiscard]] std::vector<gp_XYZ> middlesOfFacets(TopoDS_Face const& face, std::size_t count);

}  // namespace vrn::orlo::host::geometry
