#include "examples/bracket/bracketparts.h"

#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepFilletAPI_MakeChamfer.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <gp_Ax2.hxx>
#include <gp_Ax3.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopTools_IndexedMapOfShape.hxx>

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace vrn::orlo::examples::bracket {

namespace {

template <typename Maker>
TopoDS_Shape finished(Maker& maker, char const* what)
{
    if (!maker.IsDone()) {
        maker.Build();  // some makers wait for this call, others are done by construction
    }
    if (!maker.IsDone()) {
        throw ShapeError(std::string("the kernel could not make ") + what);
    }
    return maker.Shape();
}

/// A Boolean operation gives a compound; the one solid in it is the part.
TopoDS_Shape onlySolid(TopoDS_Shape const& shape, char const* what)
{
    TopTools_IndexedMapOfShape solids;
    TopExp::MapShapes(shape, TopAbs_SOLID, solids);
    if (solids.Extent() != 1) {
        throw ShapeError(std::string(what) + " fell into several solids, or none");
    }
    return solids(1);
}

TopoDS_Face polygonFace(std::initializer_list<gp_Pnt> points)
{
    BRepBuilderAPI_MakePolygon outline;
    for (gp_Pnt const& point : points) {
        outline.Add(point);
    }
    outline.Close();
    return BRepBuilderAPI_MakeFace(outline.Wire(), true).Face();
}

bool near(double a, double b)
{
    return std::abs(a - b) < 1e-7;
}

/// The middle of a straight edge.
gp_Pnt middleOf(TopoDS_Edge const& edge)
{
    gp_Pnt const first = BRep_Tool::Pnt(TopExp::FirstVertex(edge));
    gp_Pnt const last = BRep_Tool::Pnt(TopExp::LastVertex(edge));
    return gp_Pnt((first.XYZ() + last.XYZ()) / 2.0);
}

/// The shape with a rounded edge wherever radiusOf(middle of the edge) is above 0. All edges of the
/// shape must be straight.
template <typename RadiusOf>
TopoDS_Shape rounded(TopoDS_Shape const& shape, RadiusOf const& radiusOf, char const* what)
{
    TopTools_IndexedMapOfShape edges;
    TopExp::MapShapes(shape, TopAbs_EDGE, edges);
    BRepFilletAPI_MakeFillet fillet(shape);
    for (int i = 1; i <= edges.Extent(); ++i) {
        TopoDS_Edge const& edge = TopoDS::Edge(edges(i));
        if (double const radius = radiusOf(middleOf(edge)); radius > 0.0) {
            fillet.Add(radius, edge);
        }
    }
    return finished(fillet, what);
}

/// Drills the four holes through a plate that lies between the two heights.
TopoDS_Shape drilled(TopoDS_Shape shape, double fromZ, double toZ, char const* what)
{
    constexpr double kOvershoot = 1.0;
    for (BoltPlace const& place : kBoltPlaces) {
        gp_Ax2 const axis(gp_Pnt(place.m_x, place.m_y, fromZ - kOvershoot), gp::DZ());
        BRepPrimAPI_MakeCylinder drill(axis, size::kHoleDiameter / 2.0,
                                       toZ - fromZ + 2.0 * kOvershoot);
        BRepAlgoAPI_Cut cut(shape, drill.Shape());
        shape = finished(cut, what);
    }
    return onlySolid(shape, what);
}

}  // namespace

TopoDS_Shape makeBasePlate()
{
    using namespace size;
    gp_Pnt const corner(-kBaseLength / 2.0, -kBaseWidth / 2.0, -kBaseThickness);
    TopoDS_Shape const block =
        BRepPrimAPI_MakeBox(corner, kBaseLength, kBaseWidth, kBaseThickness).Shape();
    auto const radiusOf = [](gp_Pnt const& middle) {
        bool const isUpright = near(middle.Z(), -kBaseThickness / 2.0);
        return isUpright ? kBaseCornerRadius : 0.0;
    };
    return drilled(rounded(block, radiusOf, "the base plate's outline"), -kBaseThickness, 0.0,
                   "the base plate");
}

TopoDS_Shape makeBracket()
{
    using namespace size;
    constexpr double kLeft = -kBracketLength / 2.0;
    constexpr double kInnerY = kBracketBack - kBracketThickness;
    TopoDS_Face const profile = polygonFace({
        {kLeft, kBracketFront, 0.0},
        {kLeft, kBracketBack, 0.0},
        {kLeft, kBracketBack, kBracketHeight},
        {kLeft, kInnerY, kBracketHeight},
        {kLeft, kInnerY, kBracketThickness},
        {kLeft, kBracketFront, kBracketThickness},
    });
    BRepPrimAPI_MakePrism prism(profile, gp_Vec(kBracketLength, 0.0, 0.0));
    auto const radiusOf = [](gp_Pnt const& middle) {
        if (!near(middle.X(), 0.0)) {
            return 0.0;
        }
        if (near(middle.Y(), kInnerY) && near(middle.Z(), kBracketThickness)) {
            return kBendInnerRadius;
        }
        bool const isOuter = near(middle.Y(), kBracketBack) && near(middle.Z(), 0.0);
        return isOuter ? kBendInnerRadius + kBracketThickness : 0.0;
    };
    return drilled(rounded(finished(prism, "the bracket"), radiusOf, "the bracket's bend"), 0.0,
                   kBracketThickness, "the bracket");
}

TopoDS_Shape makeBolt()
{
    using namespace size;
    double const circumradius = kHeadAcrossFlats / std::numbers::sqrt3;
    BRepBuilderAPI_MakePolygon outline;
    for (int i = 0; i < 6; ++i) {
        double const angle = std::numbers::pi / 3.0 * i;
        outline.Add(gp_Pnt(circumradius * std::cos(angle), circumradius * std::sin(angle), 0.0));
    }
    outline.Close();
    BRepPrimAPI_MakePrism head(BRepBuilderAPI_MakeFace(outline.Wire(), true).Face(),
                               gp_Vec(0.0, 0.0, kHeadHeight));

    TopoDS_Shape const cylinder = BRepPrimAPI_MakeCylinder(
        gp_Ax2(gp_Pnt(0.0, 0.0, -kShankLength), gp::DZ()), kShankDiameter / 2.0, kShankLength);
    TopTools_IndexedMapOfShape edges;
    TopExp::MapShapes(cylinder, TopAbs_EDGE, edges);
    BRepFilletAPI_MakeChamfer chamfer(cylinder);
    for (int i = 1; i <= edges.Extent(); ++i) {
        TopoDS_Edge const& edge = TopoDS::Edge(edges(i));
        gp_Pnt const start = BRep_Tool::Pnt(TopExp::FirstVertex(edge));
        gp_Pnt const end = BRep_Tool::Pnt(TopExp::LastVertex(edge));
        if (near(start.Z(), -kShankLength) && near(end.Z(), -kShankLength)) {
            chamfer.Add(kShankTipChamfer, edge);
        }
    }
    BRepAlgoAPI_Fuse fuse(finished(head, "the bolt's head"), finished(chamfer, "the bolt's tip"));
    return onlySolid(finished(fuse, "the bolt"), "the bolt");
}

TopoDS_Shape makeStiffener()
{
    using namespace size;
    TopoDS_Face const face = polygonFace({
        {kRibCornerCut, 0.0, 0.0},
        {kRibFootLength, 0.0, 0.0},
        {0.0, kRibHeight, 0.0},
        {0.0, kRibCornerCut, 0.0},
    });
    TopoDS_Shell shell;
    BRep_Builder builder;
    builder.MakeShell(shell);
    builder.Add(shell, face);
    return shell;
}

gp_Trsf plateTopPlacement()
{
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(0.0, 0.0, size::kBaseThickness));
    return placement;
}

gp_Trsf boltPlacement(BoltPlace const& place)
{
    double const bearingZ = size::kBaseThickness + size::kBracketThickness;
    gp_Trsf turn;
    turn.SetRotation(gp::OZ(), place.m_turnInDegrees * std::numbers::pi / 180.0);
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(place.m_x, place.m_y, bearingZ));
    return placement * turn;
}

gp_Trsf stiffenerPlacement()
{
    gp_Pnt const corner(0.0, size::kBracketBack - size::kBracketThickness,
                        size::kBaseThickness + size::kBracketThickness);
    // Its x runs along the foot, away from the wall: -y of the assembly. Its y runs up: z.
    gp_Ax3 const axes(corner, gp_Dir(-1.0, 0.0, 0.0), gp_Dir(0.0, -1.0, 0.0));
    gp_Trsf placement;
    placement.SetTransformation(axes, gp_Ax3());
    return placement;
}

void checkShape(TopoDS_Shape const& shape, std::string const& name)
{
    if (shape.IsNull() || !BRepCheck_Analyzer(shape).IsValid()) {
        throw ShapeError("the shape of \"" + name + "\" is not valid");
    }
}

}  // namespace vrn::orlo::examples::bracket
