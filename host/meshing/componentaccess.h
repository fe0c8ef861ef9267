/// \file
/// The FE plug-in's way from geometry to its meshes.

#pragma once

#include "host/meshing/meshpart.h"
#include "platform/fem/componentaccess.h"
#include "platform/kfr/kfrserviceobject.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Answers from the mesh part of the part that an entity belongs to.
///
/// Failure    kNoMesh, or kNoNode for lists of nodes, also for a number that nobody has.
/// Threads    Main thread.
class FEMeshWrapper final : public KFRServiceObjectImpl<plugin::fem::KFRIFEMeshWrapper> {
public:
    /// Null for a number that is no entity's, and for an entity of a part without a mesh.
    using Finder = std::function<KFRSmartPointer<MeshPart>(int number)>;

    explicit FEMeshWrapper(Finder finder) : m_finder(std::move(finder)) {}

    KFRResult getMesh(int number, KFRSmartPointer<CAE::IFEMeshInterface>& mesh) override;
    KFRResult getSubMesh(int number, KFRSmartPointer<CAE::IFEMeshInterface>& mesh) override;
    KFRResult getContinuousMesh(int number, unsigned char dimension,
                                KFRSmartPointer<CAE::IContinuousMeshInterface>& mesh) override;
    KFRResult getMeshBody(int number, KFRSmartPointer<CAE::IMeshBodyInterface>& body) override;
    KFRResult getNodes(int number, CAE::INodeSequence& nodes) override;
    KFRResult getNodeIds(int number, KFRSequence<unsigned long long>& ids) override;
    KFRResult getElementFaces(int number, KFRSequence<unsigned long long>& elementIds,
                              KFRSequence<int>& faceNumbers) override;

    std::string getObjectName() override { return "vrn.orlo.plugin.fem.KFRIFEMeshWrapper"; }

private:
    /// The mesh part that is there; null for none.
    [[nodiscard]] KFRSmartPointer<MeshPart> meshPartOf(int number) const;

    using NodeReader = std::function<void(std::shared_ptr<MeshTables const> const&,
                                          std::vector<LocalNumber> const&)>;
    /// Hands the nodes on an entity on; fails where there are none.
    KFRResult readNodes(int number, NodeReader const& read) const;

    Finder m_finder;
};

/// Hands out the one wrapper.
class FEMComponentAccess final : public KFRServiceObjectImpl<plugin::fem::KFRICompAccess> {
public:
    explicit FEMComponentAccess(FEMeshWrapper::Finder finder)
        : m_wrapper(KFR::make<FEMeshWrapper>(std::move(finder)))
    {
    }

    KFRResult getFEMeshWrapper(KFRSmartPointer<plugin::fem::KFRIFEMeshWrapper>& wrapper) override
    {
        wrapper = m_wrapper;
        return KFR::ok;
    }

    std::string getObjectName() override { return "vrn.orlo.plugin.fem.KFRICompAccess"; }

private:
    KFRSmartPointer<FEMeshWrapper> m_wrapper;
};

}  // namespace vrn::orlo::host::meshing
