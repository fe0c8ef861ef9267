#include "host/geometry/edgeplaces.h"
#include "host/geometry/geometryqueries.h"
#include "host/geometry/geometryqueries_kept.h"
#include "host/geometry/partframe.h"

#include <algorithm>
#include <cmath>

#include <BRep_Tool.hxx>
#include <BRepAdaptor_Curve.hxx>
#include <BRepLProp_CLProps.hxx>
#include <Precision.hxx>
#include <Standard_Real.hxx>
#include <TopExp.hxx>

namespace vrn::orlo::host::geometry {

using Vector = GeometryQueries::Vector;

namespace {

bool hasCurve(TopoDS_Edge const& edge)
{
    return !edge.IsNull() && !BRep_Tool::Degenerated(edge);
}

bool isBounded(BRepAdaptor_Curve const& curve)
{
    return !Precision::IsInfinite(curve.FirstParameter()) &&
           !Precision::IsInfinite(curve.LastParameter());
}

std::optional<GeometryQueries::CurveFrame> frameAt(BRepAdaptor_Curve const& curve, double parameter)
{
    BRepLProp_CLProps properties(curve, parameter, 2, Precision::Confusion());
    if (!properties.IsTangentDefined()) {
        return std::nullopt;
    }
    GeometryQueries::CurveFrame frame;
    gp_Dir tangent;
    properties.Tangent(tangent);
    frame.m_tangent = arrayOf(tangent.XYZ());
    double const curvature = properties.Curvature();
    if (curvature == RealLast()) {
        return std::nullopt;  // a cusp
    }
    // The kernel throws when it is asked for the normal of a straight curve.
    if (curvature > Precision::Confusion()) {
        gp_Dir normal;
        properties.Normal(normal);
        frame.m_normal = arrayOf(normal.XYZ());
        frame.m_binormal = arrayOf(tangent.Crossed(normal).XYZ());
    }
    return frame;
}

}  // namespace

std::optional<std::array<Vector, 2>> GeometryQueries::endPoints(unsigned edge) const
{
    return orNothing([&]() -> std::optional<std::array<Vector, 2>> {
        TopoDS_Edge const shape = m_kept->edgeOf(edge);
        if (shape.IsNull()) {
            return std::nullopt;
        }
        if (!hasCurve(shape)) {
            std::optional<EdgePlace> const place = nearestOnEdge(shape, gp_Pnt());
            return place ? std::optional(std::array{arrayOf(place->m_point.XYZ()),
                                                    arrayOf(place->m_point.XYZ())})
                         : std::nullopt;
        }
        BRepAdaptor_Curve const curve(shape);
        return isBounded(curve)
                   ? std::optional(std::array{arrayOf(curve.Value(curve.FirstParameter()).XYZ()),
                                              arrayOf(curve.Value(curve.LastParameter()).XYZ())})
                   : std::nullopt;
    });
}

std::optional<bool> GeometryQueries::isStraight(unsigned edge) const
{
    return orNothing([&]() -> std::optional<bool> {
        TopoDS_Edge const shape = m_kept->edgeOf(edge);
        return hasCurve(shape) ? std::optional(geometry::isStraight(BRepAdaptor_Curve(shape)))
                               : std::nullopt;
    });
}

std::optional<double> GeometryQueries::closestParameter(unsigned edge, Vector const& point) const
{
    return orNothing([&]() -> std::optional<double> {
        TopoDS_Edge const shape = m_kept->edgeOf(edge);
        if (!hasCurve(shape) || !isFinite(point)) {
            return std::nullopt;
        }
        std::optional<EdgePlace> const place =
            nearestOnCurve(BRepAdaptor_Curve(shape), gp_Pnt(xyzOf(point)));
        return place ? std::optional(place->m_parameter) : std::nullopt;
    });
}

std::optional<GeometryQueries::CurveFrame> GeometryQueries::curveFrame(unsigned edge,
                                                                       double parameter) const
{
    return orNothing([&]() -> std::optional<CurveFrame> {
        TopoDS_Edge const shape = m_kept->edgeOf(edge);
        if (!hasCurve(shape) || !std::isfinite(parameter)) {
            return std::nullopt;
        }
        BRepAdaptor_Curve const curve(shape);
        double const first = curve.FirstParameter();
        double const last = curve.LastParameter();
        double const spare = 1e-9 * (1.0 + last - first);
        if (parameter < first - spare || parameter > last + spare) {
            return std::nullopt;
        }
        std::optional<CurveFrame> frame = frameAt(curve, std::clamp(parameter, first, last));
        if (frame && geometry::isStraight(curve)) {
            frame->m_normal = frame->m_binormal = Vector{};
        }
        return frame;
    });
}

bool GeometryQueries::contains(unsigned edge, Vector const& point, double tolerance) const
{
    return orNothing([&] {
        TopoDS_Edge const shape = m_kept->edgeOf(edge);
        if (shape.IsNull() || !isFinite(point) || !std::isfinite(tolerance)) {
            return false;
        }
        std::optional<EdgePlace> const place = nearestOnEdge(shape, gp_Pnt(xyzOf(point)));
        return place && place->m_distance <= tolerance;
    });
}

}  // namespace vrn::orlo::host::geometry
