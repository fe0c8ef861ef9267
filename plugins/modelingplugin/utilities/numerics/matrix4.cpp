#include "plugins/modelingplugin/utilities/numerics/matrix4.h"

#include <algorithm>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr std::size_t kElements = 16;

template <class T>
void take(Matrix4& matrix, KFRSequence<T> const& values)
{
    std::size_t const count = std::min(values.size(), kElements);
    std::transform(values.begin(), values.begin() + count, matrix.data(),
                   [](T value) { return static_cast<double>(value); });
}

template <class T>
bool give(Matrix4 const& matrix, KFRSequence<T>& values)
{
    values.resize(kElements);
    std::transform(matrix.data(), matrix.data() + kElements, values.begin(),
                   [](double value) { return static_cast<T>(value); });
    return true;
}

}  // namespace

Matrix4::Matrix4(KFRSequence<float> const& values)
{
    take(*this, values);
}

Matrix4::Matrix4(KFRSequence<double> const& values)
{
    take(*this, values);
}

bool Matrix4::sequence(KFRSequence<float>& values) const
{
    return give(*this, values);
}

bool Matrix4::sequence(KFRSequence<double>& values) const
{
    return give(*this, values);
}

Matrix4 Matrix4::fromMatrix3x3(KFRDoubleMatrix33 const& block)
{
    Matrix4 matrix;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            matrix.at(row, column) = block.m[static_cast<std::size_t>(row * 3 + column)];
        }
    }
    return matrix;
}

}  // namespace vrn::orlo::plugin::modeling
