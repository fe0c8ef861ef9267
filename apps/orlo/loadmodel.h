/// \file
/// From a geometry file to the host's model.

#pragma once

#include "apps/orlo/session.h"
#include "host/model/model.h"

#include <filesystem>

namespace vrn::orlo::app {

/// Imports a geometry file, with a progress line, and prints the import's warnings.
///
/// Failure    As host::geometry::importGeometry.
[[nodiscard]] host::model::Model loadModel(Session& session, std::filesystem::path const& file);

}  // namespace vrn::orlo::app
