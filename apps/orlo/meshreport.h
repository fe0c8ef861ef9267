/// \file
/// Reports on mesh files.

#pragma once

#include "host/meshing/meshfile.h"

#include <filesystem>
#include <string>

namespace vrn::orlo::app {

/// Whether a file is read as a mesh, by its ending.
[[nodiscard]] bool isMeshFile(std::filesystem::path const& file);

/// The report for people.
///
/// Units      Of the file; boxes in coordinates of the part.
/// Order      Of the file.
/// \param treeOnly  parts and instances, without what a part is made of
[[nodiscard]] std::string textReport(std::filesystem::path const& file,
                                     host::meshing::MeshFile const& mesh, bool treeOnly);

/// The whole as a JSON document, ending in a line end.
[[nodiscard]] std::string jsonReport(std::filesystem::path const& file,
                                     host::meshing::MeshFile const& mesh);

}  // namespace vrn::orlo::app
