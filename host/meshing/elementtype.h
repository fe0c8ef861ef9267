/// \file
/// The kinds of elements by their topology.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vrn::orlo::host::meshing {

/// The values are the topology numbers of the platform; a point has none.
enum class ElementType : std::uint8_t {
    line2,
    line3,
    triangle3,
    triangle6,
    quad4,
    quad8,
    tetra4,
    tetra10,
    wedge6,
    wedge15,
    hexa8,
    hexa20,
    point1,
};

/// What every element of a type has.
struct ElementTraits {
    ElementType m_type;
    std::uint8_t m_nodeCount;
    std::uint8_t m_cornerCount;
    std::uint8_t m_dimension;  ///< 0 to 3.
    /// 0 line, 1 triangle, 2 quadrilateral, 3 tetrahedron, 4 hexahedron, 5 wedge; kNoShape for a
    /// point.
    std::int8_t m_shape;
    std::uint8_t m_order;      ///< Of the shape functions; 0 for a point.
    std::uint8_t m_faceCount;  ///< 1 for a surface element, 0 for lines and points.
};

inline constexpr std::int8_t kNoShape = -1;
inline constexpr std::size_t kMostElementNodes = 20;

// clang-format off
inline constexpr std::array kElementTraits{
    ElementTraits{ElementType::line2,     2,  2, 1, 0,        1, 0},
    ElementTraits{ElementType::line3,     3,  2, 1, 0,        2, 0},
    ElementTraits{ElementType::triangle3, 3,  3, 2, 1,        1, 1},
    ElementTraits{ElementType::triangle6, 6,  3, 2, 1,        2, 1},
    ElementTraits{ElementType::quad4,     4,  4, 2, 2,        1, 1},
    ElementTraits{ElementType::quad8,     8,  4, 2, 2,        2, 1},
    ElementTraits{ElementType::tetra4,    4,  4, 3, 3,        1, 4},
    ElementTraits{ElementType::tetra10,   10, 4, 3, 3,        2, 4},
    ElementTraits{ElementType::wedge6,    6,  6, 3, 5,        1, 5},
    ElementTraits{ElementType::wedge15,   15, 6, 3, 5,        2, 5},
    ElementTraits{ElementType::hexa8,     8,  8, 3, 4,        1, 6},
    ElementTraits{ElementType::hexa20,    20, 8, 3, 4,        2, 6},
    ElementTraits{ElementType::point1,    1,  1, 0, kNoShape, 0, 0},
};
// clang-format on

static_assert([] {
    for (std::size_t i = 0; i < kElementTraits.size(); ++i) {
        if (static_cast<std::size_t>(kElementTraits[i].m_type) != i) {
            return false;
        }
    }
    return true;
}());

[[nodiscard]] constexpr ElementTraits const& traitsOf(ElementType type) noexcept
{
    return kElementTraits[static_cast<std::size_t>(type)];
}

}  // namespace vrn::orlo::host::meshing
