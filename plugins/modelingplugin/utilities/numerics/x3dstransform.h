/// \file
/// Transforms of the X3DS family.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/x3dsline.h"
#include "plugins/modelingplugin/utilities/numerics/xmatrix4x4.h"

namespace vrn::orlo::plugin::modeling {

/// Vectors whose angle differs from pi by less count as opposite in X3DSTransform::rotate: pi /
/// 18000, a hundredth of a degree.
inline constexpr double kAntiParallelTolerance = 0.00017453292519943296;

/// A pivot of smaller magnitude makes a matrix singular. It is 1e-4 of single precision, widened;
/// the digits are meant.
inline constexpr double kSingularPivot = 9.999999747378752e-5;

/// Builds transforms and applies them.
///
/// Units      Lengths: the caller's. Angles: radians, right-handed.
/// Failure    NaN in the answer for an axis or a direction of no length; inverse() answers 0.0.
/// Threads    Any.
class MODELING_API X3DSTransform {
public:
    static XMatrix4X4 translate(double x, double y, double z);
    /// By distance * v / |v|. A zero v gives NaN.
    static XMatrix4X4 translate(X3DVector const& v, double distance);
    static XMatrix4X4 translate(X3DSLine const& line, double distance);

    /// By s about p.
    static XMatrix4X4 scale(X3DSPoint const& p, double s);

    /// Rz(c) * Ry(b) * Rx(a).
    static XMatrix4X4 rotate(double a, double b, double c);
    /// The same about p.
    static XMatrix4X4 rotate(X3DSPoint const& p, double a, double b, double c);
    /// About the axis through p. A zero axis gives NaN.
    static XMatrix4X4 rotate(X3DSPoint const& p, X3DVector const& axis, double angle);
    static XMatrix4X4 rotate(X3DSLine const& line, double angle);

    /// The rotation that takes a to b; the identity if their cross product is zero by components.
    ///
    /// Opposite vectors give rotateEuler(0, pi, 0), the half turn about X whatever they are, so
    /// that X against -X stays X. That is meant.
    static XMatrix4X4 rotate(X3DVector const& a, X3DVector const& b);

    /// Intrinsic rotations: phi about Z, theta about the new X, psi about the newer Z.
    static XMatrix4X4 rotateEuler(double phi, double theta, double psi);
    /// The angles of rotateEuler: phi and psi in [0, 2 pi), theta in [0, pi]. With Z on itself or
    /// on its opposite, psi is 0 and phi the whole turn.
    static void getEuler(XMatrix4X4 const& m, double& phi, double& theta, double& psi);

    /// m * point; the fourth row is not read.
    static X3DSPoint transformPoint(X3DSPoint const& point, XMatrix4X4 const& m)
    {
        return {m[0] * point.x + m[1] * point.y + m[2] * point.z + m[3],
                m[4] * point.x + m[5] * point.y + m[6] * point.z + m[7],
                m[8] * point.x + m[9] * point.y + m[10] * point.z + m[11]};
    }

    /// The direction of the image of v: of length 1, or zero unless the image is longer than
    /// kVectorTolerance. It does not keep the length, and callers rely on that.
    static X3DVector transformVector(X3DVector const& v, XMatrix4X4 const& m)
    {
        X3DSPoint const tip = transformPoint(X3DSPoint(v.x, v.y, v.z), m);
        X3DSPoint const base = transformPoint(X3DSPoint(), m);
        return X3DVector(tip.x - base.x, tip.y - base.y, tip.z - base.z).unit();
    }

    /// Inverts by full pivoting and answers the determinant. A pivot below kSingularPivot gives 0.0
    /// and leaves `out` alone. `out` may be `m`.
    static double inverse(XMatrix4X4 const& m, XMatrix4X4& out);
};

}  // namespace vrn::orlo::plugin::modeling
