/// \file
/// How far a part is meshed.

#pragma once

#include "platform/caedata/caedata.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Sums up the meshes of a part's bodies.
///
/// Threads    Main thread.
class MODELING_API PartMeshEA {
public:
    enum class PartMesh : int {
        none = 0,    ///< No body has elements; also of null and of a part without bodies.
        partly = 1,  ///< Some have, or some of one's volumes or faces.
        fully = 2,   ///< All have.
    };

    PartMeshEA() = delete;

    /// Point bodies do not count, as there is nothing of them to mesh.
    [[nodiscard]] static PartMesh getPartMeshState(
        KFRSmartPointer<CAE::IPartInterface> const& part);
};

}  // namespace vrn::orlo::plugin::modeling
