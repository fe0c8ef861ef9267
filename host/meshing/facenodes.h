/// \file
/// The nodes of a face of an element.

#pragma once

#include "host/meshing/elementfaces.h"
#include "host/meshing/meshstore.h"

#include <cstddef>

namespace vrn::orlo::host::meshing {

/// Null for a face that the element's type does not have.
/// \param element  of the store
[[nodiscard]] inline ElementFaceRow const* faceRowOf(MeshStore const& store, LocalNumber element,
                                                     int face)
{
    auto const faces = facesOf(store.typeOf(element));
    return face >= 0 && static_cast<std::size_t>(face) < faces.size()
               ? &faces[static_cast<std::size_t>(face)]
               : nullptr;
}

/// Calls `take` with the local number of each node, in the order of the table.
template <class Take>
void forEachFaceNode(MeshStore const& store, LocalNumber element, ElementFaceRow const& row,
                     Take const& take)
{
    auto const nodes = store.nodesOf(element);
    for (std::uint8_t const place : placesOf(row)) {
        take(nodes[place]);
    }
}

}  // namespace vrn::orlo::host::meshing
