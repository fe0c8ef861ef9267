/// \file
/// In which order the kinds of mesh files give the nodes of an element.

#pragma once

#include "host/meshing/elementtype.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace vrn::orlo::host::meshing {

/// By place in the store, from 0, the place in a file. Only the first places count that the type
/// has nodes for.
using NodeOrder = std::array<std::uint8_t, kMostElementNodes>;

/// By type.
using NodeOrders = std::array<NodeOrder, kElementTraits.size()>;

namespace detail {

consteval NodeOrders storeOrders()
{
    NodeOrders orders{};
    for (NodeOrder& order : orders) {
        std::iota(order.begin(), order.end(), std::uint8_t{0});
    }
    return orders;
}

consteval NodeOrders abaqusOrders()
{
    NodeOrders orders = storeOrders();
    orders[static_cast<std::size_t>(ElementType::line3)] = {0, 2, 1};
    return orders;
}

/// Between the sides at the bottom and those at the top stand the upright ones.
consteval NodeOrders bulkDataOrders()
{
    NodeOrders orders = storeOrders();
    orders[static_cast<std::size_t>(ElementType::wedge15)] = {0, 1,  2,  3,  4, 5,  6, 7,
                                                              8, 12, 13, 14, 9, 10, 11};
    orders[static_cast<std::size_t>(ElementType::hexa20)] = {
        0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 17, 18, 19, 12, 13, 14, 15};
    return orders;
}

/// Sides by their lower corner, but for the last two of a tetrahedron.
consteval NodeOrders gmshOrders()
{
    NodeOrders orders = storeOrders();
    orders[static_cast<std::size_t>(ElementType::tetra10)] = {0, 1, 2, 3, 4, 5, 6, 7, 9, 8};
    orders[static_cast<std::size_t>(ElementType::wedge15)] = {0, 1,  2,  3,  4, 5,  6, 9,
                                                              7, 12, 14, 13, 8, 10, 11};
    orders[static_cast<std::size_t>(ElementType::hexa20)] = {0,  1, 2,  3,  4,  5,  6,  7,  8,  11,
                                                             13, 9, 16, 18, 19, 17, 10, 12, 14, 15};
    return orders;
}

consteval bool haveEachPlaceOnce(NodeOrders const& orders)
{
    for (ElementTraits const& traits : kElementTraits) {
        NodeOrder const& order = orders[static_cast<std::size_t>(traits.m_type)];
        unsigned seen = 0;
        for (std::size_t place = 0; place < traits.m_nodeCount; ++place) {
            seen |= 1U << order[place];
        }
        if (seen != (1U << traits.m_nodeCount) - 1) {
            return false;
        }
    }
    return true;
}

}  // namespace detail

inline constexpr NodeOrders kAbaqusOrders = detail::abaqusOrders();
inline constexpr NodeOrders kBulkDataOrders = detail::bulkDataOrders();
inline constexpr NodeOrders kGmshOrders = detail::gmshOrders();

static_assert(detail::haveEachPlaceOnce(kAbaqusOrders));
static_assert(detail::haveEachPlaceOnce(kBulkDataOrders));
static_assert(detail::haveEachPlaceOnce(kGmshOrders));

[[nodiscard]] constexpr NodeOrder const& orderOf(NodeOrders const& orders, ElementType type)
{
    return orders[static_cast<std::size_t>(type)];
}

}  // namespace vrn::orlo::host::meshing
