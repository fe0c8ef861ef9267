/// \file
/// Points, boxes and rays in double precision.

#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace vrn::orlo::host::display {

/// x, y and z of a point or a direction.
using Vector = std::array<double, 3>;

/// An upright box. Empty when it is not made of corners.
struct Box {
    Vector m_low{1.0, 1.0, 1.0};
    Vector m_high{0.0, 0.0, 0.0};

    [[nodiscard]] bool isEmpty() const noexcept { return !(m_low[0] <= m_high[0]); }
    void add(Vector const& point) noexcept
    {
        bool const isFirst = isEmpty();
        for (std::size_t i = 0; i < 3; ++i) {
            m_low[i] = isFirst || point[i] < m_low[i] ? point[i] : m_low[i];
            m_high[i] = isFirst || point[i] > m_high[i] ? point[i] : m_high[i];
        }
    }
    void add(Box const& other) noexcept
    {
        if (!other.isEmpty()) {
            add(other.m_low);
            add(other.m_high);
        }
    }
    /// Corners 0 to 7: bit i of the index takes the high side of axis i.
    [[nodiscard]] Vector corner(unsigned index) const noexcept
    {
        Vector point = m_low;
        for (unsigned i = 0; i < 3; ++i) {
            point[i] = (index & (1U << i)) != 0 ? m_high[i] : m_low[i];
        }
        return point;
    }
    /// 0 for an empty box.
    [[nodiscard]] double diagonal() const noexcept
    {
        return isEmpty()
                   ? 0.0
                   : std::hypot(m_high[0] - m_low[0], m_high[1] - m_low[1], m_high[2] - m_low[2]);
    }
};

/// A line of sight: its points are origin + depth * direction.
struct Ray {
    Vector m_origin{};
    Vector m_direction{};
};

/// a + factor * b
[[nodiscard]] constexpr Vector sum(Vector const& a, Vector const& b, double factor = 1.0) noexcept
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

[[nodiscard]] constexpr Vector difference(Vector const& a, Vector const& b) noexcept
{
    return sum(a, b, -1.0);
}

[[nodiscard]] constexpr double dot(Vector const& a, Vector const& b) noexcept
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

[[nodiscard]] constexpr Vector cross(Vector const& a, Vector const& b) noexcept
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

[[nodiscard]] inline double length(Vector const& a) noexcept
{
    return std::hypot(a[0], a[1], a[2]);
}

[[nodiscard]] inline bool isFinite(Vector const& a) noexcept
{
    return std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[2]);
}

/// Depth at which a ray is nearest to a point.
[[nodiscard]] constexpr double depthOf(Ray const& ray, Vector const& point) noexcept
{
    return dot(difference(point, ray.m_origin), ray.m_direction) /
           dot(ray.m_direction, ray.m_direction);
}

}  // namespace vrn::orlo::host::display
