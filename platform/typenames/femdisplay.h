/// \file
/// What the display calls elements and meshes, as a pick shows them.

#pragma once

#include "platform/typenames/typename.h"

namespace vrn::orlo::typenames {

// clang-format off
inline TypeName const kDisplay0DContinuousMesh{true, u"FEM.Simulation.0DContinuousMesh", -1};
inline TypeName const kDisplay1DContinuousMesh{true, u"FEM.Simulation.1DContinuousMesh", -1};
inline TypeName const kDisplay1DElement       {true, u"FEM.Simulation.1DElement", -1};
inline TypeName const kDisplay2DContinuousMesh{true, u"FEM.Simulation.2DContinuousMesh", -1};
inline TypeName const kDisplay2DElement       {true, u"FEM.Simulation.2DElement", -1};
inline TypeName const kDisplay2DMesh          {true, u"FEM.Simulation.2DMesh", -1};
inline TypeName const kDisplay3DContinuousMesh{true, u"FEM.Simulation.3DContinuousMesh", -1};
inline TypeName const kDisplay3DElement       {true, u"FEM.Simulation.3DElement", -1};
inline TypeName const kDisplayElementFace     {true, u"FEM.Simulation.ElementFace", -1};
// clang-format on

}  // namespace vrn::orlo::typenames
