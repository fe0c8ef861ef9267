/// \file
/// Reads meshes from Abaqus input files.

#pragma once

#include "host/meshing/meshfileerror.h"
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
    std::vector<std::string> m_warnings;                    ///< "FILE:LINE: what is left out".
};

/// Reads the mesh of an Abaqus input file: *NODE, *ELEMENT, *NSET and *ELSET, and what parts and
/// instances *PART and *INSTANCE make of them. Other keywords are passed over.
///
/// A file without *PART is one part, named after the file and placed once; so is what stands
/// outside the parts. Parts of a file without *ASSEMBLY are placed once each. Nodes and elements of
/// the assembly itself belong to no part and are left out with a warning; its sets come into the
/// part of the instance that they name.
///
/// Failure    MeshFileError for a file that is missing, empty or a folder, that has no elements, or
///            where an element names a missing node, an id comes twice, an element has an unknown
///            type or the wrong number of nodes, or a field is no number; and for keywords that
///            make or move nodes and elements, without which the mesh would be another one.
/// Threads    Any; each call for itself.
/// Cost       Linear. A million nodes and elements in about a second; at the peak, the text and
///            twice the stored mesh.
[[nodiscard]] MeshFile readAbaqusMesh(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
