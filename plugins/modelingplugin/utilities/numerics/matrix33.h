/// \file
/// Orientation of a frame.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// A 3 by 3 matrix whose columns are the axes of a frame.
///
/// Shape      Nine doubles, row-major; all zero at the start. matrix() and setMatrix copy the nine
///            words as they stand, while x(), y() and z() are columns.
/// Cost       No allocation.
class MODELING_API Matrix33 {
public:
    Matrix33() = default;
    explicit Matrix33(KFRDoubleMatrix33 const& matrix) : m_matrix(matrix) {}
    Matrix33(KFRDouble3DPoint const& x, KFRDouble3DPoint const& y, KFRDouble3DPoint const& z);

    void setXYZ(KFRDouble3DPoint const& x, KFRDouble3DPoint const& y, KFRDouble3DPoint const& z);
    [[nodiscard]] KFRDouble3DPoint x() const { return column(0); }
    [[nodiscard]] KFRDouble3DPoint y() const { return column(1); }
    [[nodiscard]] KFRDouble3DPoint z() const { return column(2); }
    void x(KFRDouble3DPoint const& axis) { setColumn(0, axis); }
    void y(KFRDouble3DPoint const& axis) { setColumn(1, axis); }
    void z(KFRDouble3DPoint const& axis) { setColumn(2, axis); }

    [[nodiscard]] KFRDoubleMatrix33 const& matrix() const { return m_matrix; }
    void setMatrix(KFRDoubleMatrix33 const& matrix) { m_matrix = matrix; }

    void transposeSelf();

    /// The inverse; of a matrix that X3DSTransform::inverse takes for singular, the identity.
    [[nodiscard]] Matrix33 inverse() const;

    /// inverse(a) * b: the rotation from the frame a to the frame b. For a singular a it is b.
    [[nodiscard]] static Matrix33 getRotateMatrix(Matrix33 const& a, Matrix33 const& b);

    friend bool operator==(Matrix33 const&, Matrix33 const&) = default;

private:
    [[nodiscard]] KFRDouble3DPoint column(std::size_t index) const;
    void setColumn(std::size_t index, KFRDouble3DPoint const& axis);

    KFRDoubleMatrix33 m_matrix;
};

/// Whether all nine differences are strictly below the tolerance: with tolerance 0 not even equal
/// matrices are the same.
[[nodiscard]] MODELING_API bool isSameMatrix(KFRDoubleMatrix33 const& a, KFRDoubleMatrix33 const& b,
                                             double tolerance);

/// The same against the identity, with kPluginTolerance.
[[nodiscard]] MODELING_API bool isUnitMatrix(KFRDoubleMatrix33 const& m);

}  // namespace vrn::orlo::plugin::modeling
