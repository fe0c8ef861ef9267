/// \file
/// A finite-element mesh.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/caedata/caedata.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

/// Wraps a mesh.
///
/// Failure    Empty answers: null, false. Also for everything about null.
/// Ownership  A value; holds the mesh.
/// Threads    Main thread.
class MODELING_API FEMeshEA {
public:
    FEMeshEA() = default;
    explicit FEMeshEA(KFRSmartPointer<CAE::IFEMeshInterface> mesh) : m_mesh(std::move(mesh)) {}

    [[nodiscard]] KFRSmartPointer<CAE::IMeshBodyInterface> getMeshBody() const;
    /// The mesh as the display knows it.
    [[nodiscard]] KFRSmartPointer<appfw::IEntityInterface> getIEntity() const;
    /// Whether there is no geometry under it.
    [[nodiscard]] bool isOrphan() const;
    [[nodiscard]] bool isVisible() const;

    /// External ids of the nodes along a line mesh. False, with the ids as they were, where there
    /// is no such line or one of its nodes has no id.
    /// \param closed  whether the line closes on itself; false where there is none
    bool getOrderedNodeIds(KFRSequence<unsigned long long>& ids, bool& closed) const;
    /// The same, with the ids of the elements along it.
    bool getNodalChain(KFRSequence<unsigned long long>& nodeIds,
                       KFRSequence<unsigned long long>& elementIds, bool& closed) const;

private:
    struct Chain;
    [[nodiscard]] bool readChain(Chain& chain) const;

    KFRSmartPointer<CAE::IFEMeshInterface> m_mesh;
};

}  // namespace vrn::orlo::plugin::modeling
