/// \file
/// Model files, NAME.orlo: imported geometry with the meshes of its parts.

#pragma once

#include "host/meshing/meshstore.h"
#include "host/modelfile/modelfileerror.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::modelfile {

/// The mesh of one part.
struct PartMeshRecord {
    std::string m_part;    ///< Its name in the geometry.
    unsigned m_index = 0;  ///< Its index in the geometry; tells parts of one name apart.
    std::shared_ptr<meshing::MeshStore const> m_store;  ///< Never null.
};

/// What a model file keeps.
struct ModelFile {
    std::string m_geometryName;   ///< The imported file's own name, without its folder.
    std::string m_geometryBytes;  ///< The imported file as it is: importing it again gives the same
                                  ///< persistent names and the same numbers.
    std::vector<PartMeshRecord> m_meshes;        ///< In the order in which they were written.
    std::map<std::string, std::string> m_notes;  ///< For people: how the mesh was made.
};

/// Writes a model file so that it is whole or not there: a file that was there stays until then,
/// and stays for good on failure.
///
/// \param firstNumber  of the entities in the geometry, from which the stores' numbers count
/// Shape      An SQLite database with numbers of entities from 1; no journal is left beside it.
///            Missing folders are made, and a symbolic link stays one.
/// Failure    ModelFileError. std::invalid_argument for a null store, for one whose numbers do not
///            fit together, and for an entity below `firstNumber`.
/// Threads    Any. Of two writers to one path, the last to finish wins, whole.
/// Cost       1 000 000 tetrahedra in 0.7 s, most of it the disk; twice the file in memory.
void writeModelFile(std::filesystem::path const& file, ModelFile const& model,
                    unsigned firstNumber = 1);

/// Reads a model file. Numbers of entities count from 1; renumbered() moves them to where the
/// geometry has them.
///
/// Failure    ModelFileError for a file that is missing, a folder, of another kind, of a newer
///            version, locked, cut off or damaged, which the checksum of each row tells.
/// Threads    Any; each call for itself. Changes nothing on the disk.
/// Cost       1 000 000 tetrahedra in 0.3 s.
[[nodiscard]] ModelFile readModelFile(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::modelfile
