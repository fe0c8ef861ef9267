/// \file
/// Axis-aligned box.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/kernelconversions.h"

#include <limits>

namespace vrn::orlo::plugin::modeling {

/// A box between two corners.
///
/// Units      The caller's length unit.
/// Shape      A default box is inverted, so that it can be grown: its min is the greatest double
///            and its max the least.
/// Cost       Six doubles; no allocation.
class MODELING_API BoundingBox {
public:
    BoundingBox() = default;
    BoundingBox(KFRDouble3DPoint const& min, KFRDouble3DPoint const& max) : m_min(min), m_max(max)
    {
    }
    BoundingBox(KFRFloat3DPoint const& min, KFRFloat3DPoint const& max)
        : m_min(widened(min)), m_max(widened(max))
    {
    }

    void setMin(KFRDouble3DPoint const& min) { m_min = min; }
    void setMin(KFRFloat3DPoint const& min) { m_min = widened(min); }
    void setMax(KFRDouble3DPoint const& max) { m_max = max; }
    void setMax(KFRFloat3DPoint const& max) { m_max = widened(max); }
    [[nodiscard]] KFRDouble3DPoint const& minPoint() const { return m_min; }
    [[nodiscard]] KFRDouble3DPoint const& maxPoint() const { return m_max; }
    [[nodiscard]] double sizeX() const { return m_max.x - m_min.x; }
    [[nodiscard]] double sizeY() const { return m_max.y - m_min.y; }
    [[nodiscard]] double sizeZ() const { return m_max.z - m_min.z; }

    /// Subtracts `low` from min and adds `high` to max, on all axes or by component.
    void inflate(double low, double high) { inflate({low, low, low}, {high, high, high}); }
    void inflate(KFRDouble3DPoint const& low, KFRDouble3DPoint const& high);
    /// Adds `low` to min and subtracts `high` from max.
    void deflate(double low, double high) { inflate(-low, -high); }
    void deflate(KFRDouble3DPoint const& low, KFRDouble3DPoint const& high);

    /// The box around both.
    [[nodiscard]] BoundingBox operator+(BoundingBox const& other) const;

    /// What both share on x and y. On z the max is the lesser, but the min is the other's unless
    /// this box is inverted on z: this box is compared with itself there, and callers rely on it.
    [[nodiscard]] BoundingBox intersection(BoundingBox const& other) const;

    /// False for a point that is outside by kPluginTolerance or more on any axis.
    [[nodiscard]] bool inBoundingBox(KFRDouble3DPoint const& p) const;
    [[nodiscard]] bool inBoundingBox(KFRFloat3DPoint const& p) const
    {
        return inBoundingBox(widened(p));
    }

    /// Whether min exceeds max by less than kPluginTolerance on every axis: a box may be flat, and
    /// even inverted by less than that.
    [[nodiscard]] bool isValid() const;

    friend bool operator==(BoundingBox const&, BoundingBox const&) = default;

private:
    static constexpr double kHuge = std::numeric_limits<double>::max();

    KFRDouble3DPoint m_min{kHuge, kHuge, kHuge};
    KFRDouble3DPoint m_max{-kHuge, -kHuge, -kHuge};
};

}  // namespace vrn::orlo::plugin::modeling
