#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <cmath>
#include <numbers>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr X3DVector kXAxis(1.0, 0.0, 0.0);
constexpr X3DVector kZAxis(0.0, 0.0, 1.0);

/// T(p) * rotation * T(-p).
XMatrix4X4 about(X3DSPoint const& p, XMatrix4X4 const& rotation)
{
    return X3DSTransform::translate(p.x, p.y, p.z)
        .product(rotation)
        .product(X3DSTransform::translate(-p.x, -p.y, -p.z));
}

/// Rodrigues' formula. The axis is divided by its length with no guard.
XMatrix4X4 aroundAxis(X3DVector const& axis, double angle)
{
    double const length = axis.mod();
    double const x = axis.x / length;
    double const y = axis.y / length;
    double const z = axis.z / length;
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    double const t = 1.0 - c;
    // clang-format off
    double const values[16] = {
        c + t * x * x,     t * x * y - s * z, t * x * z + s * y, 0.0,
        t * x * y + s * z, c + t * y * y,     t * y * z - s * x, 0.0,
        t * x * z - s * y, t * y * z + s * x, c + t * z * z,     0.0,
        0.0,               0.0,               0.0,               1.0};
    // clang-format on
    return XMatrix4X4(values);
}

double fromZero(double angle)
{
    return angle < 0.0 ? angle + 2.0 * kPi : angle;
}

}  // namespace

XMatrix4X4 X3DSTransform::translate(double x, double y, double z)
{
    XMatrix4X4 result;
    result[3] = x;
    result[7] = y;
    result[11] = z;
    return result;
}

XMatrix4X4 X3DSTransform::translate(X3DVector const& v, double distance)
{
    double const length = v.mod();
    return translate(distance * v.x / length, distance * v.y / length, distance * v.z / length);
}

XMatrix4X4 X3DSTransform::translate(X3DSLine const& line, double distance)
{
    return translate(line.direction(), distance);
}

XMatrix4X4 X3DSTransform::scale(X3DSPoint const& p, double s)
{
    XMatrix4X4 result = translate((1.0 - s) * p.x, (1.0 - s) * p.y, (1.0 - s) * p.z);
    result[0] = s;
    result[5] = s;
    result[10] = s;
    return result;
}

XMatrix4X4 X3DSTransform::rotate(double a, double b, double c)
{
    double const sa = std::sin(a);
    double const ca = std::cos(a);
    double const sb = std::sin(b);
    double const cb = std::cos(b);
    double const sc = std::sin(c);
    double const cc = std::cos(c);
    // clang-format off
    double const values[16] = {
        cc * cb, cc * sb * sa - sc * ca, cc * sb * ca + sc * sa, 0.0,
        sc * cb, sc * sb * sa + cc * ca, sc * sb * ca - cc * sa, 0.0,
        -sb,     cb * sa,                cb * ca,                0.0,
        0.0,     0.0,                    0.0,                    1.0};
    // clang-format on
    return XMatrix4X4(values);
}

XMatrix4X4 X3DSTransform::rotate(X3DSPoint const& p, double a, double b, double c)
{
    return about(p, rotate(a, b, c));
}

XMatrix4X4 X3DSTransform::rotate(X3DSPoint const& p, X3DVector const& axis, double angle)
{
    return about(p, aroundAxis(axis, angle));
}

XMatrix4X4 X3DSTransform::rotate(X3DSLine const& line, double angle)
{
    return rotate(line.origin(), line.direction(), angle);
}

XMatrix4X4 X3DSTransform::rotate(X3DVector const& a, X3DVector const& b)
{
    double const angle = b.angle(a);
    if (std::abs(angle - kPi) < kAntiParallelTolerance) {
        return rotateEuler(0.0, kPi, 0.0);
    }
    X3DVector const axis = a.crossProduct(b);
    if (axis.isValid() == 0) {
        return {};
    }
    return rotate(X3DSPoint(), axis, angle);
}

XMatrix4X4 X3DSTransform::rotateEuler(double phi, double theta, double psi)
{
    XMatrix4X4 const first = rotate(X3DSPoint(), kZAxis, phi);
    XMatrix4X4 const second = rotate(X3DSPoint(), transformVector(kXAxis, first), theta);
    XMatrix4X4 const both = second.product(first);
    return rotate(X3DSPoint(), transformVector(kZAxis, both), psi).product(both);
}

void X3DSTransform::getEuler(XMatrix4X4 const& m, double& phi, double& theta, double& psi)
{
    X3DVector const xImage = transformVector(kXAxis, m);
    X3DVector const zImage = transformVector(kZAxis, m);
    X3DVector node = kZAxis.crossProduct(zImage);
    if (node.isValid() == 0) {
        node = xImage;
    }
    phi = fromZero(kXAxis.angle(node, kZAxis));
    theta = kZAxis.angle(zImage);
    psi = fromZero(node.angle(xImage, zImage));
}

}  // namespace vrn::orlo::plugin::modeling
