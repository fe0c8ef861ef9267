#include "host/geometry/tightbox.h"

#include "host/geometry/surfacepeaks.h"

#include <algorithm>
#include <vector>

#include <Bnd_Box.hxx>
#include <BRep_Tool.hxx>
#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepClass_FaceClassifier.hxx>
#include <Poly_Triangulation.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <TopTools_IndexedMapOfShape.hxx>

namespace vrn::orlo::host::geometry {

namespace {

std::array<double, 3> arrayOf(gp_Pnt const& point)
{
    return {point.X(), point.Y(), point.Z()};
}

/// True for a face that is made of triangles only.
bool isFacetted(TopoDS_Face const& face)
{
    TopLoc_Location location;
    return BRep_Tool::Surface(face, location).IsNull();
}

/// Corners of the kernel's box; false for an unbounded or void one.
bool limitsOf(Bnd_Box const& bounds, Box& box)
{
    if (bounds.IsVoid() || bounds.IsOpen()) {
        return false;
    }
    box.add(arrayOf(bounds.CornerMin()));
    box.add(arrayOf(bounds.CornerMax()));
    return true;
}

/// A curved edge, and a box that surely holds it.
struct Curved {
    TopoDS_Shape m_shape;
    Box m_coarse;
    bool m_isSearched = false;  // the kernel searches the extremes by numbers
};

Box coarseBox(TopoDS_Shape const& shape)
{
    Box box;
    Bnd_Box bounds;
    BRepBndLib::Add(shape, bounds, Standard_False);
    limitsOf(bounds, box);
    return box;
}

Box exactBox(Curved const& curved)
{
    Bnd_Box bounds;
    try {
        BRepBndLib::AddOptimal(curved.m_shape, bounds, Standard_False, Standard_False);
    } catch (Standard_Failure const&) {
        return curved.m_coarse;
    }
    bounds.SetGap(0.0);
    Box box;
    if (!limitsOf(bounds, box)) {
        return curved.m_coarse;
    }
    for (std::size_t i = 0; i < 3 && curved.m_isSearched; ++i) {
        // The kernel adds its own accuracy to what it searched.
        double const added = std::min(Precision::Confusion(), (box.m_max[i] - box.m_min[i]) / 2.0);
        box.m_min[i] += added;
        box.m_max[i] -= added;
    }
    return box;
}

/// Runs for each sub-shape; one that the kernel cannot bound must not lose the others.
template <typename Add>
void forEach(TopoDS_Shape const& shape, TopAbs_ShapeEnum type, Add const& add)
{
    TopTools_IndexedMapOfShape map;
    TopExp::MapShapes(shape, type, map);
    for (int i = 1; i <= map.Extent(); ++i) {
        try {
            add(map.FindKey(i));
        } catch (Standard_Failure const&) {
            continue;
        }
    }
}

void addFacets(Box& box, TopoDS_Face const& face)
{
    TopLoc_Location location;
    Handle(Poly_Triangulation) const mesh = BRep_Tool::Triangulation(face, location);
    for (int i = 1; !mesh.IsNull() && i <= mesh->NbNodes(); ++i) {
        box.add(arrayOf(mesh->Node(i).Transformed(location.Transformation())));
    }
}

/// How far a box reaches in one of six directions: 0 to 2 along the axes, 3 to 5 against them.
double reach(Box const& box, std::size_t direction)
{
    return direction < 3 ? box.m_max[direction] : -box.m_min[direction - 3];
}

/// Adds curved edges to a box. The exact way costs a search for extremes, so each direction takes
/// the edges that may reach farthest first, and ends when no other can reach beyond the box.
void addCurved(Box& box, std::vector<Curved> const& shapes)
{
    std::vector<bool> isAdded(shapes.size());
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (!shapes[i].m_coarse.isEmpty()) {
            order.push_back(i);
        }
    }
    for (std::size_t direction = 0; direction < 6; ++direction) {
        auto const coarseReach = [&](std::size_t i) {
            return reach(shapes[i].m_coarse, direction);
        };
        std::sort(order.begin(), order.end(),
                  [&](auto a, auto b) { return coarseReach(a) > coarseReach(b); });
        for (std::size_t const i : order) {
            if (!box.isEmpty() && coarseReach(i) <= reach(box, direction)) {
                break;
            }
            if (isAdded[i]) {
                continue;
            }
            isAdded[i] = true;
            Box const exact = exactBox(shapes[i]);
            box.add(exact.m_min);
            box.add(exact.m_max);
        }
    }
}

/// Lines lie in their vertices' box: only curved edges matter.
std::vector<Curved> curvedEdges(TopoDS_Shape const& shape)
{
    std::vector<Curved> found;
    forEach(shape, TopAbs_EDGE, [&](TopoDS_Shape const& sub) {
        TopoDS_Edge const& edge = TopoDS::Edge(sub);
        if (BRep_Tool::Degenerated(edge)) {
            return;
        }
        GeomAbs_CurveType const type = BRepAdaptor_Curve(edge).GetType();
        if (type != GeomAbs_Line) {
            found.push_back({sub, coarseBox(sub), type >= GeomAbs_BezierCurve});
        }
    });
    return found;
}

/// Adds the peaks of a surface that lie inside the face; where none does, the face reaches farthest
/// on its edges.
void addPeaks(Box& box, TopoDS_Face const& face, BRepAdaptor_Surface const& surface)
{
    SurfacePeaks const peaks(face, surface);
    for (std::size_t direction = 0; direction < 6; ++direction) {
        double const sign = direction < 3 ? 1.0 : -1.0;
        gp_Dir const towards(direction % 3 == 0 ? sign : 0.0, direction % 3 == 1 ? sign : 0.0,
                             direction % 3 == 2 ? sign : 0.0);
        for (gp_Pnt2d const& peak : peaks.towards(towards)) {
            Box alone;
            alone.add(arrayOf(surface.Value(peak.X(), peak.Y())));
            if (!box.isEmpty() && reach(alone, direction) <= reach(box, direction)) {
                continue;
            }
            // Nothing to prepare, other than with the kernel's faster classifier: few peaks come
            // this far.
            if (BRepClass_FaceClassifier(face, peak, Precision::PConfusion()).State() ==
                TopAbs_IN) {
                addBox(box, alone);
            }
        }
    }
}

/// Adds what of a face may reach beyond its edges.
void addFace(Box& box, TopoDS_Face const& face)
{
    if (isFacetted(face)) {
        addFacets(box, face);
        return;
    }
    BRepAdaptor_Surface const surface(face, Standard_False);
    if (!isRuled(surface)) {
        addPeaks(box, face, surface);
    }
}

}  // namespace

Box tightBox(TopoDS_Shape const& shape)
{
    Box box;
    forEach(shape, TopAbs_VERTEX, [&](TopoDS_Shape const& vertex) {
        box.add(arrayOf(BRep_Tool::Pnt(TopoDS::Vertex(vertex))));
    });
    addCurved(box, curvedEdges(shape));
    forEach(shape, TopAbs_FACE,
            [&](TopoDS_Shape const& face) { addFace(box, TopoDS::Face(face)); });
    return box;
}

Box turnedTightBox(TopoDS_Shape const& shape, Placement const& placement)
{
    try {
        std::array<double, 12> const& r = placement.m_rows;
        gp_Trsf transformation;
        transformation.SetValues(r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8], r[9], r[10],
                                 r[11]);
        return tightBox(BRepBuilderAPI_Transform(shape, transformation).Shape());
    } catch (Standard_Failure const&) {
        return {};
    }
}

void addBox(Box& box, Box const& other)
{
    if (!other.isEmpty()) {
        box.add(other.m_min);
        box.add(other.m_max);
    }
}

}  // namespace vrn::orlo::host::geometry
