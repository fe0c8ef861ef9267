/// \file
/// A point in space.

#pragma once

#include <cmath>

namespace vrn::orlo::plugin::modeling {

/// A point. No conversion leads to X3DVector or back, so that a line from two points and a line
/// from a point and a direction stay apart.
///
/// Units      The caller's length unit.
/// Cost       Three doubles; no allocation.
class X3DSPoint {
public:
    constexpr X3DSPoint() = default;
    constexpr X3DSPoint(double px, double py, double pz) : x(px), y(py), z(pz) {}
    /// From the first three elements.
    explicit constexpr X3DSPoint(double const* const values)
        : x(values[0]), y(values[1]), z(values[2])
    {
    }

    [[nodiscard]] double distance(X3DSPoint const& other) const
    {
        double const dx = x - other.x;
        double const dy = y - other.y;
        double const dz = z - other.z;
        return std::sqrt(dx * dx + dy * dy + dz * dz);
    }

    friend bool operator==(X3DSPoint const&, X3DSPoint const&) = default;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

}  // namespace vrn::orlo::plugin::modeling
