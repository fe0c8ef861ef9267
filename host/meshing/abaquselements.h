/// \file
/// Element types by the names of Abaqus input files.

#pragma once

#include "host/meshing/elementtype.h"
#include "host/meshing/refusedelements.h"

#include <optional>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// The topology of a type name, with or without the letters of its formulation: "C3D8", "C3D8R",
/// "C3D8I", "S8R5". Nothing for a name that is not known.
/// \param name  in capitals
[[nodiscard]] std::optional<ElementType> abaqusElementType(std::string_view name) noexcept;

/// Why a type that is known is not taken: "C3D5", "M3D9R". Nothing for any other name.
/// \param name  in capitals
[[nodiscard]] std::optional<RefusedElement> refusedAbaqusElement(std::string_view name) noexcept;

/// A name for elements of a topology whose file has none that an Abaqus file takes.
[[nodiscard]] std::string_view plainAbaqusName(ElementType type) noexcept;

}  // namespace vrn::orlo::host::meshing
