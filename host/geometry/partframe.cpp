#include "host/geometry/partframe.h"

#include "host/geometry/placement.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace vrn::orlo::host::geometry {

PartFrame::PartFrame(Placement const& placement)
    : m_rows(placement.m_rows), m_scale(std::cbrt(std::abs(determinant(placement))))
{
}

std::array<double, 3> PartFrame::point(std::array<double, 3> const& inModel) const
{
    std::array<double, 3> moved =
        direction({inModel[0] - m_rows[3], inModel[1] - m_rows[7], inModel[2] - m_rows[11]});
    for (double& value : moved) {
        value /= m_scale * m_scale;
    }
    return moved;
}

std::array<double, 3> PartFrame::direction(std::array<double, 3> const& inModel) const
{
    // The transpose of a turned, mirrored or scaled frame is its inverse but for the length.
    std::array<double, 3> turned{};
    for (std::size_t i = 0; i < 3; ++i) {
        turned[i] =
            m_rows[i] * inModel[0] + m_rows[4 + i] * inModel[1] + m_rows[8 + i] * inModel[2];
    }
    return turned;
}

double distanceTo(Box const& box, std::array<double, 3> const& point)
{
    if (box.isEmpty()) {
        return std::numeric_limits<double>::infinity();
    }
    std::array<double, 3> outside{};
    for (std::size_t i = 0; i < 3; ++i) {
        outside[i] = std::max({box.m_min[i] - point[i], 0.0, point[i] - box.m_max[i]});
    }
    return std::hypot(outside[0], outside[1], outside[2]);
}

double degreesBetween(std::array<double, 3> const& a, std::array<double, 3> const& b)
{
    double const cross =
        std::hypot(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]);
    double const dot = a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    if (cross == 0.0 && dot == 0.0) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return std::atan2(cross, dot) * 180.0 / std::numbers::pi;
}

bool isFinite(std::array<double, 3> const& values)
{
    return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

}  // namespace vrn::orlo::host::geometry
