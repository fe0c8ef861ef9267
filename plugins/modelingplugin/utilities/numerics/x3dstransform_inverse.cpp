// Inversion by Gauss-Jordan elimination in place, with full pivoting.

#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr std::size_t kSize = 4;
using Rows = std::array<std::array<double, kSize>, kSize>;

struct Pivot {
    std::size_t m_row;
    std::size_t m_column;
};

/// The greatest element of the rows and columns from `step` on; the first in row-major order of equals.
Pivot greatest(Rows const& a, std::size_t step)
{
    Pivot pivot{step, step};
    double best = std::abs(a[step][step]);
    for (std::size_t row = step; row < kSize; ++row) {
        for (std::size_t column = step; column < kSize; ++column) {
            if (double const magnitude = std::abs(a[row][column]); magnitude > best) {
                best = magnitude;
                pivot = {row, column};
            }
        }
    }
    return pivot;
}

void swapColumns(Rows& a, std::size_t first, std::size_t second)
{
    for (auto& row : a) {
        std::swap(row[first], row[second]);
    }
}

/// Clears the pivot's column; the pivot itself becomes its reciprocal.
void eliminate(Rows& a, std::size_t step)
{
    double const reciprocal = 1.0 / a[step][step];
    a[step][step] = reciprocal;
    for (std::size_t column = 0; column < kSize; ++column) {
        a[step][column] *= column == step ? 1.0 : reciprocal;
    }
    for (std::size_t row = 0; row < kSize; ++row) {
        if (row == step) {
            continue;
        }
        double const factor = a[row][step];
        for (std::size_t column = 0; column < kSize; ++column) {
            if (column != step) {
                a[row][column] -= factor * a[step][column];
            }
        }
        a[row][step] = -factor * reciprocal;
    }
}

}  // namespace

double X3DSTransform::inverse(XMatrix4X4 const& m, XMatrix4X4& out)
{
    Rows a;
    for (std::size_t i = 0; i < kSize * kSize; ++i) {
        a[i / kSize][i % kSize] = m.data()[i];
    }
    std::array<Pivot, kSize> pivots{};
    double determinant = 1.0;
    for (std::size_t step = 0; step < kSize; ++step) {
        Pivot const pivot = greatest(a, step);
        pivots[step] = pivot;
        double const value = a[pivot.m_row][pivot.m_column];
        if (!(std::abs(value) >= kSingularPivot)) {
            return 0.0;
        }
        if (pivot.m_row != step) {
            std::swap(a[pivot.m_row], a[step]);
            determinant = -determinant;
        }
        if (pivot.m_column != step) {
            swapColumns(a, pivot.m_column, step);
            determinant = -determinant;
        }
        determinant *= value;
        eliminate(a, step);
    }
    // What was swapped on one side of the matrix is undone on the other side of its inverse.
    for (std::size_t step = kSize; step-- > 0;) {
        std::swap(a[step], a[pivots[step].m_column]);
        swapColumns(a, step, pivots[step].m_row);
    }
    for (std::size_t i = 0; i < kSize * kSize; ++i) {
        out.data()[i] = a[i / kSize][i % kSize];
    }
    return determinant;
}

}  // namespace vrn::orlo::plugin::modeling
