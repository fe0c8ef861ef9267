/// \file
/// From a file to the host's model.

#pragma once

#include "apps/orlo/session.h"
#include "host/model/model.h"

#include <filesystem>
#include <memory>
#include <string>

namespace vrn::orlo::app {

/// Imports a geometry file, with a progress line, and prints the import's warnings. Of a model file
/// (.orlo) the geometry in it, with its meshes.
///
/// Failure    As host::geometry::importGeometry; ModelFileError.
[[nodiscard]] std::unique_ptr<host::model::Model> loadModel(Session& session,
                                                            std::filesystem::path const& file);

/// A geometry file as a model file keeps it.
struct GeometrySource {
    std::string m_name;   ///< Of the file, without its folder.
    std::string m_bytes;  ///< All of it.
};

/// What a model was loaded from; of a model file the geometry file in it.
///
/// Failure    UsageError for a file that cannot be read any more; ModelFileError.
[[nodiscard]] GeometrySource geometrySourceOf(std::filesystem::path const& file);

/// The ending of a file in small letters: ".step".
[[nodiscard]] std::string endingOf(std::filesystem::path const& file);

}  // namespace vrn::orlo::app
