/// \file
/// The service that tells the nodes of single faces.

#pragma once

#include "platform/kfr/kfrserviceobject.h"
#include "platform/muc/meshutilities.h"

#include <string>

namespace vrn::orlo::host::meshing {

/// Reads faces from the table that skins are made of as well, so that the nodes of a face come in
/// one order everywhere. A surface element has one face, number 0, which is itself.
///
/// Failure    kForeignMesh for a mesh part that is null or not the host's; kBadRequest for lists of
///            different lengths, and for a filter, as there is none that is known. What is handed
///            out is as it was then.
/// Threads    Main thread.
class FreeFaceService final : public KFRServiceObjectImpl<muc::IFreeFaceService> {
public:
    KFRResult getFaceData(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                          KFR::DynamicArray::ArrayPtr1<long long> const& elementIds,
                          KFRIService const& filter,
                          KFR::DynamicArray::ArrayPtr1<int> const& faceNumbers,
                          KFR::DynamicArray::ArrayPtr1<long long>& faceElementIds,
                          KFRInt64SequenceSequence& nodeLists,
                          KFR::DynamicArray::ArrayPtr1<int>& topologies,
                          KFR::DynamicArray::ArrayPtr1<long long>& flatNodeIds,
                          KFRIService const& options, bool flat) override;

    std::string getObjectName() override { return "vrn.orlo.muc.IFreeFaceService"; }
};

}  // namespace vrn::orlo::host::meshing
