#include "plugins/modelingplugin/utilities/numerics/x3dsplane.h"

namespace vrn::orlo::plugin::modeling {

namespace {

X3DVector between(X3DSPoint const& from, X3DSPoint const& to)
{
    return {to.x - from.x, to.y - from.y, to.z - from.z};
}

X3DVector fromWorldOrigin(X3DSPoint const& point)
{
    return {point.x, point.y, point.z};
}

bool isNothing(double value)
{
    return -kVectorTolerance < value && value < kVectorTolerance;
}

/// A unit vector is longer than this, a zero vector is not.
constexpr double kHalf = 0.5;

}  // namespace

int X3DSPlane::intersection(X3DSLine const& line, X3DSPoint& point) const
{
    X3DVector const n = normal();
    double const s = -(n.dotProduct(fromWorldOrigin(line.origin())) + d);
    double const e = n.dotProduct(line.direction());
    if (isNothing(e)) {
        if (!isNothing(s)) {
            return -1;
        }
        point = line.origin();
        return 1;
    }
    point = line.at(s / e);
    return 0;
}

double X3DSPlane::distance(X3DSPoint const& point, X3DSPoint& foot) const
{
    X3DSPoint const asked = point;  // the foot may be the same object
    static_cast<void>(intersection(X3DSLine(asked, normal().unit()), foot));
    return asked.distance(foot);
}

int X3DSPlane::intersection(X3DSPlane const& plane, X3DSLine& line) const
{
    X3DVector const cross = normal().unit().crossProduct(plane.normal().unit());
    if (cross.mod() < kVectorTolerance) {
        return -1;
    }
    X3DSPoint footHere;
    X3DSPoint footThere;
    static_cast<void>(distance(X3DSPoint(), footHere));
    static_cast<void>(plane.distance(X3DSPoint(), footThere));
    X3DVector const here = fromWorldOrigin(footHere).unit();
    X3DVector const there = fromWorldOrigin(footThere).unit();

    // A plane whose foot has no direction passes through the world origin, which then serves as the
    // point that both share; a search that finds nothing leaves it there as well.
    X3DSPoint shared;
    if (here.mod() > kHalf) {
        static_cast<void>(plane.intersection(X3DSLine(footHere, here.crossProduct(cross)), shared));
    } else if (there.mod() > kHalf) {
        static_cast<void>(intersection(X3DSLine(footThere, there.crossProduct(cross)), shared));
    }
    line = X3DSLine(shared, cross);
    return 0;
}

int X3DSPlane::projection(X3DSLine const& line, X3DSLine& out) const
{
    X3DSPoint first;
    X3DSPoint second;
    static_cast<void>(distance(line.at(0.0), first));
    static_cast<void>(distance(line.at(1.0), second));
    if (!(first.distance(second) > kVectorTolerance)) {
        return -1;
    }
    out = X3DSLine(first, second);
    return 0;
}

int X3DSPlane::from3Points(X3DSPlane& plane, X3DSPoint const& p1, X3DSPoint const& p2,
                           X3DSPoint const& p3)
{
    X3DVector const first = between(p1, p2);
    X3DVector const second = between(p1, p3);
    X3DVector const n = first.crossProduct(second);
    if (first.mod() < kVectorTolerance || second.mod() < kVectorTolerance ||
        n.mod() < kVectorTolerance) {
        return -1;
    }
    plane = X3DSPlane(n, p1);
    return 0;
}

}  // namespace vrn::orlo::plugin::modeling
