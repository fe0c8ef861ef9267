// Inversion by Gauss-Jordan elimination in place, with full pivoting.

#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <array>
#include <cmath>
#include <utility>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr int kSize = 4;

/// An inversion under way. The steps are templates, so that the loops of each have fixed bounds and
/// unroll: that halves the time.
class Elimination {
public:
    explicit Elimination(double const* values)
    {
        for (int i = 0; i < kSize * kSize; ++i) {
            m_rows[i / kSize][i % kSize] = values[i];
        }
    }

    /// Finds the pivot, brings it into place and clears its column. False, with the matrix
    /// singular, for a pivot that is too small.
    template <int Step>
    [[nodiscard]] bool step()
    {
        if (!placePivot<Step>()) {
            return false;
        }
        double const pivot = m_rows[Step][Step];
        m_determinant *= pivot;
        double const reciprocal = 1.0 / pivot;
        for (int column = 0; column < kSize; ++column) {
            if (column != Step) {
                m_rows[Step][column] *= reciprocal;
            }
        }
        m_rows[Step][Step] = reciprocal;
        for (int row = 0; row < kSize; ++row) {
            if (row == Step) {
                continue;
            }
            double const factor = m_rows[row][Step];
            for (int column = 0; column < kSize; ++column) {
                if (column != Step) {
                    m_rows[row][column] -= factor * m_rows[Step][column];
                }
            }
            m_rows[row][Step] = -factor * reciprocal;
        }
        return true;
    }

    [[nodiscard]] double determinant() const { return m_determinant; }

    /// Writes the inverse with the swaps undone, from the last to the first: what was swapped on
    /// one side of the matrix is undone on the other side of its inverse.
    void write(double* out) const
    {
        std::array<int, kSize> rowFrom{0, 1, 2, 3};
        std::array<int, kSize> columnFrom{0, 1, 2, 3};
        for (int i = kSize; i-- > 0;) {
            std::swap(rowFrom[index(i)], rowFrom[index(m_pivotColumn[i])]);
            std::swap(columnFrom[index(i)], columnFrom[index(m_pivotRow[i])]);
        }
        for (int row = 0; row < kSize; ++row) {
            for (int column = 0; column < kSize; ++column) {
                out[row * kSize + column] = m_rows[rowFrom[index(row)]][columnFrom[index(column)]];
            }
        }
    }

private:
    static constexpr std::size_t index(int i) { return static_cast<std::size_t>(i); }

    /// The pivot is the greatest element of the rows and columns from Step on, in row-major order
    /// the first of equals: the first row that has it, and in that row the first column.
    template <int Step>
    [[nodiscard]] bool placePivot()
    {
        double rowBest[kSize];
        for (int row = Step; row < kSize; ++row) {
            rowBest[row] = std::abs(m_rows[row][Step]);
            for (int column = Step + 1; column < kSize; ++column) {
                double const magnitude = std::abs(m_rows[row][column]);
                rowBest[row] = rowBest[row] < magnitude ? magnitude : rowBest[row];
            }
        }
        double best = rowBest[Step];
        int pivotRow = Step;
        for (int row = Step + 1; row < kSize; ++row) {
            pivotRow = rowBest[row] > best ? row : pivotRow;
            best = rowBest[row] > best ? rowBest[row] : best;
        }
        if (!(best >= kSingularPivot)) {
            return false;
        }
        if (pivotRow != Step) {
            for (int column = 0; column < kSize; ++column) {
                std::swap(m_rows[pivotRow][column], m_rows[Step][column]);
            }
            m_determinant = -m_determinant;
        }
        int pivotColumn = kSize - 1;
        for (int column = kSize - 1; column-- > Step;) {
            pivotColumn = std::abs(m_rows[Step][column]) == best ? column : pivotColumn;
        }
        if (pivotColumn != Step) {
            for (int row = 0; row < kSize; ++row) {
                std::swap(m_rows[row][pivotColumn], m_rows[row][Step]);
            }
            m_determinant = -m_determinant;
        }
        m_pivotRow[Step] = pivotRow;
        m_pivotColumn[Step] = pivotColumn;
        return true;
    }

    double m_rows[kSize][kSize];
    int m_pivotRow[kSize];  // of each step that is done
    int m_pivotColumn[kSize];
    double m_determinant = 1.0;
};

}  // namespace

double X3DSTransform::inverse(XMatrix4X4 const& m, XMatrix4X4& out)
{
    Elimination elimination(m.data());
    if (!elimination.step<0>() || !elimination.step<1>() || !elimination.step<2>() ||
        !elimination.step<3>()) {
        return 0.0;
    }
    elimination.write(out.data());
    return elimination.determinant();
}

}  // namespace vrn::orlo::plugin::modeling
