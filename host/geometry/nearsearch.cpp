#include "host/geometry/nearsearch.h"

#include "host/geometry/distances.h"
#include "host/geometry/partframe.h"
#include "host/geometry/shapestore.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace vrn::orlo::host::geometry {

namespace {

/// Tight boxes are exact to about a tenth of this; no entity may be passed over for it.
constexpr double kBoxDoubt = 1e-6;

bool isWhole(EntityClass entityClass)
{
    return isBodyClass(entityClass) || entityClass == EntityClass::volume;
}

}  // namespace

std::vector<NearSearch::Found> NearSearch::nearest(std::span<EntityClass const> classes,
                                                   double limit, double spare)
{
    Numbers numbers;
    for (Entity const& entity : m_model.entitiesOf(m_part)) {
        if (std::find(classes.begin(), classes.end(), entity.m_class) != classes.end()) {
            numbers.push_back(entity.m_number);
        }
    }
    std::vector<Found> found;
    for (Found const& candidate : byBox(numbers, limit)) {
        if (candidate.m_distance > limit) {
            break;
        }
        std::optional<double> const distance = distanceOf(candidate.m_number, limit);
        if (distance && *distance <= limit) {
            found.push_back({candidate.m_number, *distance});
            limit = std::min(limit, *distance + spare);
        }
    }
    std::erase_if(found, [&](Found const& f) { return f.m_distance > limit; });
    return found;
}

/// The entities whose boxes are within the limit, the nearest box first.
std::vector<NearSearch::Found> NearSearch::byBox(Numbers const& numbers, double limit)
{
    std::vector<Found> near;
    for (unsigned const number : numbers) {
        double const atLeast = distanceTo(m_boxes.inPart(number), m_point) - kBoxDoubt;
        if (std::isfinite(atLeast) && atLeast <= limit) {
            near.push_back({number, atLeast});
        }
    }
    std::sort(near.begin(), near.end(), [](Found const& a, Found const& b) {
        return std::tie(a.m_distance, a.m_number) < std::tie(b.m_distance, b.m_number);
    });
    return near;
}

/// Exact up to the limit; beyond it, nothing or any distance that is beyond it.
std::optional<double> NearSearch::distanceOf(unsigned number, double limit)
{
    Entity const& entity = *m_model.entity(number);
    if (isWhole(entity.m_class)) {
        return distanceOfWhole(entity, limit);
    }
    auto const [known, isNew] = m_exact.try_emplace(number);
    if (isNew) {
        known->second = distanceTo(m_model.shapes().part(m_part).shapeOf(number),
                                   gp_Pnt(m_point[0], m_point[1], m_point[2]));
    }
    return known->second;
}

std::optional<double> NearSearch::distanceOfWhole(Entity const& entity, double limit)
{
    unsigned const number = entity.m_number;
    bool const mayBeInside = distanceTo(m_boxes.inPart(number), m_point) <= kBoxDoubt;
    if (mayBeInside && isInSolid(m_model.shapes().part(m_part).shapeOf(number),
                                 gp_Pnt(m_point[0], m_point[1], m_point[2]))) {
        return 0.0;
    }
    std::optional<double> nearest;
    for (Found const& candidate : byBox(boundaryOf(number), limit)) {
        if (candidate.m_distance > limit) {
            break;
        }
        std::optional<double> const distance = distanceOf(candidate.m_number, limit);
        if (distance && *distance <= limit) {
            nearest = distance;
            limit = *distance;
        }
    }
    return nearest;
}

/// What a body ends at: its faces, or its edges if it has none, or its vertices.
NearSearch::Numbers NearSearch::boundaryOf(unsigned number) const
{
    PartTopology const& topology = m_model.shapes().part(m_part);
    for (TopologyLevel const level :
         {TopologyLevel::face, TopologyLevel::edge, TopologyLevel::vertex}) {
        Numbers numbers = topology.below(number, level);
        if (!numbers.empty()) {
            return numbers;
        }
    }
    return {};
}

}  // namespace vrn::orlo::host::geometry
