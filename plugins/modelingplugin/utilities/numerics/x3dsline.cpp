#include "plugins/modelingplugin/utilities/numerics/x3dsline.h"

#include <numbers>

namespace vrn::orlo::plugin::modeling {

namespace {

X3DVector between(X3DSPoint const& from, X3DSPoint const& to)
{
    return {to.x - from.x, to.y - from.y, to.z - from.z};
}

}  // namespace

double X3DSLine::angle(X3DSLine const& other) const
{
    X3DVector const& d1 = m_direction;
    X3DVector const& d2 = other.m_direction;
    return std::acos(std::abs(d1.dotProduct(d2)) / (d1.mod() * d2.mod())) * 180.0 /
           std::numbers::pi;
}

double X3DSLine::distance(X3DSPoint const& point, X3DSPoint& foot) const
{
    X3DSPoint const asked = point;  // the foot may be the same object
    double const t =
        -between(asked, m_origin).dotProduct(m_direction) / m_direction.dotProduct(m_direction);
    foot = at(t);
    return asked.distance(foot);
}

double X3DSLine::distance(X3DSPoint const& point) const
{
    X3DVector const w = between(m_origin, point);
    double const length = w.mod();
    return std::sin(std::acos(m_direction.dotProduct(w) / (m_direction.mod() * length))) * length;
}

double X3DSLine::distance(X3DSLine const& other) const
{
    X3DVector const cross = m_direction.crossProduct(other.m_direction);
    double const length = cross.mod();
    if (length > kVectorTolerance) {
        return std::abs(cross.dotProduct(between(m_origin, other.m_origin))) / length;
    }
    return distance(other.m_origin);
}

double X3DSLine::intersection(X3DSLine const& other, X3DSPoint& point) const
{
    X3DVector const cross = m_direction.crossProduct(other.m_direction);
    // Strict here, "not above" in distance(other): the tolerance itself falls on either side.
    if (cross.mod() < kVectorTolerance) {
        point = m_origin;
        return distance(other.m_origin);
    }
    X3DVector const w = between(m_origin, other.m_origin);
    point = at(w.crossProduct(other.m_direction).dotProduct(cross) / cross.dotProduct(cross));
    return distance(other);
}

}  // namespace vrn::orlo::plugin::modeling
