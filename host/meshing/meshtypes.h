/// \file
/// The ids of the types of mesh objects.

#pragma once

#include "platform/registry/typeregistry.h"

#include <array>

namespace vrn::orlo::host::meshing {

/// Looked up once, as they hold for the length of the run.
struct MeshTypes {
    explicit MeshTypes(KFR::Services::TypeRegistry::ITypeRegistryInterface& registry);

    unsigned m_part;
    unsigned m_partInstance;
    unsigned m_meshPart;
    unsigned m_meshBody;
    unsigned m_subMesh;
    unsigned m_continuousMesh;              ///< By which a body is asked for all of its meshes.
    std::array<unsigned, 4> m_displayMesh;  ///< By dimension: what references to meshes carry.
    unsigned m_element1D;
    unsigned m_element2D;
    unsigned m_element3D;

    /// What references to elements of a shape carry: lines 1D, triangles and quadrilaterals 2D, any
    /// other 3D.
    [[nodiscard]] unsigned elementOf(int shape) const noexcept
    {
        return shape == 0 ? m_element1D : shape == 1 || shape == 2 ? m_element2D : m_element3D;
    }
};

}  // namespace vrn::orlo::host::meshing
