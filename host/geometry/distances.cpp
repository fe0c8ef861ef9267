#include "host/geometry/distances.h"

#include "host/geometry/facetfaces.h"

#include <BRep_Tool.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepClass3d_SolidClassifier.hxx>
#include <BRepExtrema_DistShapeShape.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

namespace vrn::orlo::host::geometry {

std::optional<double> distanceTo(TopoDS_Shape const& shape, gp_Pnt const& point)
{
    try {
        if (shape.ShapeType() == TopAbs_VERTEX) {
            return point.Distance(BRep_Tool::Pnt(TopoDS::Vertex(shape)));
        }
        if (shape.ShapeType() == TopAbs_EDGE && BRep_Tool::Degenerated(TopoDS::Edge(shape))) {
            TopoDS_Vertex const vertex = TopExp::FirstVertex(TopoDS::Edge(shape));
            return vertex.IsNull() ? std::nullopt : distanceTo(vertex, point);
        }
        if (shape.ShapeType() == TopAbs_FACE && isFacetFace(TopoDS::Face(shape))) {
            return distanceToFacets(TopoDS::Face(shape), point.XYZ());
        }
        BRepExtrema_DistShapeShape const search(BRepBuilderAPI_MakeVertex(point).Vertex(), shape);
        return search.IsDone() ? std::optional(search.Value()) : std::nullopt;
    } catch (Standard_Failure const&) {
        return std::nullopt;
    }
}

bool isInSolid(TopoDS_Shape const& shape, gp_Pnt const& point)
{
    try {
        // One by one: given several solids, the kernel looks at the first one only.
        for (TopExp_Explorer it(shape, TopAbs_SOLID); it.More(); it.Next()) {
            if (hasFacetFaces(it.Current())) {
                if (areFacetsAround(it.Current(), point.XYZ())) {
                    return true;
                }
                continue;
            }
            BRepClass3d_SolidClassifier const classifier(it.Current(), point,
                                                         Precision::Confusion());
            if (classifier.State() == TopAbs_IN || classifier.State() == TopAbs_ON) {
                return true;
            }
        }
    } catch (Standard_Failure const&) {
        return false;
    }
    return false;
}

}  // namespace vrn::orlo::host::geometry
