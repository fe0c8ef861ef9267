#include "host/geometry/geometrymodel.h"

#include "host/geometry/placement.h"
#include "host/geometry/shapestore.h"

#include <algorithm>
#include <cmath>

namespace vrn::orlo::host::geometry {

namespace {

struct TypeNameRow {
    EntityClass m_class;
    std::string_view m_name;
};

// clang-format off
constexpr std::array kTypeNames{
    TypeNameRow{EntityClass::solidBody,    "BODY"},
    TypeNameRow{EntityClass::sheetBody,    "SHEETBODY"},
    TypeNameRow{EntityClass::wireBody,     "WIREBODY"},
    TypeNameRow{EntityClass::pointBody,    "ACORNBODY"},
    TypeNameRow{EntityClass::generalBody,  "GENERALBODY"},
    TypeNameRow{EntityClass::facetSolid,   "FACETSOLID"},
    TypeNameRow{EntityClass::facetSheet,   "FACETSHEET"},
    TypeNameRow{EntityClass::facetWire,    "FACETWIRE"},
    TypeNameRow{EntityClass::facetGeneral, "FACETGENERAL"},
    TypeNameRow{EntityClass::volume,       "REGION"},
    TypeNameRow{EntityClass::face,         "FACE"},
    TypeNameRow{EntityClass::edge,         "EDGE"},
    TypeNameRow{EntityClass::vertex,       "VERTEX"},
};
// clang-format on

/// Level order of the topology; bodyLevel for every class of bodies.
TopologyLevel levelOf(EntityClass entityClass)
{
    switch (entityClass) {
        case EntityClass::volume:
            return TopologyLevel::volume;
        case EntityClass::face:
            return TopologyLevel::face;
        case EntityClass::edge:
            return TopologyLevel::edge;
        case EntityClass::vertex:
            return TopologyLevel::vertex;
        default:
            return TopologyLevel::body;
    }
}

/// mm3 of an instance with all below it.
double volumeBelow(GeometryModel const& model, Instance const& instance, Placement const& parent)
{
    Placement const placement = composed(parent, instance.m_placement);
    double sum = 0.0;
    if (instance.m_part != Instance::kNoPart) {
        // A mirrored part has as much volume as the part: the sign says nothing about it.
        sum += model.volumeOf(static_cast<std::size_t>(instance.m_part)) *
               std::abs(determinant(placement));
    }
    for (Instance const& child : instance.m_children) {
        sum += volumeBelow(model, child, placement);
    }
    return sum;
}

}  // namespace

std::string_view typeNameOf(EntityClass entityClass) noexcept
{
    auto const row = std::find_if(kTypeNames.begin(), kTypeNames.end(),
                                  [&](auto const& r) { return r.m_class == entityClass; });
    return row == kTypeNames.end() ? std::string_view{} : row->m_name;
}

void Box::add(std::array<double, 3> const& point) noexcept
{
    bool const first = isEmpty();
    for (std::size_t i = 0; i < 3; ++i) {
        m_min[i] = first ? point[i] : std::min(m_min[i], point[i]);
        m_max[i] = first ? point[i] : std::max(m_max[i], point[i]);
    }
}

double Box::diagonal() const noexcept
{
    return isEmpty() ? 0.0
                     : std::hypot(m_max[0] - m_min[0], m_max[1] - m_min[1], m_max[2] - m_min[2]);
}

Counts& Counts::operator+=(Counts const& other) noexcept
{
    m_solids += other.m_solids;
    m_sheets += other.m_sheets;
    m_wires += other.m_wires;
    m_points += other.m_points;
    m_volumes += other.m_volumes;
    m_faces += other.m_faces;
    m_edges += other.m_edges;
    m_vertices += other.m_vertices;
    return *this;
}

bool Placement::isIdentity() const noexcept
{
    return m_rows == Placement{}.m_rows;
}

GeometryModel::GeometryModel() : m_shapes(std::make_unique<ShapeStore>())
{
}

GeometryModel::GeometryModel(GeometryModel&&) noexcept = default;
GeometryModel& GeometryModel::operator=(GeometryModel&&) noexcept = default;
GeometryModel::~GeometryModel() = default;

void GeometryModel::numberFrom(unsigned first)
{
    unsigned const shift = first - m_firstNumber;
    for (Entity& entity : m_entities) {
        entity.m_number += shift;
        entity.m_body += shift;
    }
    m_shapes->shiftNumbers(shift);
    m_firstNumber = first;
}

std::span<Entity const> GeometryModel::entitiesOf(std::size_t part) const noexcept
{
    if (part >= m_parts.size()) {
        return {};
    }
    Part const& owner = m_parts[part];
    return std::span(m_entities).subspan(owner.m_firstEntity, owner.m_entityCount);
}

Entity const* GeometryModel::entity(unsigned number) const noexcept
{
    // A number before the first one wraps around to a very high index.
    unsigned const index = number - m_firstNumber;
    return index < m_entities.size() ? &m_entities[index] : nullptr;
}

std::vector<unsigned> GeometryModel::children(unsigned number, EntityClass entityClass) const
{
    Entity const* const from = entity(number);
    if (from == nullptr || isBodyClass(entityClass)) {
        return {};  // nothing has a body below it
    }
    return m_shapes->part(from->m_part).below(number, levelOf(entityClass));
}

std::vector<unsigned> GeometryModel::parents(unsigned number, EntityClass entityClass) const
{
    Entity const* const from = entity(number);
    if (from == nullptr) {
        return {};
    }
    std::vector<unsigned> found = m_shapes->part(from->m_part).above(number, levelOf(entityClass));
    std::erase_if(found, [&](unsigned n) { return entity(n)->m_class != entityClass; });
    return found;
}

double GeometryModel::measure(unsigned number) const
{
    Entity const* const from = entity(number);
    return from == nullptr ? 0.0 : m_shapes->part(from->m_part).measure(number);
}

double GeometryModel::volumeOf(std::size_t part) const
{
    double sum = 0.0;
    for (Entity const& entity : entitiesOf(part)) {
        sum += entity.m_class == EntityClass::volume ? measure(entity.m_number) : 0.0;
    }
    return sum;
}

double GeometryModel::volume() const
{
    double sum = 0.0;
    for (Instance const& root : m_roots) {
        sum += volumeBelow(*this, root, Placement{});
    }
    return sum;
}

}  // namespace vrn::orlo::host::geometry
