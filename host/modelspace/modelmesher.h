/// \file
/// Meshes the parts of a model.

#pragma once

#include "host/commands/undostack.h"
#include "host/meshing/mesher.h"
#include "host/meshing/meshtypes.h"
#include "host/model/model.h"

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace vrn::orlo::host::modelspace {

/// What is to be meshed, and how.
struct MeshRequest {
    /// For every part. Ids go on from part to part, so that none comes twice in a model; sizes of
    /// faces are those of any part.
    meshing::MeshOptions m_options;
    /// mm by the index of a part, in place of the size that holds for every part.
    std::map<std::size_t, double> m_partSizes;
};

/// What came of a part.
struct PartMeshReport {
    std::size_t m_part = 0;                        ///< Index in the model.
    std::size_t m_nodes = 0;                       ///< 0 where no body has got a mesh.
    std::size_t m_elements = 0;                    ///< Likewise.
    std::size_t m_straightened = 0;                ///< As meshing::MeshedPartResult.
    std::vector<meshing::BodyFailure> m_failures;  ///< Bodies without a mesh.
};

/// Meshes all parts of a model that are not deleted, or meshes them anew, as one step of the
/// history. Mesh bodies and meshes stay the same objects where they still have elements.
///
/// Order      Reports in the order of the parts.
/// Failure    std::invalid_argument, one line, for sizes that cannot be and for a part or a face
///            that is not there; the model stays as it was then. A part none of whose bodies can be
///            meshed keeps the mesh that it has.
/// Threads    Main thread.
/// Cost       As meshing::meshPart(), part by part.
/// \param history   null for a run that cannot be undone
/// \param progress  may be empty
[[nodiscard]] std::vector<PartMeshReport> meshModel(
    model::Model& model, MeshRequest const& request, meshing::MeshTypes const& types,
    std::shared_ptr<model::EntityService> const& service, commands::UndoStack* history,
    meshing::MeshProgress const& progress = {});

}  // namespace vrn::orlo::host::modelspace
