/// \file
/// Mesh utilities: faces of elements, skins of meshes, chains of beams.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/kfr/arrayptr.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::muc {

/// The nodes of single faces of elements.
class IFreeFaceService : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.muc.IFreeFaceService")

    /// One entry per face that is there, in the order asked for; a face that is not there is left
    /// out. The order of a face's nodes is the same wherever faces are told of.
    ///
    /// \param elementIds      external ids, in step with `faceNumbers`
    /// \param filter          null for every face
    /// \param faceNumbers     from 0
    /// \param faceElementIds  the element of each face
    /// \param nodeLists       external ids of each face's nodes, in single sequences; left alone
    ///                        where `flat` is true
    /// \param topologies      the platform's numbers, 2 to 5
    /// \param flatNodeIds     the same ids, one face after the other
    /// \param options         null
    virtual KFRResult getFaceData(
        KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
        KFR::DynamicArray::ArrayPtr1<long long> const& elementIds, KFRIService const& filter,
        KFR::DynamicArray::ArrayPtr1<int> const& faceNumbers,
        KFR::DynamicArray::ArrayPtr1<long long>& faceElementIds,
        KFRInt64SequenceSequence& nodeLists, KFR::DynamicArray::ArrayPtr1<int>& topologies,
        KFR::DynamicArray::ArrayPtr1<long long>& flatNodeIds, KFRIService const& options,
        bool flat) = 0;
};

/// A face on the skin of a solid mesh.
struct SkinFace {
    /// As regions store it: 3, 5, 4 and 6 for 3, 6, 4 and 8 nodes.
    signed char m_typeCode = 0;
    KFRSequence<long long> m_nodeIds;
};

/// An element with its faces on the skin.
struct SkinElement {
    long long m_elementId = 0;
    KFRSequence<SkinFace> m_faces;
};

using SkinElementSequence = KFRSequence<SkinElement>;

class KFRIShellSolidMesh : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.muc.KFRIShellSolidMesh")

    /// The faces of a solid mesh that belong to one element only: external ids, elements by
    /// ascending local number, the faces of one by their number.
    /// \param nodes  the nodes of the skin by ascending local number
    virtual KFRResult getSkinFaces(KFRSmartPointer<CAE::IPartInterface> const& part,
                                   KFRSmartPointer<CAE::IContinuousMeshInterface> const& mesh,
                                   KFRSequence<long long>& nodes, SkinElementSequence& faces) = 0;
};

/// The order of line elements.
class IBeamTessService : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.muc.IBeamTessService")

    /// The elements of a line mesh in the order of the line, and its nodes along it, those in the
    /// middle of elements left out; local numbers. A closed line begins at its lowest number, which
    /// does not come again at its end.
    ///
    /// Failure    A mesh that is no single line without branches, or no line mesh of the body.
    virtual KFRResult getChain(KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
                               KFRSmartPointer<CAE::IFEMeshInterface> const& mesh,
                               KFRSequence<int>& nodes, KFRSequence<int>& elements,
                               bool& closed) = 0;
};

}  // namespace vrn::orlo::muc
