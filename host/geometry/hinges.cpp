#include "host/geometry/hinges.h"

#include "host/geometry/middles.h"
#include "host/geometry/partframe.h"
#include "host/geometry/shapestore.h"

#include <array>
#include <optional>

#include <BRep_Tool.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>

namespace vrn::orlo::host::geometry {

namespace {

std::optional<std::array<double, 3>> normalAtMiddle(TopoDS_Edge const& edge,
                                                    TopoDS_Face const& face)
{
    try {
        std::optional<gp_Pnt2d> const place = middleOnFace(edge, face);
        return place ? outwardNormal(face, *place) : std::nullopt;
    } catch (Standard_Failure const&) {
        return std::nullopt;
    }
}

}  // namespace

std::vector<Hinge> hingesAt(GeometryModel const& model, unsigned edge)
{
    PartTopology const& topology = model.shapes().part(model.entity(edge)->m_part);
    TopoDS_Edge const shape = TopoDS::Edge(topology.shapeOf(edge));
    std::vector<Hinge> hinges;
    if (BRep_Tool::Degenerated(shape)) {
        return hinges;
    }
    struct Side {
        unsigned m_face;
        unsigned m_body;
        std::array<double, 3> m_normal;
    };
    std::vector<Side> sides;
    for (unsigned const face : model.parents(edge, EntityClass::face)) {
        if (auto const normal = normalAtMiddle(shape, TopoDS::Face(topology.shapeOf(face)))) {
            sides.push_back({face, model.entity(face)->m_body, *normal});
        }
    }
    for (auto one = sides.begin(); one != sides.end(); ++one) {
        for (auto other = one + 1; other != sides.end(); ++other) {
            if (one->m_body == other->m_body) {
                hinges.push_back(
                    {one->m_face, other->m_face, degreesBetween(one->m_normal, other->m_normal)});
            }
        }
    }
    return hinges;
}

}  // namespace vrn::orlo::host::geometry
