/// \file
/// Meshes in the form in which regions are drawn. The spelling is deliberate: callers link against
/// it.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrsequence.h"

#include <list>

namespace vrn::orlo::plugin::modeling {

/// Nodes of one mesh.
///
/// Shape      The two sequences are in step.
struct MeshTesslation {
    KFRSmartPointer<CAE::IFEMeshInterface> mesh;
    KFRSequence<unsigned long long> nodeIds;  ///< External ids.
    KFRDouble3DPointSequence locations;
};

/// The meshes of one geometry entity.
struct GeometryTesslcation {
    std::list<MeshTesslation> meshes;
};

}  // namespace vrn::orlo::plugin::modeling
