/// \file
/// Centres and normals from the nodes of elements.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "plugins/modelingplugin/utilities/numerics/accurateproduct.h"

#include <cmath>
#include <cstddef>
#include <span>

namespace vrn::orlo::plugin::modeling {

/// A diagonal of an element that is shorter counts as having no direction; in the caller's unit.
inline constexpr double kShortestDiagonal = 5e-16;

/// The plain mean of all nodes, those in the middle of sides among them; the origin without any.
[[nodiscard]] inline KFRDouble3DPoint centreOf(std::span<KFRDouble3DPoint const> nodes) noexcept
{
    KFRDouble3DPoint sum;
    if (nodes.empty()) {
        return sum;
    }
    for (KFRDouble3DPoint const& node : nodes) {
        sum.x += node.x;
        sum.y += node.y;
        sum.z += node.z;
    }
    auto const count = static_cast<double>(nodes.size());
    return {sum.x / count, sum.y / count, sum.z / count};
}

[[nodiscard]] inline KFRDouble3DPoint differenceOf(KFRDouble3DPoint const& a,
                                                   KFRDouble3DPoint const& b) noexcept
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

/// Of length 1; zero where it is shorter than `shortest`.
[[nodiscard]] inline KFRDouble3DPoint directionOf(KFRDouble3DPoint const& v,
                                                  double shortest) noexcept
{
    double const length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length < shortest || length == 0.0) {
        return {};
    }
    return {v.x / length, v.y / length, v.z / length};
}

/// The normal of the first four nodes, or of three, as the product of its two directions: not of
/// length 1. Whatever the element is, four nodes count as corners of a quadrilateral: a tetrahedron
/// and a triangle with middle nodes get that normal too, which is meant. Zero for fewer than three.
[[nodiscard]] inline KFRDouble3DPoint normalOf(std::span<KFRDouble3DPoint const> nodes) noexcept
{
    if (nodes.size() >= 4) {
        KFRDouble3DPoint const d1 =
            directionOf(differenceOf(nodes[2], nodes[0]), kShortestDiagonal);
        KFRDouble3DPoint const d2 =
            directionOf(differenceOf(nodes[1], nodes[3]), kShortestDiagonal);
        return crossProductAccurate({d1.x + d2.x, d1.y + d2.y, d1.z + d2.z}, differenceOf(d1, d2));
    }
    if (nodes.size() == 3) {
        return crossProductAccurate(differenceOf(nodes[1], nodes[0]),
                                    differenceOf(nodes[2], nodes[1]));
    }
    return {};
}

/// The same, of length 1; no tolerance but exact zero.
[[nodiscard]] inline KFRDouble3DPoint unitNormalOf(std::span<KFRDouble3DPoint const> nodes) noexcept
{
    return directionOf(normalOf(nodes), 0.0);
}

}  // namespace vrn::orlo::plugin::modeling
