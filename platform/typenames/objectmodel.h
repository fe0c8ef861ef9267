/// \file
/// Object-model types: what the persistent model is made of.

#pragma once

#include "platform/typenames/typename.h"

namespace vrn::orlo::typenames {

// clang-format off
inline TypeName const kSimulationAssembly              {true, u"Simulation.Assembly", -1};
inline TypeName const kSimulationAssemblyInstance      {true, u"Simulation.AssemblyInstance", -1};
inline TypeName const kSimulationCoordSystemCartesian  {true, u"Simulation.CoordSystem.Cartesian", -1};
inline TypeName const kSimulationCoordSystemCylindrical{true, u"Simulation.CoordSystem.Cylindrical", -1};
inline TypeName const kSimulationCoordSystemSpherical  {true, u"Simulation.CoordSystem.Spherical", -1};
inline TypeName const kSimulationCoordSystemGroup      {true, u"Simulation.CoordSystemGroup", -1};
inline TypeName const kSimulationFEPartRep             {true, u"Simulation.FEPartRep", -1};
inline TypeName const kSimulationGenericPartRep        {true, u"Simulation.GenericPartRep", -1};
inline TypeName const kSimulationMeshBody              {true, u"Simulation.MeshBody", -1};
inline TypeName const kSimulationModel                 {true, u"Simulation.Model", -1};
inline TypeName const kSimulationPart                  {true, u"Simulation.Part", -1};
inline TypeName const kSimulationPartInstance          {true, u"Simulation.PartInstance", -1};
inline TypeName const kSimulationShaperShaperScenario  {true, u"Simulation.Shaper.ShaperScenario", -1};
inline TypeName const kSimulationShaperShaperStudy     {true, u"Simulation.Shaper.ShaperStudy", -1};
// clang-format on

}  // namespace vrn::orlo::typenames
