/// \file
/// Vectors in tests of geometry queries.

#pragma once

#include "host/geometry/geometryqueries.h"

#include <gmock/gmock.h>

#include <cmath>

namespace vrn::orlo::host::geometry {

using Vector = GeometryQueries::Vector;

inline Vector plus(Vector const& a, Vector const& b, double times)
{
    return {a[0] + times * b[0], a[1] + times * b[1], a[2] + times * b[2]};
}

inline double distance(Vector const& a, Vector const& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

inline auto isNear(Vector const& expected)
{
    return ::testing::Optional(::testing::Pointwise(::testing::DoubleNear(1e-6), expected));
}

}  // namespace vrn::orlo::host::geometry
