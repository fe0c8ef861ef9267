/// \file
/// Whether the numbers in a mesh lead to something.

#pragma once

#include "host/meshing/meshstore.h"

namespace vrn::orlo::host::modelfile {

/// Fails for a mesh whose store would reach beyond its arrays.
///
/// Failure    MeshBlobError.
/// Cost       Once through all of it.
void checkMesh(meshing::MeshStore::Content const& mesh);

}  // namespace vrn::orlo::host::modelfile
