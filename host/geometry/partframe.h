/// \file
/// Points and directions of the model, as an instance's part sees them.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <array>

namespace vrn::orlo::host::geometry {

/// The way from model coordinates back to those of a part: the inverse of a placement, which turns,
/// mirrors and scales alike in all directions.
class PartFrame {
public:
    explicit PartFrame(Placement const& placement);

    /// False for a placement without extent, which cannot be inverted.
    [[nodiscard]] bool isUsable() const noexcept { return m_scale > 0.0; }

    /// How many mm of the model 1 mm of the part is.
    [[nodiscard]] double scale() const noexcept { return m_scale; }

    [[nodiscard]] std::array<double, 3> point(std::array<double, 3> const& inModel) const;

    /// Turned and mirrored only; its length changes by the scale.
    [[nodiscard]] std::array<double, 3> direction(std::array<double, 3> const& inModel) const;

private:
    std::array<double, 12> m_rows;
    double m_scale;
};

/// The distance of a point from a box, 0 inside it; infinite for an empty box.
[[nodiscard]] double distanceTo(Box const& box, std::array<double, 3> const& point);

/// Degrees between two directions, exact also for small angles; not a number when one has no
/// length.
[[nodiscard]] double degreesBetween(std::array<double, 3> const& a, std::array<double, 3> const& b);

/// True when all three are finite numbers.
[[nodiscard]] bool isFinite(std::array<double, 3> const& values);

}  // namespace vrn::orlo::host::geometry
