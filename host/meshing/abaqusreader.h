/// \file
/// Reads meshes from Abaqus input files.

#pragma once

#include "host/meshing/meshfile.h"
#include "host/meshing/meshfileerror.h"

#include <filesystem>

namespace vrn::orlo::host::meshing {

/// Reads the mesh of an Abaqus input file: *NODE, *ELEMENT, *NSET and *ELSET, and what parts and
/// instances *PART and *INSTANCE make of them. Other keywords are passed over, and counted in a
/// warning; so are the steps, once for all that they hold.
///
/// A file without *PART is one part, named after the file and placed once; so is what stands
/// outside the parts. Parts of a file without *ASSEMBLY are placed once each. Nodes and elements of
/// the assembly itself belong to no part and are left out with a warning; its sets come into the
/// part of the instance that they name.
///
/// Failure    MeshFileError for a file that is missing, empty or a folder, that has no elements, or
///            where an element names a missing node, an id comes twice, an element has a type that
///            is unknown or not taken, or the wrong number of nodes, or a field is no number; and
///            for keywords that make or move nodes and elements, without which the mesh would be
///            another one.
/// Threads    Any; each call for itself.
/// Cost       Linear. A million nodes and elements in about a second; at the peak, the text and
///            twice the stored mesh.
[[nodiscard]] MeshFile readAbaqusMesh(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
