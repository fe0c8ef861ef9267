/// \file
/// Element types by the names of Abaqus input files.

#pragma once

#include "host/meshing/elementtype.h"

#include <optional>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// The topology of a type name, with or without the letters of its formulation: "C3D8", "C3D8R",
/// "C3D8I", "S8R5". Nothing for a name that is not known.
/// \param name  in capitals
[[nodiscard]] std::optional<ElementType> abaqusElementType(std::string_view name) noexcept;

}  // namespace vrn::orlo::host::meshing
