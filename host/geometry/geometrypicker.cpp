#include "host/geometry/geometrypicker.h"

#include "host/geometry/entityboxes.h"
#include "host/geometry/hinges.h"
#include "host/geometry/keptbynumber.h"
#include "host/geometry/middles.h"
#include "host/geometry/nearsearch.h"
#include "host/geometry/partframe.h"
#include "host/geometry/placement.h"
#include "host/geometry/shapestore.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace vrn::orlo::host::geometry {

namespace {

/// Parts' boxes are exact to about a tenth of this; no instance may be passed over for it.
constexpr double kBoxDoubt = 1e-6;

/// Normals of surfaces that meet exactly differ by rounding only.
constexpr double kSameDegrees = 1e-6;

bool isAmong(std::span<EntityClass const> classes, EntityClass entityClass)
{
    return std::find(classes.begin(), classes.end(), entityClass) != classes.end();
}

/// False, too, when a side is not a number.
bool keepsRule(Box const& own, Box const& asked, BoxRule rule)
{
    if (own.isEmpty() || asked.isEmpty()) {
        return false;
    }
    bool const isContained = rule == BoxRule::contained;
    for (std::size_t i = 0; i < 3; ++i) {
        // Contained: both sides lie within. Touching: each box begins before the other one ends.
        double const low = isContained ? own.m_min[i] : own.m_max[i];
        double const high = isContained ? own.m_max[i] : own.m_min[i];
        if (!(low >= asked.m_min[i] - GeometryPicker::kSamePlace) ||
            !(high <= asked.m_max[i] + GeometryPicker::kSamePlace)) {
            return false;
        }
    }
    return true;
}

void collectLeaves(Instance const& node, Placement const& parent,
                   std::vector<PlacedInstance>& leaves)
{
    Placement const placement = composed(parent, node.m_placement);
    if (node.m_part != Instance::kNoPart) {
        leaves.push_back({&node, static_cast<unsigned>(node.m_part), placement});
    }
    for (Instance const& child : node.m_children) {
        collectLeaves(child, placement, leaves);
    }
}

/// Marks the parts at and below nodes that bear the name, or that stand below one that does.
void markNamed(Instance const& node, std::string_view name, bool isBelow, std::vector<bool>& parts)
{
    bool const isNamed = isBelow || node.m_name == name || node.m_productName == name;
    if (isNamed && node.m_part != Instance::kNoPart) {
        parts[static_cast<std::size_t>(node.m_part)] = true;
    }
    for (Instance const& child : node.m_children) {
        markNamed(child, name, isNamed, parts);
    }
}

}  // namespace

/// What the picker knows of the instances, and what it has found so far.
struct GeometryPicker::Kept {
    Kept(GeometryModel const& model, std::span<PlacedInstance const> instances)
        : m_boxes(model, instances)
    {
    }

    std::vector<PartFrame> m_frames;  // by instance
    std::vector<Box> m_coarseBoxes;   // by instance, which they hold
    EntityBoxes m_boxes;
    KeptByNumber<std::optional<Middle>> m_middles;
    KeptByNumber<std::vector<Hinge>> m_hinges;
};

GeometryPicker::GeometryPicker(GeometryModel const& model) : m_model(&model)
{
    for (Instance const& root : model.m_roots) {
        collectLeaves(root, Placement{}, m_instances);
    }
    m_kept = std::make_unique<Kept>(model, m_instances);
    for (PlacedInstance const& instance : m_instances) {
        Box const& box = model.m_parts[instance.m_part].m_box;
        m_kept->m_frames.emplace_back(instance.m_placement);
        m_kept->m_coarseBoxes.push_back(movedBox(box, instance.m_placement));
    }
}

GeometryPicker::GeometryPicker(GeometryPicker&&) noexcept = default;
GeometryPicker& GeometryPicker::operator=(GeometryPicker&&) noexcept = default;
GeometryPicker::~GeometryPicker() = default;

std::span<PlacedInstance const> GeometryPicker::instances() const noexcept
{
    return m_instances;
}

std::vector<NearPick> GeometryPicker::nearest(std::array<double, 3> const& point,
                                              std::span<EntityClass const> classes,
                                              double tolerance) const
{
    if (!isFinite(point) || !(tolerance >= 0.0)) {
        return {};
    }
    std::vector<std::pair<double, unsigned>> order;  // instances, the nearest box first
    for (unsigned i = 0; i < m_instances.size(); ++i) {
        if (m_kept->m_frames[i].isUsable()) {
            order.emplace_back(distanceTo(m_kept->m_coarseBoxes[i], point), i);
        }
    }
    std::sort(order.begin(), order.end());

    std::vector<NearPick> found;
    double least = tolerance;
    for (auto const& [toBox, instance] : order) {
        if (toBox > least + kBoxDoubt) {
            break;
        }
        PartFrame const& frame = m_kept->m_frames[instance];
        NearSearch search(*m_model, m_kept->m_boxes, m_instances[instance].m_part,
                          frame.point(point));
        for (auto const& [number, distance] : search.nearest(
                 classes, (least + kSamePlace) / frame.scale(), kSamePlace / frame.scale())) {
            found.push_back({{number, instance}, distance * frame.scale()});
            least = std::min(least, found.back().m_distance);
        }
    }
    std::erase_if(found, [&](NearPick const& p) { return p.m_distance > least + kSamePlace; });
    for (NearPick& pick : found) {
        pick.m_distance = least;  // what rounding makes of one distance must not order the picks
    }
    std::sort(found.begin(), found.end(),
              [](NearPick const& a, NearPick const& b) { return a.m_pick < b.m_pick; });
    return found;
}

