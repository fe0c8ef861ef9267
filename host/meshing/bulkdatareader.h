/// \file
/// Reads meshes from bulk data files.

#pragma once

#include "host/meshing/meshfile.h"

#include <filesystem>

namespace vrn::orlo::host::meshing {

/// Reads the mesh of a bulk data file, which is one part, named after the file and placed once.
/// Nodes are GRID cards, in whichever coordinate system; elements are solids, shells, bars, beams,
/// rods, springs between nodes and concentrated masses. All other cards are counted in a warning.
///
/// Shape      Elements are grouped by property: "property 7". Those without one are grouped by the
///            name of their card. A solid or shell card that may have nodes in the middle of its
///            sides makes an element of first order where it has none of them.
/// Failure    MeshFileError for a file that is missing, empty or a folder, that has no elements, or
///            where an element names a missing node, has only some of the nodes in the middle of
///            its sides, or is of a kind that the store does not take; for an id that comes twice,
///            a field that is no number, and a card that is torn apart.
/// Threads    Any; each call for itself.
/// Cost       Linear. A million elements in about a second; at the peak, the text and twice the
///            stored mesh.
[[nodiscard]] MeshFile readBulkDataMesh(std::filesystem::path const& file);

/// Whether a file has a line that begins bulk data or one of its nodes. True also for one that
/// cannot be read, so that reading it says why.
[[nodiscard]] bool looksLikeBulkData(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
