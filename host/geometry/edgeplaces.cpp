#include "host/geometry/edgeplaces.h"

#include <cmath>

#include <BRep_Tool.hxx>
#include <Extrema_ExtPC.hxx>
#include <Geom2d_Curve.hxx>
#include <gp_Vec.hxx>
#include <Precision.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TopExp.hxx>
#include <TopoDS_Vertex.hxx>

namespace vrn::orlo::host::geometry {

namespace {

double distanceToChord(gp_Pnt const& point, gp_Pnt const& from, gp_Vec const& unit)
{
    gp_Vec const to(from, point);
    return unit.Magnitude() > 0.0 ? to.Crossed(unit).Magnitude() : to.Magnitude();
}

/// A polynomial of degree p that is zero at p + 1 places is zero everywhere: with so many places
/// per piece nothing of a free-form curve can leave the chord unseen.
int placesPerPiece(BRepAdaptor_Curve const& curve)
{
    constexpr int kOfUnknownCurve = 16;
    GeomAbs_CurveType const type = curve.GetType();
    bool const hasDegree = type == GeomAbs_BezierCurve || type == GeomAbs_BSplineCurve;
    return hasDegree ? curve.Degree() + 1 : kOfUnknownCurve;
}

}  // namespace

std::optional<EdgePlace> nearestOnCurve(BRepAdaptor_Curve const& curve, gp_Pnt const& point)
{
    std::optional<EdgePlace> best;
    auto const take = [&](double parameter, gp_Pnt const& place) {
        double const distance = place.Distance(point);
        if (std::isfinite(distance) && (!best || distance < best->m_distance)) {
            best = EdgePlace{parameter, place, distance};
        }
    };
    double const first = curve.FirstParameter();
    double const last = curve.LastParameter();
    for (double const end : {first, last}) {
        if (!Precision::IsInfinite(end)) {
            take(end, curve.Value(end));
        }
    }
    // Finds nothing from the centre of a circle: an end is as near as any other place then.
    Extrema_ExtPC const search(point, curve, first, last);
    for (int i = 1; search.IsDone() && i <= search.NbExt(); ++i) {
        take(search.Point(i).Parameter(), search.Point(i).Value());
    }
    return best;
}

std::optional<EdgePlace> nearestOnEdge(TopoDS_Edge const& edge, gp_Pnt const& point)
{
    if (!BRep_Tool::Degenerated(edge)) {
        return nearestOnCurve(BRepAdaptor_Curve(edge), point);
    }
    TopoDS_Vertex const vertex = TopExp::FirstVertex(edge);
    if (vertex.IsNull()) {
        return std::nullopt;
    }
    gp_Pnt const place = BRep_Tool::Pnt(vertex);
    return EdgePlace{0.0, place, place.Distance(point)};
}

bool isStraight(BRepAdaptor_Curve const& curve)
{
    switch (curve.GetType()) {
        case GeomAbs_Line:
            return true;
        case GeomAbs_Circle:
        case GeomAbs_Ellipse:
        case GeomAbs_Hyperbola:
        case GeomAbs_Parabola:
            return false;
        default:
            break;
    }
    gp_Pnt const from = curve.Value(curve.FirstParameter());
    gp_Vec chord(from, curve.Value(curve.LastParameter()));
    if (chord.Magnitude() <= Precision::Confusion()) {
        return false;  // it comes back to where it starts
    }
    chord.Normalize();
    TColStd_Array1OfReal pieces(1, curve.NbIntervals(GeomAbs_CN) + 1);
    curve.Intervals(pieces, GeomAbs_CN);
    int const places = placesPerPiece(curve);
    for (int piece = pieces.Lower(); piece < pieces.Upper(); ++piece) {
        double const length = pieces(piece + 1) - pieces(piece);
        for (int i = 0; i < places; ++i) {
            double const parameter = pieces(piece) + length * (i + 0.5) / places;
            if (distanceToChord(curve.Value(parameter), from, chord) > Precision::Confusion()) {
                return false;
            }
        }
    }
    return true;
}

std::optional<gp_Pnt2d> placeOnFace(TopoDS_Edge const& edge, TopoDS_Face const& face,
                                    double parameter)
{
    double first = 0.0;
    double last = 0.0;
    Handle(Geom2d_Curve) const onFace = BRep_Tool::CurveOnSurface(edge, face, first, last);
    if (onFace.IsNull()) {
        return std::nullopt;
    }
    if (!BRep_Tool::Degenerated(edge) && !BRep_Tool::SameRange(edge)) {
        double from = 0.0;
        double to = 0.0;
        BRep_Tool::Range(edge, from, to);
        parameter = first + (parameter - from) * (last - first) / (to - from);
    }
    return onFace->Value(parameter);
}

}  // namespace vrn::orlo::host::geometry
