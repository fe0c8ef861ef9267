#include "host/geometry/middles.h"

#include "host/geometry/facetfaces.h"

#include <limits>

#include <BRep_Tool.hxx>
#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepLProp_SLProps.hxx>
#include <BRepTools.hxx>
#include <BRepTopAdaptor_FClass2d.hxx>
#include <Geom2d_Curve.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>

namespace vrn::orlo::host::geometry {

namespace {

std::array<double, 3> arrayOf(gp_XYZ const& vector)
{
    return {vector.X(), vector.Y(), vector.Z()};
}

/// The middle of a range of parameters; nothing for one without end.
std::optional<double> middleOfRange(double first, double last)
{
    if (Precision::IsInfinite(first) || Precision::IsInfinite(last)) {
        return std::nullopt;
    }
    return (first + last) / 2.0;
}

/// The place inside the face that is nearest to the middle of its range, on ever finer grids.
std::optional<gp_Pnt2d> innerPlace(TopoDS_Face const& face)
{
    double firstU = 0.0;
    double lastU = 0.0;
    double firstV = 0.0;
    double lastV = 0.0;
    BRepTools::UVBounds(face, firstU, lastU, firstV, lastV);
    if (!middleOfRange(firstU, lastU) || !middleOfRange(firstV, lastV)) {
        return std::nullopt;
    }
    BRepTopAdaptor_FClass2d const classifier(face, Precision::PConfusion());
    for (int const cells : {1, 3, 9, 27}) {
        std::optional<gp_Pnt2d> found;
        double nearest = std::numeric_limits<double>::infinity();
        for (int index = 0; index < cells * cells; ++index) {
            double const u = (index % cells + 0.5) / cells;  // as fractions of the ranges
            double const v = (index / cells + 0.5) / cells;
            double const distance = (u - 0.5) * (u - 0.5) + (v - 0.5) * (v - 0.5);
            gp_Pnt2d const place(firstU + u * (lastU - firstU), firstV + v * (lastV - firstV));
            if (distance < nearest && classifier.Perform(place) == TopAbs_IN) {
                nearest = distance;
                found = place;
            }
        }
        if (found) {
            return found;
        }
    }
    return std::nullopt;
}

/// The middle of the face's first edge that has a length: better than no place.
std::optional<gp_Pnt2d> placeOnBoundary(TopoDS_Face const& face)
{
    for (TopExp_Explorer it(face, TopAbs_EDGE); it.More(); it.Next()) {
        TopoDS_Edge const& edge = TopoDS::Edge(it.Current());
        if (BRep_Tool::Degenerated(edge)) {
            continue;
        }
        if (std::optional<gp_Pnt2d> const place = middleOnFace(edge, face)) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<Middle> middleOfFace(TopoDS_Face const& face)
{
    if (isFacetFace(face)) {
        std::optional<MiddleFacet> const facet = middleFacet(face);
        return facet ? std::optional(Middle{arrayOf(facet->m_point), arrayOf(facet->m_normal)})
                     : std::nullopt;
    }
    std::optional<gp_Pnt2d> place = innerPlace(face);
    if (!place) {
        place = placeOnBoundary(face);
    }
    if (!place) {
        return std::nullopt;
    }
    BRepAdaptor_Surface const surface(face, Standard_False);
    return Middle{arrayOf(surface.Value(place->X(), place->Y()).XYZ()),
                  outwardNormal(face, *place)};
}

std::optional<Middle> middleOfVertex(TopoDS_Vertex const& vertex)
{
    return vertex.IsNull() ? std::nullopt
                           : std::optional(Middle{arrayOf(BRep_Tool::Pnt(vertex).XYZ()), {}});
}

std::optional<Middle> middleOfEdge(TopoDS_Edge const& edge)
{
    if (BRep_Tool::Degenerated(edge)) {
        return middleOfVertex(TopExp::FirstVertex(edge));
    }
    BRepAdaptor_Curve const curve(edge);
    std::optional<double> const at = middleOfRange(curve.FirstParameter(), curve.LastParameter());
    return at ? std::optional(Middle{arrayOf(curve.Value(*at).XYZ()), {}}) : std::nullopt;
}

/// The middle of the first sub-shape of the highest kind that has one.
std::optional<Middle> middleOfBody(TopoDS_Shape const& body)
{
    for (TopAbs_ShapeEnum const type : {TopAbs_FACE, TopAbs_EDGE, TopAbs_VERTEX}) {
        for (TopExp_Explorer it(body, type); it.More(); it.Next()) {
            if (std::optional<Middle> middle = middleOfShape(it.Current())) {
                middle->m_normal.reset();
                return middle;
            }
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<Middle> middleOfShape(TopoDS_Shape const& shape)
{
    try {
        switch (shape.ShapeType()) {
            case TopAbs_FACE:
                return middleOfFace(TopoDS::Face(shape));
            case TopAbs_EDGE:
                return middleOfEdge(TopoDS::Edge(shape));
            case TopAbs_VERTEX:
                return middleOfVertex(TopoDS::Vertex(shape));
            default:
                return middleOfBody(shape);
        }
    } catch (Standard_Failure const&) {
        return std::nullopt;
    }
}

std::optional<gp_Pnt2d> middleOnFace(TopoDS_Edge const& edge, TopoDS_Face const& face)
{
    double first = 0.0;
    double last = 0.0;
    Handle(Geom2d_Curve) const curve = BRep_Tool::CurveOnSurface(edge, face, first, last);
    std::optional<double> const at = curve.IsNull() ? std::nullopt : middleOfRange(first, last);
    return at ? std::optional(curve->Value(*at)) : std::nullopt;
}

std::optional<std::array<double, 3>> outwardNormal(TopoDS_Face const& face, gp_Pnt2d const& place)
{
    BRepAdaptor_Surface const surface(face, Standard_False);
    BRepLProp_SLProps properties(surface, place.X(), place.Y(), 1, Precision::Confusion());
    if (!properties.IsNormalDefined()) {
        return std::nullopt;
    }
    gp_XYZ const normal = properties.Normal().XYZ();
    return arrayOf(face.Orientation() == TopAbs_REVERSED ? normal * -1.0 : normal);
}

}  // namespace vrn::orlo::host::geometry
