/// \file
/// A 4 by 4 matrix.

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace vrn::orlo::plugin::modeling {

/// A 4 by 4 matrix that acts on column vectors; the identity at the start.
///
/// Shape      As a transform: the translation stands in the fourth column (indices 3, 7, 11), the
///            last row is (0, 0, 0, 1).
/// Order      Row-major: (row, column) at index row * 4 + column.
/// Failure    Indices are not checked.
/// Cost       Sixteen doubles; no allocation.
class XMatrix4X4 {
public:
    constexpr XMatrix4X4() = default;
    /// From sixteen doubles.
    explicit constexpr XMatrix4X4(double const* values) { setValue(values); }

    /// Takes sixteen doubles, which may be this matrix's own.
    constexpr void setValue(double const* const values)
    {
        std::array<double, 16> taken{};
        std::copy_n(values, 16, taken.begin());
        m_values = taken;
    }

    [[nodiscard]] constexpr double* data() { return m_values.data(); }
    [[nodiscard]] constexpr double const* data() const { return m_values.data(); }
    [[nodiscard]] constexpr double& operator[](int index) { return m_values[asSize(index)]; }
    [[nodiscard]] constexpr double const& operator[](int index) const
    {
        return m_values[asSize(index)];
    }
    [[nodiscard]] constexpr double& at(int row, int column) { return (*this)[row * 4 + column]; }
    [[nodiscard]] constexpr double const& at(int row, int column) const
    {
        return (*this)[row * 4 + column];
    }

    /// this * other: the other acts first.
    [[nodiscard]] XMatrix4X4 product(XMatrix4X4 const& other) const
    {
        // Two columns at a time: eight pairs of the other matrix fit into the registers at once.
        using Pair = double __attribute__((vector_size(16)));
        auto const pairOf = [](double const* values) {
            Pair pair;
            std::memcpy(&pair, values, sizeof(pair));
            return pair;
        };
        XMatrix4X4 result;
        double const* const right = other.data();
        for (int half = 0; half < 4; half += 2) {
            Pair const right0 = pairOf(right + half);
            Pair const right1 = pairOf(right + 4 + half);
            Pair const right2 = pairOf(right + 8 + half);
            Pair const right3 = pairOf(right + 12 + half);
            for (int row = 0; row < 4; ++row) {
                Pair const sum = at(row, 0) * right0 + at(row, 1) * right1 + at(row, 2) * right2 +
                                 at(row, 3) * right3;
                std::memcpy(result.data() + row * 4 + half, &sum, sizeof(sum));
            }
        }
        return result;
    }

    friend bool operator==(XMatrix4X4 const&, XMatrix4X4 const&) = default;

private:
    [[nodiscard]] static constexpr std::size_t asSize(int index)
    {
        return static_cast<std::size_t>(index);
    }

    // clang-format off
    alignas(16) std::array<double, 16> m_values{1.0, 0.0, 0.0, 0.0,
                                    0.0, 1.0, 0.0, 0.0,
                                    0.0, 0.0, 1.0, 0.0,
                                    0.0, 0.0, 0.0, 1.0};
    // clang-format on
};

static_assert(sizeof(XMatrix4X4) == 128, "sixteen doubles and nothing else");

}  // namespace vrn::orlo::plugin::modeling
