/// \file
/// A line: a point and a direction.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/x3dspoint.h"
#include "plugins/modelingplugin/utilities/numerics/x3dvector.h"

namespace vrn::orlo::plugin::modeling {

/// A line through a point.
///
/// Shape      The direction has length 1, or 0 when it was made from a vector that is too short.
/// Units      The caller's length unit; angle() alone answers in degrees.
/// Failure    NaN where a zero direction, or a point on the origin, is said to give it. Cosines are
///            not clamped: a ratio that rounds above 1 gives NaN as well. Nothing of this is
///            mended; callers know it.
/// Cost       Six doubles; no allocation.
class MODELING_API X3DSLine {
public:
    X3DSLine() = default;
    /// The line from p to q.
    X3DSLine(X3DSPoint const& p, X3DSPoint const& q)
        : m_origin(p), m_direction(X3DVector(q.x - p.x, q.y - p.y, q.z - p.z).unit())
    {
    }
    /// The line through p along d.
    X3DSLine(X3DSPoint const& p, X3DVector const& d) : m_origin(p), m_direction(d.unit()) {}

    [[nodiscard]] X3DSPoint const& origin() const { return m_origin; }
    [[nodiscard]] X3DVector const& direction() const { return m_direction; }
    void setOrigin(X3DSPoint const& origin) { m_origin = origin; }
    /// Stores the unit vector.
    void setDirection(X3DVector const& direction) { m_direction = direction.unit(); }

    /// origin + t * direction.
    [[nodiscard]] X3DSPoint at(double t) const
    {
        return {m_origin.x + t * m_direction.x, m_origin.y + t * m_direction.y,
                m_origin.z + t * m_direction.z};
    }

    /// The acute angle in degrees, [0, 90]: the only angle of the kernel in degrees. NaN for a zero
    /// direction.
    [[nodiscard]] double angle(X3DSLine const& other) const;

    /// Distance of the point, and its foot on the line. NaN for a zero direction.
    double distance(X3DSPoint const& point, X3DSPoint& foot) const;
    /// Distance of the point by way of the angle: NaN, not 0, for the origin itself. Use the form
    /// with a foot where 0 is needed there.
    [[nodiscard]] double distance(X3DSPoint const& point) const;
    /// Distance of the lines. Of parallel ones (cross product not above the tolerance) the distance
    /// of the other's origin, with the NaN of that form: a line against itself answers NaN.
    [[nodiscard]] double distance(X3DSLine const& other) const;

    /// The point of this line nearest to the other, and the distance of the lines, which need not
    /// meet. Of parallel ones (cross product below the tolerance) this line's origin, and the
    /// distance of the other's origin.
    double intersection(X3DSLine const& other, X3DSPoint& point) const;

    friend bool operator==(X3DSLine const&, X3DSLine const&) = default;

private:
    X3DSPoint m_origin;
    X3DVector m_direction;
};

}  // namespace vrn::orlo::plugin::modeling
