#include "host/geometry/modelbuilder.h"

#include "host/geometry/placement.h"
#include "host/geometry/tightbox.h"

#include <map>
#include <utility>

namespace vrn::orlo::host::geometry {

namespace {

std::size_t& bodyCounter(Counts& counts, TopologyLevel level)
{
    switch (level) {
        case TopologyLevel::volume:
            return counts.m_solids;
        case TopologyLevel::face:
            return counts.m_sheets;
        case TopologyLevel::edge:
            return counts.m_wires;
        default:
            return counts.m_points;
    }
}

constexpr EntityClass classOf(TopologyLevel level)
{
    constexpr std::array kClasses{EntityClass::solidBody, EntityClass::volume, EntityClass::face,
                                  EntityClass::edge, EntityClass::vertex};
    return kClasses[static_cast<std::size_t>(level)];
}

void addEntities(GeometryModel& model, PartTopology const& topology, unsigned part)
{
    for (std::size_t i = 0; i < kTopologyLevels; ++i) {
        auto const level = static_cast<TopologyLevel>(i);
        unsigned const first = topology.firstNumber(level);
        for (unsigned index = 0; index < topology.count(level); ++index) {
            Entity entity;
            entity.m_number = first + index;
            entity.m_part = part;
            if (level == TopologyLevel::body) {
                entity.m_class = topology.bodyClass(index);
                entity.m_body = entity.m_number;
            } else {
                entity.m_class = classOf(level);
            }
            model.m_entities.push_back(entity);
        }
    }
}

/// Gives each sub-entity its first body, and counts the bodies.
void linkBodies(GeometryModel& model, PartTopology const& topology, Part& part)
{
    unsigned const firstBody = topology.firstNumber(TopologyLevel::body);
    for (unsigned index = 0; index < topology.count(TopologyLevel::body); ++index) {
        unsigned const number = firstBody + index;
        ++bodyCounter(part.m_counts, measuredLevel(topology.bodyClass(index)));
        for (std::size_t i = 1; i < kTopologyLevels; ++i) {
            for (unsigned const child : topology.below(number, static_cast<TopologyLevel>(i))) {
                Entity& entity = model.m_entities[child - 1];
                entity.m_body = entity.m_body == 0 ? number : entity.m_body;
            }
        }
    }
}

/// Sums over the tree. Turned parts need a search for their tight box: kept by part and rotation.
class InstanceSums {
public:
    explicit InstanceSums(GeometryModel& model) : m_model(model) {}

    void visit(Instance const& instance, Placement const& parent)
    {
        Placement const placement = composed(parent, instance.m_placement);
        if (instance.m_part != Instance::kNoPart) {
            addLeaf(static_cast<std::size_t>(instance.m_part), placement);
        }
        for (Instance const& child : instance.m_children) {
            visit(child, placement);
        }
    }

private:
    using PartAndRotation = std::pair<std::size_t, std::array<double, 9>>;

    void addLeaf(std::size_t index, Placement const& placement)
    {
        Part& part = m_model.m_parts[index];
        ++part.m_instanceCount;
        m_model.m_totals += part.m_counts;
        addBox(m_model.m_box, mapsAxesToAxes(placement) ? movedBox(part.m_box, placement)
                                                        : turnedBox(index, placement));
    }

    Box turnedBox(std::size_t index, Placement const& placement)
    {
        std::array<double, 12> const& r = placement.m_rows;
        PartAndRotation const key{index, {r[0], r[1], r[2], r[4], r[5], r[6], r[8], r[9], r[10]}};
        auto found = m_turned.find(key);
        if (found == m_turned.end()) {
            Placement rotation = placement;
            rotation.m_rows[3] = rotation.m_rows[7] = rotation.m_rows[11] = 0.0;
            Box box = turnedTightBox(m_model.shapes().part(index).shape(), rotation);
            if (box.isEmpty()) {
                box = movedBox(m_model.m_parts[index].m_box, rotation);
            }
            found = m_turned.emplace(key, box).first;
        }
        Placement shift;
        shift.m_rows[3] = r[3];
        shift.m_rows[7] = r[7];
        shift.m_rows[11] = r[11];
        return movedBox(found->second, shift);
    }

    GeometryModel& m_model;
    std::map<PartAndRotation, Box> m_turned;
};

}  // namespace

unsigned addPart(GeometryModel& model, std::string name, TopoDS_Shape const& shape,
                 std::vector<BodyShape> const& bodies)
{
    auto const index = static_cast<unsigned>(model.m_parts.size());
    auto const first = static_cast<unsigned>(model.m_entities.size());
    PartTopology const& topology = model.shapes().add(shape, bodies, first + 1);
    addEntities(model, topology, index);

    Part& part = model.m_parts.emplace_back();
    part.m_name = std::move(name);
    part.m_firstEntity = first;
    part.m_entityCount = static_cast<unsigned>(model.m_entities.size()) - first;
    linkBodies(model, topology, part);
    part.m_counts.m_volumes = topology.count(TopologyLevel::volume);
    part.m_counts.m_faces = topology.count(TopologyLevel::face);
    part.m_counts.m_edges = topology.count(TopologyLevel::edge);
    part.m_counts.m_vertices = topology.count(TopologyLevel::vertex);
    part.m_box = tightBox(shape);
    return index;
}

void sumOverInstances(GeometryModel& model)
{
    InstanceSums sums(model);
    for (Instance const& root : model.m_roots) {
        sums.visit(root, Placement{});
    }
}

}  // namespace vrn::orlo::host::geometry
