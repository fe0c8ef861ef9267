/// \file
/// FE plug-in: from geometry to its meshes.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::fem {

/// What lies on geometry, by numbers of the geometry server.
///
/// Failure    What has no such mesh: a failure, with the last argument as it was.
class KFRIFEMeshWrapper : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.fem.KFRIFEMeshWrapper")

    /// The continuous mesh that has elements on the entity itself; of a body the one of the highest
    /// dimension.
    virtual KFRResult getMesh(int number, KFRSmartPointer<CAE::IFEMeshInterface>& mesh) = 0;
    /// The elements on the entity itself, of its own dimension.
    virtual KFRResult getSubMesh(int number, KFRSmartPointer<CAE::IFEMeshInterface>& mesh) = 0;
    /// The continuous mesh of a dimension that lies on the entity or, for a body, in it.
    virtual KFRResult getContinuousMesh(int number, unsigned char dimension,
                                        KFRSmartPointer<CAE::IContinuousMeshInterface>& mesh) = 0;
    /// The mesh body that the entity's mesh, or the mesh that it bounds, belongs to.
    virtual KFRResult getMeshBody(int number, KFRSmartPointer<CAE::IMeshBodyInterface>& body) = 0;
    /// The nodes on the entity and on what bounds it, by ascending local number.
    virtual KFRResult getNodes(int number, CAE::INodeSequence& nodes) = 0;
    /// Their external ids.
    virtual KFRResult getNodeIds(int number, KFRSequence<unsigned long long>& ids) = 0;
    /// The faces of solid elements that lie on a face: external ids, and face numbers from 0.
    virtual KFRResult getElementFaces(int number, KFRSequence<unsigned long long>& elementIds,
                                      KFRSequence<int>& faceNumbers) = 0;
};

/// Entry to the plug-in's components.
class KFRICompAccess : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.fem.KFRICompAccess")

    virtual KFRResult getFEMeshWrapper(KFRSmartPointer<KFRIFEMeshWrapper>& wrapper) = 0;
};

}  // namespace vrn::orlo::plugin::fem
