/// \file
/// A plane in implicit form.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/x3dsline.h"

namespace vrn::orlo::plugin::modeling {

/// The plane a*x + b*y + c*z + d = 0.
///
/// Shape      The normal (a, b, c) is never normalised, so the tolerances below act on values that
///            grow and shrink with its length. That is meant.
/// Failure    The status of an operation: 0 done; 1 a line lies in the plane; -1 no answer, and
///            what was to be written is left alone.
/// Cost       Four doubles; no allocation.
class MODELING_API X3DSPlane {
public:
    X3DSPlane() = default;
    /// The plane through p with the normal n as given.
    X3DSPlane(X3DVector const& n, X3DSPoint const& p)
        : a(n.x), b(n.y), c(n.z), d(-(n.x * p.x + n.y * p.y + n.z * p.z))
    {
    }

    [[nodiscard]] X3DVector normal() const { return {a, b, c}; }
    void setParam(double pa, double pb, double pc, double pd)
    {
        a = pa;
        b = pb;
        c = pc;
        d = pd;
    }

    /// Where the line meets the plane: 0. A line in the plane: its origin, and 1. A parallel line
    /// off the plane: -1.
    int intersection(X3DSLine const& line, X3DSPoint& point) const;

    /// The unsigned distance of the point, and its foot on the plane. With a normal of no length
    /// no foot is written, and the answer is the distance from what `foot` was.
    double distance(X3DSPoint const& point, X3DSPoint& foot) const;

    /// The line that the planes share; its direction is the unit of the cross product of their
    /// normals. -1 for parallel planes.
    int intersection(X3DSPlane const& plane, X3DSLine& line) const;

    /// The line's image on the plane. -1 for a line whose feet are not more than the tolerance
    /// apart.
    int projection(X3DSLine const& line, X3DSLine& out) const;

    /// The plane through three points; the normal is (p2 - p1) x (p3 - p1) as it is. -1 if p2 or p3
    /// is closer to p1 than the tolerance, or the normal shorter than it: a right angle with legs
    /// of 5e-4 is too small, and is meant to be.
    static int from3Points(X3DSPlane& plane, X3DSPoint const& p1, X3DSPoint const& p2,
                           X3DSPoint const& p3);

    friend bool operator==(X3DSPlane const&, X3DSPlane const&) = default;

    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
};

}  // namespace vrn::orlo::plugin::modeling
