/// \file
/// The verb `orlo mesh`.

#pragma once

#include "apps/orlo/meshsettings.h"

#include <filesystem>
#include <vector>

namespace vrn::orlo::app {

struct SessionOptions;

struct MeshVerbOptions {
    std::filesystem::path m_file;                  ///< A study, a geometry file or a model file.
    MeshArguments m_mesh;                          ///< Overrides what a study says.
    std::vector<std::filesystem::path> m_outputs;  ///< None for the table alone.
};

/// Meshes the parts of a model, prints what came of it and writes it. Bodies that cannot be meshed
/// are named; the others are written. \return an ExitStatus
[[nodiscard]] int mesh(MeshVerbOptions const& options, SessionOptions const& session);

}  // namespace vrn::orlo::app
