/// \file
/// A mesh without one of its bodies.

#pragma once

#include "host/meshing/meshstore.h"

#include <memory>

namespace vrn::orlo::host::meshing {

/// What is left of a store when a mesh body is taken out: its elements, and the nodes that no other
/// element has. External ids stay; local numbers close up. Bodies, groups and sets keep their rows
/// and indices, also those that have become empty; geometry that nothing lies on any more is left
/// out.
///
/// \param body  index in MeshStore::bodies()
/// \return null where no element is left
/// Cost       Linear in the store.
[[nodiscard]] std::shared_ptr<MeshStore const> withoutBody(MeshStore const& store,
                                                           std::size_t body);

}  // namespace vrn::orlo::host::meshing
