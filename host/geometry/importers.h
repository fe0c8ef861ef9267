/// \file
/// The importers behind importGeometry(). Both throw ImportError.

#pragma once

#include "host/geometry/geometryimport.h"

namespace vrn::orlo::host::geometry {

[[nodiscard]] GeometryModel importStep(std::filesystem::path const& file,
                                       ImportProgress const& progress);
[[nodiscard]] GeometryModel importStl(std::filesystem::path const& file,
                                      ImportProgress const& progress);

}  // namespace vrn::orlo::host::geometry
