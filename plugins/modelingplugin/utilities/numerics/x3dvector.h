/// \file
/// A free vector in space, and the tolerance of the X3DS family.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <cmath>

namespace vrn::orlo::plugin::modeling {

/// What the X3DS family takes for nothing: a length at or below it, a component strictly inside
/// (-1e-6, 1e-6). Absolute, in the caller's unit. It is not the tolerance of the plug-in layer
/// (kPluginTolerance), and the two are kept apart.
inline constexpr double kVectorTolerance = 1e-6;

/// A free vector.
///
/// "Zero by components" means that isValid() is 0. The two tests of smallness disagree near the
/// tolerance, and are meant to: (1e-6, 0, 0) is valid and its unit is zero; (9e-7, 9e-7, 9e-7) is
/// not valid and has a unit of length 1.
///
/// Units      Components: the caller's. Angles: radians.
/// Failure    None; a vector that is too short gives the answers stated below.
/// Cost       Three doubles; no allocation.
class MODELING_API X3DVector {
public:
    constexpr X3DVector() = default;
    constexpr X3DVector(double vx, double vy, double vz) : x(vx), y(vy), z(vz) {}
    /// From the first three elements.
    explicit constexpr X3DVector(double const* const values)
        : x(values[0]), y(values[1]), z(values[2])
    {
    }

    [[nodiscard]] double mod() const { return std::sqrt(modSquare()); }
    [[nodiscard]] double modSquare() const { return x * x + y * y + z * z; }
    [[nodiscard]] double dotProduct(X3DVector const& other) const
    {
        return x * other.x + y * other.y + z * other.z;
    }
    [[nodiscard]] X3DVector crossProduct(X3DVector const& other) const
    {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }

    /// The vector divided by its length; zero unless the length is above the tolerance.
    [[nodiscard]] X3DVector unit() const
    {
        double const length = mod();
        if (!(length > kVectorTolerance)) {
            return {};
        }
        return {x / length, y / length, z / length};
    }

    /// 1 if a component lies outside the open interval (-1e-6, 1e-6), as NaN does; else 0.
    [[nodiscard]] int isValid() const { return isSmall(x) && isSmall(y) && isSmall(z) ? 0 : 1; }

    /// The unsigned angle in [0, pi]; 0 if either vector is zero by components.
    [[nodiscard]] double angle(X3DVector const& other) const;

    /// The signed angle in (-pi, pi] seen against `reference`; 0 if any of the three is zero by
    /// components.
    ///
    /// Whether the two are parallel is judged on their cross product as it is, not normalised:
    /// short vectors at a right angle (5e-4 each) count as parallel. A cross product at a right
    /// angle to `reference` gives the negative angle. The cosine is not clamped, so a ratio that
    /// rounds above 1 gives NaN. All three are meant.
    [[nodiscard]] double angle(X3DVector const& other, X3DVector const& reference) const;

    friend bool operator==(X3DVector const&, X3DVector const&) = default;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

private:
    [[nodiscard]] static bool isSmall(double component)
    {
        return -kVectorTolerance < component && component < kVectorTolerance;
    }
};

}  // namespace vrn::orlo::plugin::modeling
