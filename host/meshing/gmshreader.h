/// \file
/// Reads meshes from Gmsh files.

#pragma once

#include "host/meshing/meshfile.h"

#include <filesystem>

namespace vrn::orlo::host::meshing {

/// Reads a Gmsh mesh of format 2.0 to 2.2, 4.0 or 4.1, text or binary of either order of bytes. It
/// is one part, named after the file and placed once.
///
/// Shape      Elements are grouped by the entity on which they lie: "volume 3", "surface 3". Each
///            physical group is an element set, by its name or as "physical 3". Sections of other
///            kinds are counted in a warning.
/// Failure    MeshFileError for a file that is missing, empty or a folder, that has no elements, is
///            cut, or of another format, or where an element names a missing node or is of a kind
///            that the store does not take; for an id that is not above 0 or comes twice, and for
///            what is no number. In a binary file, the message names the byte.
/// Threads    Any; each call for itself.
/// Cost       Linear. A million elements in about half a second; at the peak, the text and twice
///            the stored mesh.
[[nodiscard]] MeshFile readGmshMesh(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
