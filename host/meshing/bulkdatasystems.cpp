#include "host/meshing/bulkdatasystems.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>

namespace vrn::orlo::host::meshing {

namespace {

Point difference(Point const& left, Point const& right)
{
    return {left[0] - right[0], left[1] - right[1], left[2] - right[2]};
}

Point cross(Point const& left, Point const& right)
{
    return {left[1] * right[2] - left[2] * right[1], left[2] * right[0] - left[0] * right[2],
            left[0] * right[1] - left[1] * right[0]};
}

/// Not finite for a vector without direction.
Point unit(Point const& vector)
{
    double const length = std::hypot(vector[0], vector[1], vector[2]);
    return {vector[0] / length, vector[1] / length, vector[2] / length};
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

Point cartesian(BulkDataSystems::Kind kind, Point const& point)
{
    switch (kind) {
        case BulkDataSystems::Kind::rectangular:
            break;
        case BulkDataSystems::Kind::cylindrical:
            return {point[0] * std::cos(radians(point[1])), point[0] * std::sin(radians(point[1])),
                    point[2]};
        case BulkDataSystems::Kind::spherical: {  // the first angle is from the z axis
            double const across = point[0] * std::sin(radians(point[1]));
            return {across * std::cos(radians(point[2])), across * std::sin(radians(point[2])),
                    point[0] * std::cos(radians(point[1]))};
        }
    }
    return point;
}

}  // namespace

void BulkDataSystems::add(std::int64_t id, Definition const& definition)
{
    auto const [found, isNew] = m_systems.try_emplace(id, System{definition});
    if (!isNew) {
        m_lines.refuse(definition.m_line,
                       "coordinate system " + std::to_string(id) + " is given twice, first in " +
                           m_lines.placeFrom(definition.m_line, found->second.m_definition.m_line),
                       "take one of the two out or renumber it");
    }
}

void BulkDataSystems::resolve(std::int64_t id, NodePlace const& nodePlace, SourceLine askedBy)
{
    if (id == 0) {
        return;
    }
    std::string const name = "coordinate system " + std::to_string(id);
    auto const found = m_systems.find(id);
    if (found == m_systems.end()) {
        m_lines.refuse(askedBy, "names " + name + ", which does not exist",
                       "add it or correct the number");
    }
    System& system = found->second;
    Definition const& definition = system.m_definition;
    if (system.m_state == State::resolved) {
        return;
    }
    if (system.m_state == State::atWork) {
        m_lines.refuse(definition.m_line, name + " stands on itself",
                       "define it in a system that does not need it");
    }
    system.m_state = State::atWork;
    resolve(definition.m_base, nodePlace, definition.m_line);
    std::array<Point, 3> points{};
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = definition.m_nodes[i] != 0 ? nodePlace(definition.m_nodes[i], definition.m_line)
                                               : inBasic(definition.m_base, definition.m_points[i]);
    }
    Point const z = unit(difference(points[1], points[0]));
    Point const y = unit(cross(z, difference(points[2], points[0])));
    if (!std::isfinite(y[0] + y[1] + y[2])) {
        m_lines.refuse(definition.m_line, name + " has its three points on one line",
                       "choose points that span a plane");
    }
    system.m_origin = points[0];
    system.m_axes = {cross(y, z), y, z};
    system.m_state = State::resolved;
}

Point BulkDataSystems::inBasic(std::int64_t id, Point const& point) const
{
    if (id == 0) {
        return point;
    }
    System const& system = m_systems.at(id);
    Point const local = cartesian(system.m_definition.m_kind, point);
    Point basic = system.m_origin;
    for (std::size_t axis = 0; axis < basic.size(); ++axis) {
        for (std::size_t i = 0; i < local.size(); ++i) {
            basic[axis] += local[i] * system.m_axes[i][axis];
        }
    }
    return basic;
}

}  // namespace vrn::orlo::host::meshing
