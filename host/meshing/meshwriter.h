/// \file
/// Writes meshes as files of other programs.

#pragma once

#include "host/meshing/meshfile.h"
#include "host/meshing/meshstore.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Writes an Abaqus input file with nothing but the mesh: nodes, elements and sets. Groups that
/// have a name become element sets, unless there is a set of that name.
///
/// Units      Coordinates have 20 characters at the most, as solvers read no more. That is exact
///            but for numbers that need a long exponent, which keep 13 digits.
/// Order      Of the store. Elements have their type names where Abaqus knows them for the
///            topology, otherwise plain ones such as C3D10.
/// Failure    study::WriteError; a file that was there is as it was.
/// Cost       Linear; the text is in memory as a whole.
void writeAbaqusMesh(MeshStore const& mesh, std::filesystem::path const& file);

/// Writes an Abaqus input file with parts and an assembly of their instances, as readAbaqusMesh()
/// reads it. The stem and the warnings are not used.
///
/// Shape      Each part as writeAbaqusMesh() has it. Names of parts and of instances that come twice
///            get a number.
/// Failure    As there.
void writeAbaqusAssembly(MeshFile const& mesh, std::filesystem::path const& file);

/// Writes a Gmsh mesh, text of format 4.1. Each group becomes an entity: "volume 3" that of tag 3,
/// others take free tags. Names of groups and element sets become physical groups.
///
/// \return a line for each kind of content that has no place in the file: node sets, and element
///         sets that take a part of a group or are empty
/// Units      Coordinates are exact.
/// Order      Of the store, for nodes and elements.
/// Failure    study::WriteError; a file that was there is as it was.
/// Cost       Linear; the text is in memory as a whole.
[[nodiscard]] std::vector<std::string> writeGmshMesh(MeshStore const& mesh,
                                                     std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
