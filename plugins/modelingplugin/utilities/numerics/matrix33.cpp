#include "plugins/modelingplugin/utilities/numerics/matrix33.h"

#include "plugins/modelingplugin/utilities/numerics/matrix4.h"
#include "plugins/modelingplugin/utilities/numerics/plugintolerance.h"
#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr KFRDoubleMatrix33 kIdentity{{1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0}};

KFRDoubleMatrix33 upperLeft(XMatrix4X4 const& matrix)
{
    KFRDoubleMatrix33 block;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            block.m[static_cast<std::size_t>(row * 3 + column)] = matrix.at(row, column);
        }
    }
    return block;
}

/// The widened inverse; the identity when there is none.
XMatrix4X4 widenedInverse(KFRDoubleMatrix33 const& matrix)
{
    XMatrix4X4 result;
    static_cast<void>(X3DSTransform::inverse(Matrix4::fromMatrix3x3(matrix), result));
    return result;
}

}  // namespace

Matrix33::Matrix33(KFRDouble3DPoint const& x, KFRDouble3DPoint const& y, KFRDouble3DPoint const& z)
{
    setXYZ(x, y, z);
}

void Matrix33::setXYZ(KFRDouble3DPoint const& x, KFRDouble3DPoint const& y,
                      KFRDouble3DPoint const& z)
{
    setColumn(0, x);
    setColumn(1, y);
    setColumn(2, z);
}

KFRDouble3DPoint Matrix33::column(std::size_t index) const
{
    return {m_matrix.m[index], m_matrix.m[3 + index], m_matrix.m[6 + index]};
}

void Matrix33::setColumn(std::size_t index, KFRDouble3DPoint const& axis)
{
    m_matrix.m[index] = axis.x;
    m_matrix.m[3 + index] = axis.y;
    m_matrix.m[6 + index] = axis.z;
}

void Matrix33::transposeSelf()
{
    std::swap(m_matrix.m[1], m_matrix.m[3]);
    std::swap(m_matrix.m[2], m_matrix.m[6]);
    std::swap(m_matrix.m[5], m_matrix.m[7]);
}

Matrix33 Matrix33::inverse() const
{
    return Matrix33(upperLeft(widenedInverse(m_matrix)));
}

Matrix33 Matrix33::getRotateMatrix(Matrix33 const& a, Matrix33 const& b)
{
    return Matrix33(
        upperLeft(widenedInverse(a.m_matrix).product(Matrix4::fromMatrix3x3(b.m_matrix))));
}

bool isSameMatrix(KFRDoubleMatrix33 const& a, KFRDoubleMatrix33 const& b, double tolerance)
{
    return std::equal(a.m.begin(), a.m.end(), b.m.begin(), [tolerance](double left, double right) {
        return std::abs(left - right) < tolerance;
    });
}

bool isUnitMatrix(KFRDoubleMatrix33 const& m)
{
    return isSameMatrix(m, kIdentity, kPluginTolerance);
}

}  // namespace vrn::orlo::plugin::modeling
