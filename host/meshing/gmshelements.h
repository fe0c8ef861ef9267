/// \file
/// Elements of Gmsh meshes by their numbers.

#pragma once

#include "host/meshing/elementtype.h"
#include "host/meshing/refusedelements.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// A kind of elements that is taken.
struct GmshElement {
    std::uint8_t m_number;    ///< In the file.
    std::string_view m_name;  ///< As users see it.
};

/// By type.
// clang-format off
inline constexpr std::array<GmshElement, kElementTraits.size()> kGmshElements{{
    {1,  "LINE2"},
    {8,  "LINE3"},
    {2,  "TRIANGLE3"},
    {9,  "TRIANGLE6"},
    {3,  "QUADRANGLE4"},
    {16, "QUADRANGLE8"},
    {4,  "TETRAHEDRON4"},
    {11, "TETRAHEDRON10"},
    {6,  "PRISM6"},
    {18, "PRISM15"},
    {5,  "HEXAHEDRON8"},
    {17, "HEXAHEDRON20"},
    {15, "POINT1"},
}};
// clang-format on

/// What groups of a dimension are called.
inline constexpr std::array<char const*, 4> kGmshEntities{"point", "curve", "surface", "volume"};

[[nodiscard]] constexpr std::optional<ElementType> gmshElementType(std::int64_t number) noexcept
{
    for (std::size_t i = 0; i < kGmshElements.size(); ++i) {
        if (kGmshElements[i].m_number == number) {
            return static_cast<ElementType>(i);
        }
    }
    return std::nullopt;
}

/// Why a number that is known is not taken; nothing for one that is not known.
[[nodiscard]] constexpr std::optional<RefusedElement> refusedGmshElement(
    std::int64_t number) noexcept
{
    switch (number) {
        case 7:
        case 14:
        case 19:
            return kPyramid;
        case 10:
        case 12:
        case 13:
            return kFullSecondOrder;
        default:
            break;
    }
    return (number >= 20 && number <= 31) || number == 92 || number == 93
               ? std::optional(kThirdOrder)
               : std::nullopt;
}

}  // namespace vrn::orlo::host::meshing
