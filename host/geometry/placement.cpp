#include "host/geometry/placement.h"

#include <cmath>

namespace vrn::orlo::host::geometry {

namespace {

constexpr std::size_t kColumns = 4;

double value(Placement const& placement, std::size_t row, std::size_t column)
{
    return placement.m_rows[row * kColumns + column];
}

}  // namespace

Placement composed(Placement const& outer, Placement const& inner)
{
    Placement result;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < kColumns; ++column) {
            double sum = column == 3 ? value(outer, row, 3) : 0.0;
            for (std::size_t k = 0; k < 3; ++k) {
                sum += value(outer, row, k) * value(inner, k, column);
            }
            result.m_rows[row * kColumns + column] = sum;
        }
    }
    return result;
}

double determinant(Placement const& placement)
{
    auto const minor = [&](std::size_t a, std::size_t b) {
        return value(placement, 1, a) * value(placement, 2, b) -
               value(placement, 1, b) * value(placement, 2, a);
    };
    return value(placement, 0, 0) * minor(1, 2) - value(placement, 0, 1) * minor(0, 2) +
           value(placement, 0, 2) * minor(0, 1);
}

bool mapsAxesToAxes(Placement const& placement)
{
    // Exporters write directions with ten digits and more; a smaller tilt moves no corner visibly.
    constexpr double kTilt = 1e-10;
    for (std::size_t row = 0; row < 3; ++row) {
        int nonZero = 0;
        for (std::size_t column = 0; column < 3; ++column) {
            nonZero += std::abs(value(placement, row, column)) > kTilt ? 1 : 0;
        }
        if (nonZero != 1) {
            return false;
        }
    }
    return true;
}

Box movedBox(Box const& box, Placement const& placement)
{
    Box moved;
    for (unsigned corner = 0; corner < 8 && !box.isEmpty(); ++corner) {
        std::array<double, 3> point{};
        for (std::size_t row = 0; row < 3; ++row) {
            point[row] = value(placement, row, 3);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                bool const upper = (corner & (1u << axis)) != 0;
                point[row] +=
                    value(placement, row, axis) * (upper ? box.m_max[axis] : box.m_min[axis]);
            }
        }
        moved.add(point);
    }
    return moved;
}

}  // namespace vrn::orlo::host::geometry
