/// \file
/// The service that tells the skin of a solid mesh.

#pragma once

#include "host/meshing/elementtype.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/muc/meshutilities.h"

#include <string>

namespace vrn::orlo::host::meshing {

/// The code by which regions store a face or an edge of the type; 0 for a type that is neither.
[[nodiscard]] constexpr signed char typeCodeOf(ElementType type) noexcept
{
    switch (type) {
        case ElementType::line3:
            return 2;
        case ElementType::triangle3:
            return 3;
        case ElementType::quad4:
            return 4;
        case ElementType::triangle6:
            return 5;
        case ElementType::quad8:
            return 6;
        default:
            return 0;
    }
}

/// Reads the skins that MeshTables keeps.
///
/// Failure    kForeignMesh for a part or a mesh that is null, for a mesh that is not the host's,
///            and for one of another part; kNoMesh for one that has no solid elements. What is
///            handed out is as it was then.
/// Threads    Main thread.
class SkinService final : public KFRServiceObjectImpl<muc::KFRIShellSolidMesh> {
public:
    KFRResult getSkinFaces(KFRSmartPointer<CAE::IPartInterface> const& part,
                           KFRSmartPointer<CAE::IContinuousMeshInterface> const& mesh,
                           KFRSequence<long long>& nodes, muc::SkinElementSequence& faces) override;

    std::string getObjectName() override { return "vrn.orlo.muc.KFRIShellSolidMesh"; }
};

}  // namespace vrn::orlo::host::meshing
