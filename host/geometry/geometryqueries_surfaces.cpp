#include "host/geometry/edgeplaces.h"
#include "host/geometry/facetfaces.h"
#include "host/geometry/facetplaces.h"
#include "host/geometry/geometryqueries.h"
#include "host/geometry/geometryqueries_kept.h"
#include "host/geometry/partframe.h"

#include <cmath>

#include <gp_Pnt.hxx>
#include <gp_Pnt2d.hxx>

namespace vrn::orlo::host::geometry {

using Vector = GeometryQueries::Vector;

namespace {

/// Nothing for a face with a surface, too.
std::optional<FacetPlace> facetPlace(TopoDS_Face const& face, Vector const& point)
{
    bool const hasFacets = !face.IsNull() && isFacetFace(face);
    return hasFacets ? nearestOnFacets(face, xyzOf(point)) : std::nullopt;
}

std::optional<FacePlace> surfacePlace(FaceProbe* probe, Vector const& point)
{
    return probe == nullptr ? std::nullopt : probe->nearest(gp_Pnt(xyzOf(point)));
}

}  // namespace

std::optional<std::array<double, 2>> GeometryQueries::closestParameters(unsigned face,
                                                                        Vector const& point) const
{
    return orNothing([&]() -> std::optional<std::array<double, 2>> {
        if (!isFinite(point)) {
            return std::nullopt;
        }
        auto const place = surfacePlace(m_kept->probeOf(face), point);
        return place ? std::optional(std::array{place->m_parameters.X(), place->m_parameters.Y()})
                     : std::nullopt;
    });
}

std::optional<GeometryQueries::SurfaceFrame> GeometryQueries::surfaceFrame(
    unsigned face, std::array<double, 2> const& parameters) const
{
    return orNothing([&]() -> std::optional<SurfaceFrame> {
        FaceProbe* const probe = m_kept->probeOf(face);
        if (probe == nullptr || !std::isfinite(parameters[0]) || !std::isfinite(parameters[1])) {
            return std::nullopt;
        }
        std::optional<FaceAxes> const axes = probe->axesAt({parameters[0], parameters[1]});
        return axes
                   ? std::optional(SurfaceFrame{arrayOf(axes->m_normal.XYZ()),
                                                arrayOf(axes->m_u.XYZ()), arrayOf(axes->m_v.XYZ())})
                   : std::nullopt;
    });
}

std::optional<Vector> GeometryQueries::projection(unsigned entity, Vector const& point) const
{
    return orNothing([&]() -> std::optional<Vector> {
        if (!isFinite(point)) {
            return std::nullopt;
        }
        if (TopoDS_Edge const edge = m_kept->edgeOf(entity); !edge.IsNull()) {
            std::optional<EdgePlace> const place = nearestOnEdge(edge, gp_Pnt(xyzOf(point)));
            return place ? std::optional(arrayOf(place->m_point.XYZ())) : std::nullopt;
        }
        if (auto const onFacets = facetPlace(m_kept->faceOf(entity), point)) {
            return arrayOf(onFacets->m_point);
        }
        auto const place = surfacePlace(m_kept->probeOf(entity), point);
        return place ? std::optional(arrayOf(place->m_point.XYZ())) : std::nullopt;
    });
}

std::optional<Vector> GeometryQueries::normalAt(unsigned face, Vector const& point) const
{
    return orNothing([&]() -> std::optional<Vector> {
        if (!isFinite(point)) {
            return std::nullopt;
        }
        if (auto const onFacets = facetPlace(m_kept->faceOf(face), point)) {
            return arrayOf(onFacets->m_normal);
        }
        FaceProbe* const probe = m_kept->probeOf(face);
        auto const place = surfacePlace(probe, point);
        auto const axes = place ? probe->axesAt(place->m_parameters) : std::nullopt;
        return axes ? std::optional(arrayOf(axes->m_normal.XYZ())) : std::nullopt;
    });
}

}  // namespace vrn::orlo::host::geometry
