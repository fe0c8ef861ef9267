/// \file
/// What a mesh file holds, and the reading of one of any kind.

#pragma once

#include "host/meshing/meshstore.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Where an instance stands: moved by the translation, then turned about an axis.
struct MeshPlacement {
    Point m_translation{};
    std::array<Point, 2> m_axis{};  ///< Two points, the first the start.
    double m_degrees = 0.0;
};

/// A part in its place.
struct MeshInstance {
    std::string m_name;
    std::size_t m_part;  ///< Index in MeshFile::m_parts.
    MeshPlacement m_placement;
};

/// What a mesh file holds.
struct MeshFile {
    std::string m_stem;                                     ///< Name without folder and ending.
    std::vector<std::shared_ptr<MeshStore const>> m_parts;  ///< In the order of the file.
    std::vector<MeshInstance> m_instances;                  ///< Likewise.
    /// "FILE:LINE: what is left out", "FILE: 210 PLOAD4, 342 SPC not used".
    std::vector<std::string> m_warnings;
};

/// Reads a mesh by the ending of its file, in either case: .inp as readAbaqusMesh(), .msh as
/// readGmshMesh(), .bdf and .nas as readBulkDataMesh(), and so .dat where it looks like bulk data.
///
/// Failure    MeshFileError as theirs, and for any other ending.
/// Threads    Any; each call for itself.
/// Cost       As theirs.
[[nodiscard]] MeshFile readMeshFile(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
