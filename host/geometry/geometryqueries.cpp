#include "host/geometry/geometryqueries.h"

#include "host/geometry/facetfaces.h"
#include "host/geometry/facetplaces.h"
#include "host/geometry/geometryqueries_kept.h"
#include "host/geometry/middles.h"
#include "host/geometry/partframe.h"
#include "host/geometry/shapestore.h"
#include "host/geometry/tightbox.h"

#include <algorithm>
#include <cmath>

#include <BRep_Tool.hxx>
#include <BRepAdaptor_Curve.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>

namespace vrn::orlo::host::geometry {

using Vector = GeometryQueries::Vector;

TopoDS_Shape GeometryQueries::Kept::shapeOf(unsigned number, EntityClass entityClass) const
{
    Entity const* const entity = m_model.entity(number);
    return entity == nullptr || entity->m_class != entityClass
               ? TopoDS_Shape()
               : m_model.shapes().part(entity->m_part).shapeOf(number);
}

TopoDS_Edge GeometryQueries::Kept::edgeOf(unsigned number) const
{
    return TopoDS::Edge(shapeOf(number, EntityClass::edge));
}

TopoDS_Face GeometryQueries::Kept::faceOf(unsigned number) const
{
    return TopoDS::Face(shapeOf(number, EntityClass::face));
}

FaceProbe* GeometryQueries::Kept::probeOf(unsigned face)
{
    TopoDS_Face const shape = faceOf(face);
    if (shape.IsNull()) {
        return nullptr;
    }
    return m_probes
        .at(face,
            [&] {
                return orNothing([&] {
                    return isFacetFace(shape) ? nullptr : std::make_unique<FaceProbe>(shape);
                });
            })
        .get();
}

Box const& GeometryQueries::Kept::boxOf(unsigned number)
{
    static Box const kNone;
    Entity const* const entity = m_model.entity(number);
    return entity == nullptr ? kNone : m_boxes.at(number, [&] {
        return orNothing(
            [&] { return tightBox(m_model.shapes().part(entity->m_part).shapeOf(number)); });
    });
}

std::optional<LineStretch> GeometryQueries::Kept::stretchAt(unsigned number, Line const& line)
{
    if (!isFinite(line.m_origin) || !isFinite(line.m_direction)) {
        return std::nullopt;
    }
    gp_XYZ direction = xyzOf(line.m_direction);
    // To about length 1 first: squares of very small or large components leave the range.
    double const size =
        std::max({std::abs(direction.X()), std::abs(direction.Y()), std::abs(direction.Z())});
    Box const& box = boxOf(number);
    if (size == 0.0 || box.isEmpty()) {
        return std::nullopt;
    }
    direction = gp_XYZ(direction.X() / size, direction.Y() / size, direction.Z() / size);
    direction.Normalize();
    gp_XYZ const origin = xyzOf(line.m_origin);
    gp_XYZ const middle = (xyzOf(box.m_min) + xyzOf(box.m_max)) / 2.0;
    gp_XYZ const nearest = origin + direction * direction.Dot(middle - origin);
    if (!isFinite(arrayOf(nearest))) {
        return std::nullopt;
    }
    return LineStretch{gp_Lin(gp_Pnt(nearest), gp_Dir(direction)), box.diagonal() + 1.0};
}

GeometryQueries::GeometryQueries(GeometryModel const& model) : m_kept(std::make_unique<Kept>(model))
{
}

GeometryQueries::GeometryQueries(GeometryQueries&&) noexcept = default;
GeometryQueries& GeometryQueries::operator=(GeometryQueries&&) noexcept = default;
GeometryQueries::~GeometryQueries() = default;

std::optional<Vector> GeometryQueries::pointOfVertex(unsigned vertex) const
{
    TopoDS_Shape const shape = m_kept->shapeOf(vertex, EntityClass::vertex);
    return shape.IsNull() ? std::nullopt
                          : std::optional(arrayOf(BRep_Tool::Pnt(TopoDS::Vertex(shape)).XYZ()));
}

std::optional<bool> GeometryQueries::isPeriodic(unsigned entity) const
{
    return orNothing([&]() -> std::optional<bool> {
        if (FaceProbe* const probe = m_kept->probeOf(entity)) {
            return probe->isClosed();
        }
        TopoDS_Edge const edge = m_kept->edgeOf(entity);
        if (edge.IsNull() || BRep_Tool::Degenerated(edge)) {
            return std::nullopt;
        }
        return BRep_Tool::IsClosed(edge) || BRepAdaptor_Curve(edge).IsClosed();
    });
}

std::optional<Vector> GeometryQueries::middleOf(unsigned entity) const
{
    Entity const* const known = m_kept->m_model.entity(entity);
    if (known == nullptr || isBodyClass(known->m_class) || known->m_class == EntityClass::volume) {
        return std::nullopt;
    }
    return m_kept->m_middles.at(entity, [&]() -> std::optional<Vector> {
        std::optional<Middle> const middle = middleOfShape(m_kept->shapeOf(entity, known->m_class));
        return middle ? std::optional(middle->m_point) : std::nullopt;
    });
}

std::optional<Box> GeometryQueries::box(unsigned entity) const
{
    Box const& box = m_kept->boxOf(entity);
    return box.isEmpty() ? std::nullopt : std::optional(box);
}

std::optional<GeometryQueries::KernelTag> GeometryQueries::kernelTag(unsigned entity) const
{
    Entity const* const known = m_kept->m_model.entity(entity);
    if (known == nullptr) {
        return std::nullopt;
    }
    PartTopology const& topology = m_kept->m_model.shapes().part(known->m_part);
    auto level = static_cast<unsigned>(kTopologyLevels - 1);
    while (topology.firstNumber(static_cast<TopologyLevel>(level)) > entity) {
        --level;
    }
    return KernelTag{known->m_part, level,
                     entity - topology.firstNumber(static_cast<TopologyLevel>(level)) + 1};
}

}  // namespace vrn::orlo::host::geometry