std::vector<Pick> GeometryPicker::inBox(Box const& box, std::span<EntityClass const> classes,
                                        BoxRule rule) const
{
    std::vector<Pick> found;
    for (unsigned i = 0; i < m_instances.size(); ++i) {
        if (!keepsRule(m_kept->m_coarseBoxes[i], box, BoxRule::touching)) {
            continue;
        }
        for (Entity const& entity : m_model->entitiesOf(m_instances[i].m_part)) {
            if (isAmong(classes, entity.m_class) &&
                keepsRule(m_kept->m_boxes.inModel(entity.m_number, i), box, rule)) {
                found.push_back({entity.m_number, i});
            }
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<Pick> GeometryPicker::byNormal(std::array<double, 3> const& direction,
                                           double angleDegrees) const
{
    std::vector<Pick> found;
    if (!isFinite(direction) || !(angleDegrees >= 0.0)) {
        return found;
    }
    for (unsigned i = 0; i < m_instances.size(); ++i) {
        std::array<double, 3> const inPart = m_kept->m_frames[i].direction(direction);
        for (Entity const& entity : m_model->entitiesOf(m_instances[i].m_part)) {
            if (entity.m_class != EntityClass::face) {
                continue;
            }
            std::optional<Middle> const middle = middleOf(entity.m_number);
            if (middle && middle->m_normal &&
                degreesBetween(*middle->m_normal, inPart) <= angleDegrees + kSameDegrees) {
                found.push_back({entity.m_number, i});
            }
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<unsigned> GeometryPicker::byArea(double min, double max) const
{
    constexpr double kSpare = 1e-9;
    std::vector<unsigned> found;
    for (Entity const& entity : m_model->m_entities) {
        if (entity.m_class != EntityClass::face) {
            continue;
        }
        double const area = m_model->measure(entity.m_number);
        if (area >= min - kSpare * area && area <= max + kSpare * area) {
            found.push_back(entity.m_number);
        }
    }
    return found;
}

std::vector<unsigned> GeometryPicker::grow(std::span<unsigned const> numbers,
                                           double angleDegrees) const
{
    std::vector<unsigned> reached;
    std::unordered_set<unsigned> known;
    auto const reach = [&](unsigned face) {
        if (known.insert(face).second) {
            reached.push_back(face);
        }
    };
    for (unsigned const number : numbers) {
        Entity const* const entity = m_model->entity(number);
        if (entity != nullptr && entity->m_class == EntityClass::face) {
            reach(number);
        }
    }
    for (std::size_t i = 0; i < reached.size(); ++i) {
        unsigned const face = reached[i];
        for (unsigned const edge : m_model->children(face, EntityClass::edge)) {
            for (Hinge const& hinge :
                 m_kept->m_hinges.at(edge, [&] { return hingesAt(*m_model, edge); })) {
                bool const isHere = hinge.m_one == face || hinge.m_other == face;
                if (isHere && angleDegrees >= 0.0 &&
                    hinge.m_degrees <= angleDegrees + kSameDegrees) {
                    reach(hinge.m_one == face ? hinge.m_other : hinge.m_one);
                }
            }
        }
    }
    std::sort(reached.begin(), reached.end());
    return reached;
}

std::vector<unsigned> GeometryPicker::byName(std::string_view name) const
{
    std::vector<unsigned> found;
    if (name.empty()) {
        return found;
    }
    std::vector<bool> isNamed;
    for (Part const& part : m_model->m_parts) {
        isNamed.push_back(part.m_name == name);
    }
    for (Instance const& root : m_model->m_roots) {
        markNamed(root, name, false, isNamed);
    }
    for (Entity const& entity : m_model->m_entities) {
        if (isBodyClass(entity.m_class) && isNamed[entity.m_part]) {
            found.push_back(entity.m_number);
        }
    }
    return found;
}

std::optional<Middle> GeometryPicker::middleOf(unsigned number) const
{
    Entity const* const entity = m_model->entity(number);
    if (entity == nullptr) {
        return std::nullopt;
    }
    return m_kept->m_middles.at(number, [&] {
        std::optional<Middle> middle =
            middleOfShape(m_model->shapes().part(entity->m_part).shapeOf(number));
        if (middle && entity->m_class != EntityClass::face) {
            middle->m_normal.reset();  // a body may be one face
        }
        return middle;
    });
}

std::vector<unsigned> GeometryPicker::numbersOf(std::span<Pick const> picks)
{
    std::vector<unsigned> numbers;
    for (Pick const& pick : picks) {
        numbers.push_back(pick.m_number);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

}  // namespace vrn::orlo::host::geometry
