/// \file
/// A mesh as a row of plain arrays, and such arrays as bytes.

#pragma once

#include "host/meshing/meshstore.h"

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vrn::orlo::host::modelfile {

/// Numbers of a mesh that do not fit together. what() says which, in words for the user.
class MeshBlobError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An array of a mesh.
struct MeshBlob {
    std::string_view m_name;  ///< "node ids"; for people too.
    std::size_t m_count = 0;  ///< Of its values.
    /// Packed, little-endian; a text is its length in 4 bytes and itself.
    std::string_view m_bytes;
};

/// Calls `put` for each array of a mesh, of which there is always the same number.
///
/// Failure    MeshBlobError, before the first call.
/// Ownership  The bytes live for the call only.
void packMesh(meshing::MeshStore::Content const& mesh,
              std::function<void(MeshBlob const&)> const& put);

/// The mesh, without its name, of the arrays that packMesh() has put.
///
/// \param get  gives the array of a name; its bytes must live until the next call
/// Failure    MeshBlobError for arrays that do not fit together.
[[nodiscard]] meshing::MeshStore::Content unpackMesh(
    std::function<MeshBlob(std::string_view name)> const& get);

}  // namespace vrn::orlo::host::modelfile
