#include "host/meshing/meshtypes.h"

#include "platform/typenames/femdisplay.h"
#include "platform/typenames/femesh.h"
#include "platform/typenames/objectmodel.h"

namespace vrn::orlo::host::meshing {

MeshTypes::MeshTypes(KFR::Services::TypeRegistry::ITypeRegistryInterface& registry)
    : m_part(registry.getTypeId(typenames::kSimulationPart)),
      m_partInstance(registry.getTypeId(typenames::kSimulationPartInstance)),
      m_meshPart(registry.getTypeId(typenames::kSimulationFEPartRep)),
      m_meshBody(registry.getTypeId(typenames::kSimulationMeshBody)),
      m_subMesh(registry.getTypeId(typenames::kFemFEMesh)),
      m_continuousMesh(registry.getTypeId(typenames::kFemContinuousMesh)),
      m_displayMesh{registry.getTypeId(typenames::kDisplay0DContinuousMesh),
                    registry.getTypeId(typenames::kDisplay1DContinuousMesh),
                    registry.getTypeId(typenames::kDisplay2DContinuousMesh),
                    registry.getTypeId(typenames::kDisplay3DContinuousMesh)},
      m_element1D(registry.getTypeId(typenames::kDisplay1DElement)),
      m_element2D(registry.getTypeId(typenames::kDisplay2DElement)),
      m_element3D(registry.getTypeId(typenames::kDisplay3DElement))
{
}

}  // namespace vrn::orlo::host::meshing
