/// \file
/// Writes the meshes of a model as files of other programs.

#pragma once

#include "host/meshing/meshstore.h"
#include "host/model/model.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace vrn::orlo::host::modelspace {

/// A model that a format cannot tell. what() is one line: the file, what it is about, the mend.
class ModelWriteError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The mesh that a part shows; null for a part without one.
[[nodiscard]] std::shared_ptr<meshing::MeshStore const> meshOf(model::Model const& model,
                                                               std::size_t part);

/// Writes an Abaqus input file: the mesh of each part once, in its own coordinates, and an instance
/// for each place where a part stands. Parts without a mesh are left out.
///
/// Shape      As meshing::writeAbaqusAssembly(). Names that come twice get a number.
/// Failure    ModelWriteError for an instance that is mirrored, scaled or sheared, and for a model
///            without a mesh; study::WriteError. A file that was there is as it was.
void writeAbaqusModel(model::Model const& model, std::filesystem::path const& file);

/// Writes a Gmsh mesh: every instance at its place, in coordinates of the model.
///
/// Shape      The first instance of a part keeps the part's ids, every other one gets new ones. A
///            group of a part becomes one per instance, with the instance's name before its own
///            where there are several instances. Elements of a mirrored instance are turned, so
///            that none is inside out.
/// Failure    ModelWriteError for a model without a mesh, or with more nodes, elements or groups
///            than a mesh may have; study::WriteError. A file that was there is as it was.
/// Cost       All instances are in memory at once.
void writeGmshModel(model::Model const& model, std::filesystem::path const& file);

}  // namespace vrn::orlo::host::modelspace
