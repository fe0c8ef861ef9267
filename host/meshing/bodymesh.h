/// \file
/// The mesh of one body on its way from the mesher into a store.

#pragma once

#include "host/meshing/elementtype.h"
#include "host/meshing/meshstore.h"
#include "host/meshing/numbering.h"

#include <array>
#include <cstdint>
#include <vector>

namespace vrn::orlo::host::meshing {

/// What of a body's mesh lies on one geometry entity, and not on what bounds it.
struct EntityPiece {
    unsigned m_entity = 0;  ///< Number of the geometry entity in its model.
    std::uint8_t m_dimension = 0;
    LocalNumber m_firstNode = 0;  ///< From 0; its nodes stand together.
    LocalNumber m_nodeCount = 0;
    /// Nodes, from 0, of its tetrahedra, triangles or lines, in the order of the store.
    std::vector<LocalNumber> m_connectivity;
};

struct BodyMesh {
    std::uint8_t m_dimension = 0;  ///< Of its highest elements.
    int m_order = 1;
    std::vector<Point> m_positions;
    /// By descending dimension, then ascending entity. Edges have lines only in a wire body.
    std::vector<EntityPiece> m_pieces;
};

/// The elements that the mesher makes of a dimension from 1 to 3 and an order.
[[nodiscard]] constexpr ElementType meshedType(std::uint8_t dimension, int order) noexcept
{
    constexpr std::array kTypes{ElementType::line2,     ElementType::line3,  ElementType::triangle3,
                                ElementType::triangle6, ElementType::tetra4, ElementType::tetra10};
    return kTypes[static_cast<std::size_t>((dimension - 1) * 2 + order - 1)];
}

}  // namespace vrn::orlo::host::meshing
