/// \file
/// The plug-in layer's transforms.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/kernelconversions.h"
#include "plugins/modelingplugin/utilities/numerics/matrix4.h"
#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

namespace vrn::orlo::plugin::modeling {

/// Builds and applies transforms in terms of the framework's points. The matrix comes first among
/// the arguments, unlike in the base; points in single precision are widened first.
///
/// Units      Lengths: the caller's. Angles: radians, right-handed.
/// Failure    As the base: NaN for an axis of no length.
/// Threads    Any.
class MODELING_API Transform3 : public X3DSTransform {
public:
    [[nodiscard]] static Matrix4 identity() { return {}; }
    /// left * right: the right one acts first.
    [[nodiscard]] static Matrix4 product(Matrix4 const& left, Matrix4 const& right)
    {
        return left.product(right);
    }

    /// The rotation that takes the direction `from` to the direction `to`.
    ///
    /// Opposite vectors give the point reflection diag(-1, -1, -1, 1), which is no rotation, and
    /// unlike X3DSTransform::rotate. That is meant.
    [[nodiscard]] static Matrix4 rotateMatrix(KFRDouble3DPoint const& from,
                                              KFRDouble3DPoint const& to);
    [[nodiscard]] static Matrix4 rotateMatrix(KFRFloat3DPoint const& from,
                                              KFRFloat3DPoint const& to)
    {
        return rotateMatrix(widened(from), widened(to));
    }

    /// The rotation that takes the X axis to v; for the opposite of the X axis the half turn about
    /// Y.
    [[nodiscard]] static Matrix4 rotateMatrix(KFRDouble3DPoint const& v);
    [[nodiscard]] static Matrix4 rotateMatrix(KFRFloat3DPoint const& v)
    {
        return rotateMatrix(widened(v));
    }

    /// Rz(c) * Ry(b) * Rx(a).
    [[nodiscard]] static Matrix4 rotateMatrix(double a, double b, double c)
    {
        return rotate(a, b, c);
    }
    [[nodiscard]] static Matrix4 rotateMatrix(float a, float b, float c)
    {
        return rotate(static_cast<double>(a), static_cast<double>(b), static_cast<double>(c));
    }

    /// About the line through `origin` along `direction`.
    [[nodiscard]] static Matrix4 rotationAbout(double angle, KFRDouble3DPoint const& direction,
                                               KFRDouble3DPoint const& origin)
    {
        return rotate(X3DSLine(toPoint(origin), toVector(direction)), angle);
    }
    [[nodiscard]] static Matrix4 rotationAbout(double angle, KFRFloat3DPoint const& direction,
                                               KFRFloat3DPoint const& origin)
    {
        return rotationAbout(angle, widened(direction), widened(origin));
    }

    /// By s about the world origin.
    [[nodiscard]] static Matrix4 scaleMatrix(double s) { return scale(X3DSPoint(), s); }

    /// By to - from; the identity when that is shorter than kPluginTolerance.
    [[nodiscard]] static Matrix4 translateMatrix(KFRDouble3DPoint const& from,
                                                 KFRDouble3DPoint const& to);
    [[nodiscard]] static Matrix4 translateMatrix(KFRFloat3DPoint const& from,
                                                 KFRFloat3DPoint const& to)
    {
        return translateMatrix(widened(from), widened(to));
    }

    /// m * p; the fourth row is not read.
    [[nodiscard]] static KFRDouble3DPoint transformPoint(Matrix4 const& m,
                                                         KFRDouble3DPoint const& p)
    {
        return toRecord(X3DSTransform::transformPoint(toPoint(p), m));
    }
    [[nodiscard]] static KFRDouble3DPoint transformPoint(Matrix4 const& m, KFRFloat3DPoint const& p)
    {
        return transformPoint(m, widened(p));
    }

    /// The direction of the image of v: of length 1, or zero when the image is shorter than
    /// kPluginTolerance, which is not the tolerance of the base.
    [[nodiscard]] static KFRDouble3DPoint transformVector(Matrix4 const& m,
                                                          KFRDouble3DPoint const& v);
    [[nodiscard]] static KFRDouble3DPoint transformVector(Matrix4 const& m,
                                                          KFRFloat3DPoint const& v)
    {
        return transformVector(m, widened(v));
    }
};

}  // namespace vrn::orlo::plugin::modeling
