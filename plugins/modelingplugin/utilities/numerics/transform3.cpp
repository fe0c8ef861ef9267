#include "plugins/modelingplugin/utilities/numerics/transform3.h"

#include "plugins/modelingplugin/utilities/numerics/plugintolerance.h"

#include <numbers>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr KFRDouble3DPoint kXAxis{1.0, 0.0, 0.0};
constexpr X3DVector kYAxis(0.0, 1.0, 0.0);

X3DVector divided(X3DVector const& v, double length)
{
    return {v.x / length, v.y / length, v.z / length};
}

}  // namespace

Matrix4 Transform3::rotateMatrix(KFRDouble3DPoint const& from, KFRDouble3DPoint const& to)
{
    X3DVector const a = toVector(from);
    X3DVector const b = toVector(to);
    X3DVector const axis = a.crossProduct(b);
    if (axis.isValid() != 0) {
        return rotate(X3DSLine(X3DSPoint(), axis), a.angle(b));
    }
    if (!(a.dotProduct(b) < 0.0)) {
        return identity();
    }
    Matrix4 reflection;
    reflection[0] = -1.0;
    reflection[5] = -1.0;
    reflection[10] = -1.0;
    return reflection;
}

Matrix4 Transform3::rotateMatrix(KFRDouble3DPoint const& v)
{
    X3DVector const xAxis = toVector(kXAxis);
    X3DVector const target = toVector(v);
    if (xAxis.crossProduct(target).isValid() != 0) {
        return rotateMatrix(kXAxis, v);
    }
    if (xAxis.dotProduct(target) < 0.0) {
        return rotate(X3DSLine(X3DSPoint(), kYAxis), std::numbers::pi);
    }
    return identity();
}

Matrix4 Transform3::translateMatrix(KFRDouble3DPoint const& from, KFRDouble3DPoint const& to)
{
    X3DVector const v(to.x - from.x, to.y - from.y, to.z - from.z);
    double const length = v.mod();
    if (length < kPluginTolerance) {
        return identity();
    }
    // Divided here: the unit() of the X3DS family would lose what lies between the two tolerances.
    return translate(divided(v, length), length);
}

KFRDouble3DPoint Transform3::transformVector(Matrix4 const& m, KFRDouble3DPoint const& v)
{
    X3DSPoint const tip = X3DSTransform::transformPoint(toPoint(v), m);
    X3DSPoint const base = X3DSTransform::transformPoint(X3DSPoint(), m);
    X3DVector const image(tip.x - base.x, tip.y - base.y, tip.z - base.z);
    double const length = image.mod();
    return length < kPluginTolerance ? KFRDouble3DPoint() : toRecord(divided(image, length));
}

}  // namespace vrn::orlo::plugin::modeling
