/// \file
/// The service that puts line elements in order.

#pragma once

#include "host/meshing/meshstore.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/muc/meshutilities.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Line elements one after the other.
struct Chain {
    std::vector<LocalNumber> m_nodes;  ///< The ends of the elements; of a closed line each once.
    std::vector<LocalNumber> m_elements;
    bool m_isClosed = false;
};

/// Orders line elements. An open line begins at the lower number of its two ends. A closed one
/// begins at its lowest node, and with the lower number of the two elements there.
///
/// Failure    Nothing for no elements, for what is no line element, for branches, for pieces apart,
///            and for an element whose ends are one node.
/// Cost       n log n.
[[nodiscard]] std::optional<Chain> chainOf(MeshStore const& store,
                                           std::span<LocalNumber const> elements);

/// Failure    kForeignMesh for a handle that is null or not the host's, and for a mesh of another
///            body; kNoChain as chainOf(). What is handed out is as it was then.
/// Threads    Main thread.
class BeamChainService final : public KFRServiceObjectImpl<muc::IBeamTessService> {
public:
    KFRResult getChain(KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
                       KFRSmartPointer<CAE::IFEMeshInterface> const& mesh, KFRSequence<int>& nodes,
                       KFRSequence<int>& elements, bool& closed) override;

    std::string getObjectName() override { return "vrn.orlo.muc.IBeamTessService"; }
};

}  // namespace vrn::orlo::host::meshing
