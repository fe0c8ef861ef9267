#include "host/geometry/edgeplaces.h"
#include "host/geometry/facetfaces.h"
#include "host/geometry/facetplaces.h"
#include "host/geometry/geometrypicker.h"
#include "host/geometry/geometryqueries.h"
#include "host/geometry/geometryqueries_kept.h"

#include <cstddef>

#include <BRep_Tool.hxx>
#include <BRepAdaptor_Curve.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepExtrema_DistShapeShape.hxx>
#include <ElCLib.hxx>
#include <GCPnts_TangentialDeflection.hxx>

namespace vrn::orlo::host::geometry {

using Vector = GeometryQueries::Vector;

namespace {

/// The point of an edge that is nearest to a line; of several the first along the line.
std::optional<gp_Pnt> nearestToLine(TopoDS_Edge const& edge, LineStretch const& stretch)
{
    if (BRep_Tool::Degenerated(edge)) {
        std::optional<EdgePlace> const place = nearestOnEdge(edge, gp_Pnt());
        return place ? std::optional(place->m_point) : std::nullopt;
    }
    TopoDS_Edge const piece =
        BRepBuilderAPI_MakeEdge(stretch.m_line, -stretch.m_reach, stretch.m_reach);
    BRepExtrema_DistShapeShape const search(edge, piece);
    std::optional<gp_Pnt> first;
    double least = stretch.m_reach;
    for (int i = 1; search.IsDone() && i <= search.NbSolution(); ++i) {
        gp_Pnt const point = search.PointOnShape1(i);
        if (double const at = ElCLib::Parameter(stretch.m_line, point); at < least) {
            least = at;
            first = point;
        }
    }
    return first;
}

std::vector<Vector> cornersAlong(BRepAdaptor_Curve const& curve, double chordError)
{
    constexpr double kTurn = 0.5;  // radians from one corner to the next
    GCPnts_TangentialDeflection const corners(curve, kTurn, chordError);
    std::vector<Vector> points;
    for (int i = 1; i <= corners.NbPoints(); ++i) {
        points.push_back(arrayOf(corners.Value(i).XYZ()));
    }
    return points;
}

}  // namespace

std::optional<GeometryQueries::ClosePoints> GeometryQueries::leastDistance(unsigned edge,
                                                                           Line const& line) const
{
    return orNothing([&]() -> std::optional<ClosePoints> {
        TopoDS_Edge const shape = m_kept->edgeOf(edge);
        auto const stretch = shape.IsNull() ? std::nullopt : m_kept->stretchAt(edge, line);
        auto const onEdge = stretch ? nearestToLine(shape, *stretch) : std::nullopt;
        if (!onEdge) {
            return std::nullopt;
        }
        gp_Pnt const onLine =
            ElCLib::Value(ElCLib::Parameter(stretch->m_line, *onEdge), stretch->m_line);
        return ClosePoints{arrayOf(onEdge->XYZ()), arrayOf(onLine.XYZ()), onEdge->Distance(onLine)};
    });
}

std::vector<Vector> GeometryQueries::intersections(unsigned face, Line const& line) const
{
    return orNothing([&] {
        std::vector<Vector> found;
        TopoDS_Face const shape = m_kept->faceOf(face);
        auto const stretch = shape.IsNull() ? std::nullopt : m_kept->stretchAt(face, line);
        if (!stretch) {
            return found;
        }
        std::vector<double> places;
        if (isFacetFace(shape)) {
            places = crossingsOfFacets(shape, stretch->m_line);
        } else if (FaceProbe* const probe = m_kept->probeOf(face)) {
            places = probe->crossings(stretch->m_line, stretch->m_reach);
        }
        for (std::size_t i = 0; i < places.size(); ++i) {
            // A seam, and the common side of two triangles, is met twice.
            if (i == 0 || places[i] - places[i - 1] > GeometryPicker::kSamePlace) {
                found.push_back(arrayOf(ElCLib::Value(places[i], stretch->m_line).XYZ()));
            }
        }
        return found;
    });
}

std::vector<Vector> GeometryQueries::seedPoints(unsigned entity) const
{
    constexpr int kGrid = 5;
    return orNothing([&] {
        std::vector<Vector> points;
        TopoDS_Edge const edge = m_kept->edgeOf(entity);
        TopoDS_Face const face = m_kept->faceOf(entity);
        if (!edge.IsNull() && !BRep_Tool::Degenerated(edge) && box(entity)) {
            return cornersAlong(BRepAdaptor_Curve(edge), kSeedChord * box(entity)->diagonal());
        }
        if (FaceProbe* const probe = m_kept->probeOf(entity)) {
            for (gp_Pnt const& point : probe->innerPoints(kGrid)) {
                points.push_back(arrayOf(point.XYZ()));
            }
        } else if (!face.IsNull() && isFacetFace(face)) {
            for (gp_XYZ const& point : middlesOfFacets(face, kGrid * kGrid)) {
                points.push_back(arrayOf(point));
            }
        }
        if (std::optional<Vector> const middle = points.empty() ? middleOf(entity) : std::nullopt) {
            points.push_back(*middle);
        }
        return points;
    });
}

}  // namespace vrn::orlo::host::geometry
