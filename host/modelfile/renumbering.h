/// \file
/// Numbers of geometry entities in a mesh, as the geometry's numbers move.

#pragma once

#include "host/meshing/meshstore.h"

#include <memory>

namespace vrn::orlo::host::modelfile {

/// The mesh with its entities counted from `to` where they count from `from`, also in the names
/// that the mesher makes of them: "body 3", "face 7". What lies on no entity stays so.
///
/// Failure    std::invalid_argument for an entity below `from`, and for one that moves beyond the
///            largest number. std::invalid_argument also for 0 as `from` or `to`.
/// Ownership  The same store where nothing moves, otherwise a copy.
[[nodiscard]] std::shared_ptr<meshing::MeshStore const> renumbered(
    std::shared_ptr<meshing::MeshStore const> store, unsigned from, unsigned to);

}  // namespace vrn::orlo::host::modelfile
