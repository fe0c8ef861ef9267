/// \file
/// Persistent finite-element types. Not to be confused with the display side's, whose prefix is the
/// other way round.

#pragma once

#include "platform/typenames/typename.h"

namespace vrn::orlo::typenames {

// clang-format off
inline TypeName const kFemContinuousMesh{true, u"Simulation.FEM.ContinuousMesh", -1};
inline TypeName const kFemElement       {true, u"Simulation.FEM.Element", -1};
inline TypeName const kFemFEMesh        {true, u"Simulation.FEM.FEMesh", -1};
inline TypeName const kFemMesh          {true, u"Simulation.FEM.Mesh", -1};
inline TypeName const kFemNode          {true, u"Simulation.FEM.Node", -1};
// clang-format on

}  // namespace vrn::orlo::typenames
