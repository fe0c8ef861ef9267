/// \file
/// Meshes the parts of a model, for the user to see, and writes what came of it.

#pragma once

#include "apps/orlo/meshsettings.h"
#include "apps/orlo/session.h"
#include "host/model/model.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::app {

/// What a part's mesh is.
struct PartMeshRow {
    std::string m_part;
    unsigned m_instances = 0;
    std::size_t m_bodies = 0;  ///< That have a mesh.
    std::size_t m_nodes = 0;
    std::map<std::string, std::size_t> m_elements;  ///< By the name of the type.
    double m_volume = 0.0;                          ///< mm3; so mm2 and mm below.
    double m_area = 0.0;
    double m_length = 0.0;
    /// Elements with straight sides in place of curved ones; nothing for a mesh of a model file,
    /// which does not tell.
    std::optional<std::size_t> m_straightened;
};

/// The meshes of a model.
struct MeshSummary {
    std::vector<PartMeshRow> m_parts;  ///< Those with a mesh, in the order of the model.
    PartMeshRow m_total;               ///< Over all instances, each as large as it is placed.
    bool m_isWhole = true;             ///< Whether every body that was to be meshed has a mesh.
};

/// Meshes all parts, with a progress line, and warns of every body that has got no mesh.
///
/// Failure    UsageError for sizes that cannot be; the model is as it was then.
[[nodiscard]] MeshSummary meshWithProgress(Session& session, host::model::Model& model,
                                           MeshSettings const& settings);

/// The meshes that a model has.
[[nodiscard]] MeshSummary summaryOf(host::model::Model const& model);

/// For people: a line for each part, and one for all instances.
[[nodiscard]] std::string textOf(MeshSummary const& summary);

/// Failure    UsageError for an ending that is no mesh's: .inp, .msh and .orlo are.
void requireMeshEnding(std::filesystem::path const& file);

/// Writes the meshes of a model by the ending of the file, and says so.
///
/// \param source  from which the model was loaded; a model file keeps it
/// Failure    UsageError, WriteError, ModelFileError, ModelWriteError. A file that was there is as
///            it was then.
void writeMesh(host::model::Model const& model, std::filesystem::path const& source,
               MeshSettings const& settings, std::filesystem::path const& file);

}  // namespace vrn::orlo::app
