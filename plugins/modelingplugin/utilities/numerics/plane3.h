/// \file
/// The plug-in layer's plane.

#pragma once

#include "plugins/modelingplugin/utilities/numerics/line3.h"
#include "plugins/modelingplugin/utilities/numerics/x3dsplane.h"

namespace vrn::orlo::plugin::modeling {

/// An X3DSPlane that speaks the framework's points. Every operation is that of the base; points in
/// single precision are widened first.
///
/// Shape      Nothing added to the base.
class Plane3 : public X3DSPlane {
public:
    Plane3() = default;
    Plane3(X3DSPlane const& plane) : X3DSPlane(plane) {}  // NOLINT: the same plane

    /// The plane through p with the normal n as given.
    Plane3(KFRDouble3DPoint const& n, KFRDouble3DPoint const& p)
        : X3DSPlane(toVector(n), toPoint(p))
    {
    }
    Plane3(KFRFloat3DPoint const& n, KFRFloat3DPoint const& p) : Plane3(widened(n), widened(p)) {}

    [[nodiscard]] static Plane3 XOY() { return ofParam(0.0, 0.0, 1.0); }
    [[nodiscard]] static Plane3 XOZ() { return ofParam(0.0, 1.0, 0.0); }
    [[nodiscard]] static Plane3 YOZ() { return ofParam(1.0, 0.0, 0.0); }

    [[nodiscard]] KFRDouble3DPoint normal() const { return toRecord(X3DSPlane::normal()); }

    int intersection(Line3 const& line, KFRDouble3DPoint& point) const
    {
        X3DSPoint found = toPoint(point);
        int const answer = X3DSPlane::intersection(line, found);
        point = toRecord(found);
        return answer;
    }

    /// Unlike the base, this assigns the line in any case: with -1 it is the all-zero line. That is
    /// meant.
    int intersection(Plane3 const& plane, Line3& line) const
    {
        X3DSLine found;
        int const answer = X3DSPlane::intersection(plane, found);
        line = found;
        return answer;
    }

    double distance(KFRDouble3DPoint const& point, KFRDouble3DPoint& foot) const
    {
        X3DSPoint found = toPoint(foot);
        double const answer = X3DSPlane::distance(toPoint(point), found);
        foot = toRecord(found);
        return answer;
    }
    double distance(KFRFloat3DPoint const& point, KFRDouble3DPoint& foot) const
    {
        return distance(widened(point), foot);
    }

    int projection(Line3 const& line, Line3& out) const { return X3DSPlane::projection(line, out); }

    static int from3Points(Plane3& plane, KFRDouble3DPoint const& p1, KFRDouble3DPoint const& p2,
                           KFRDouble3DPoint const& p3)
    {
        return X3DSPlane::from3Points(plane, toPoint(p1), toPoint(p2), toPoint(p3));
    }
    static int from3Points(Plane3& plane, KFRFloat3DPoint const& p1, KFRFloat3DPoint const& p2,
                           KFRFloat3DPoint const& p3)
    {
        return from3Points(plane, widened(p1), widened(p2), widened(p3));
    }

private:
    [[nodiscard]] static Plane3 ofParam(double a, double b, double c)
    {
        Plane3 plane;
        plane.setParam(a, b, c, 0.0);
        return plane;
    }
};

static_assert(sizeof(Plane3) == sizeof(X3DSPlane));

}  // namespace vrn::orlo::plugin::modeling
