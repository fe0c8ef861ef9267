/// \file
/// From a geometry file to the host's model.

#pragma once

#include "apps/orlo/session.h"
#include "host/model/model.h"

#include <filesystem>
#include <memory>

namespace vrn::orlo::app {

/// Imports a geometry file, with a progress line, and prints the import's warnings.
///
/// Failure    As host::geometry::importGeometry.
[[nodiscard]] std::unique_ptr<host::model::Model> loadModel(Session& session,
                                                            std::filesystem::path const& file);

}  // namespace vrn::orlo::app
