/// \file
/// The plug-in layer's line.

#pragma once

#include "plugins/modelingplugin/utilities/numerics/kernelconversions.h"
#include "plugins/modelingplugin/utilities/numerics/x3dsline.h"

namespace vrn::orlo::plugin::modeling {

/// An X3DSLine that speaks the framework's points. Every operation is that of the base; points in
/// single precision are widened first.
///
/// Shape      Nothing added to the base.
class Line3 : public X3DSLine {
public:
    Line3() = default;
    Line3(X3DSLine const& line) : X3DSLine(line) {}  // NOLINT: the same line

    /// The line through a along b. The second argument is a direction, unlike that of an X3DSLine
    /// from two points.
    Line3(KFRDouble3DPoint const& a, KFRDouble3DPoint const& b) : X3DSLine(toPoint(a), toVector(b))
    {
    }
    Line3(KFRFloat3DPoint const& a, KFRFloat3DPoint const& b) : Line3(widened(a), widened(b)) {}

    /// The line from a to b, whose difference is taken in single precision. There is no form in
    /// double precision.
    [[nodiscard]] static Line3 fromPoints(KFRFloat3DPoint const& a, KFRFloat3DPoint const& b)
    {
        return {a, KFRFloat3DPoint{b.x - a.x, b.y - a.y, b.z - a.z}};
    }

    [[nodiscard]] KFRDouble3DPoint origin() const { return toRecord(X3DSLine::origin()); }
    [[nodiscard]] KFRDouble3DPoint direction() const { return toRecord(X3DSLine::direction()); }
    void setOrigin(KFRDouble3DPoint const& p) { X3DSLine::setOrigin(toPoint(p)); }
    void setOrigin(KFRFloat3DPoint const& p) { setOrigin(widened(p)); }
    void setDirection(KFRDouble3DPoint const& v) { X3DSLine::setDirection(toVector(v)); }
    void setDirection(KFRFloat3DPoint const& v) { setDirection(widened(v)); }
    [[nodiscard]] KFRDouble3DPoint at(double t) const { return toRecord(X3DSLine::at(t)); }

    double distance(KFRDouble3DPoint const& point, KFRDouble3DPoint& foot) const
    {
        X3DSPoint found;
        double const answer = X3DSLine::distance(toPoint(point), found);
        foot = toRecord(found);
        return answer;
    }
    double distance(KFRFloat3DPoint const& point, KFRDouble3DPoint& foot) const
    {
        return distance(widened(point), foot);
    }
    [[nodiscard]] double distance(KFRDouble3DPoint const& point) const
    {
        return X3DSLine::distance(toPoint(point));
    }
    [[nodiscard]] double distance(KFRFloat3DPoint const& point) const
    {
        return distance(widened(point));
    }
    [[nodiscard]] double distance(Line3 const& other) const { return X3DSLine::distance(other); }

    double intersection(Line3 const& other, KFRDouble3DPoint& point) const
    {
        X3DSPoint found;
        double const answer = X3DSLine::intersection(other, found);
        point = toRecord(found);
        return answer;
    }
};

static_assert(sizeof(Line3) == sizeof(X3DSLine));

}  // namespace vrn::orlo::plugin::modeling
