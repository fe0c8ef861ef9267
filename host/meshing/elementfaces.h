/// \file
/// The faces of elements: the one table of which nodes they have, and in which order.

#pragma once

#include "host/meshing/elementtype.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vrn::orlo::host::meshing {

/// A face of an element, as an element of its own kind.
struct ElementFaceRow {
    ElementType m_type;                      ///< Of the face.
    std::array<std::uint8_t, 8> m_places{};  ///< Of its nodes among those of the element, from 0.
};

/// Faces count from 0 in the order that solvers number them from 1. Corners come first and look
/// outwards by the right-hand rule, then the nodes in the middle of the sides, each after the side
/// that begins at its corner. A surface element has one face, which is itself.
// clang-format off
inline constexpr std::array kElementFaceRows{
    ElementFaceRow{ElementType::triangle3, {0, 1, 2}},  // triangle3
    ElementFaceRow{ElementType::triangle6, {0, 1, 2, 3, 4, 5}},  // triangle6
    ElementFaceRow{ElementType::quad4, {0, 1, 2, 3}},  // quad4
    ElementFaceRow{ElementType::quad8, {0, 1, 2, 3, 4, 5, 6, 7}},  // quad8
    ElementFaceRow{ElementType::triangle3, {0, 2, 1}},  // tetra4
    ElementFaceRow{ElementType::triangle3, {0, 1, 3}},  // tetra4
    ElementFaceRow{ElementType::triangle3, {1, 2, 3}},  // tetra4
    ElementFaceRow{ElementType::triangle3, {2, 0, 3}},  // tetra4
    ElementFaceRow{ElementType::triangle6, {0, 2, 1, 6, 5, 4}},  // tetra10
    ElementFaceRow{ElementType::triangle6, {0, 1, 3, 4, 8, 7}},  // tetra10
    ElementFaceRow{ElementType::triangle6, {1, 2, 3, 5, 9, 8}},  // tetra10
    ElementFaceRow{ElementType::triangle6, {2, 0, 3, 6, 7, 9}},  // tetra10
    ElementFaceRow{ElementType::triangle3, {0, 2, 1}},  // wedge6
    ElementFaceRow{ElementType::triangle3, {3, 4, 5}},  // wedge6
    ElementFaceRow{ElementType::quad4, {0, 1, 4, 3}},  // wedge6
    ElementFaceRow{ElementType::quad4, {1, 2, 5, 4}},  // wedge6
    ElementFaceRow{ElementType::quad4, {2, 0, 3, 5}},  // wedge6
    ElementFaceRow{ElementType::triangle6, {0, 2, 1, 8, 7, 6}},  // wedge15
    ElementFaceRow{ElementType::triangle6, {3, 4, 5, 9, 10, 11}},  // wedge15
    ElementFaceRow{ElementType::quad8, {0, 1, 4, 3, 6, 13, 9, 12}},  // wedge15
    ElementFaceRow{ElementType::quad8, {1, 2, 5, 4, 7, 14, 10, 13}},  // wedge15
    ElementFaceRow{ElementType::quad8, {2, 0, 3, 5, 8, 12, 11, 14}},  // wedge15
    ElementFaceRow{ElementType::quad4, {0, 3, 2, 1}},  // hexa8
    ElementFaceRow{ElementType::quad4, {4, 5, 6, 7}},  // hexa8
    ElementFaceRow{ElementType::quad4, {0, 1, 5, 4}},  // hexa8
    ElementFaceRow{ElementType::quad4, {1, 2, 6, 5}},  // hexa8
    ElementFaceRow{ElementType::quad4, {2, 3, 7, 6}},  // hexa8
    ElementFaceRow{ElementType::quad4, {3, 0, 4, 7}},  // hexa8
    ElementFaceRow{ElementType::quad8, {0, 3, 2, 1, 11, 10, 9, 8}},  // hexa20
    ElementFaceRow{ElementType::quad8, {4, 5, 6, 7, 12, 13, 14, 15}},  // hexa20
    ElementFaceRow{ElementType::quad8, {0, 1, 5, 4, 8, 17, 12, 16}},  // hexa20
    ElementFaceRow{ElementType::quad8, {1, 2, 6, 5, 9, 18, 13, 17}},  // hexa20
    ElementFaceRow{ElementType::quad8, {2, 3, 7, 6, 10, 19, 14, 18}},  // hexa20
    ElementFaceRow{ElementType::quad8, {3, 0, 4, 7, 11, 16, 15, 19}},  // hexa20
};

/// Where the faces of a type begin in kElementFaceRows.
inline constexpr std::array<std::uint8_t, 13> kFirstElementFace{
    0, 0, 0, 1, 2, 3, 4, 8, 12, 17, 22, 28, 34};
// clang-format on

[[nodiscard]] constexpr std::span<ElementFaceRow const> facesOf(ElementType type) noexcept
{
    auto const index = static_cast<std::size_t>(type);
    return std::span(kElementFaceRows)
        .subspan(kFirstElementFace[index], kElementTraits[index].m_faceCount);
}

[[nodiscard]] constexpr std::span<std::uint8_t const> placesOf(ElementFaceRow const& face) noexcept
{
    return std::span(face.m_places).first(traitsOf(face.m_type).m_nodeCount);
}

}  // namespace vrn::orlo::host::meshing
