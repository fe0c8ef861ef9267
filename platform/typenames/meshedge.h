/// \file
/// Edges of meshes.

#pragma once

#include "platform/typenames/typename.h"

namespace vrn::orlo::typenames {

// clang-format off
inline TypeName const kMeshTopologyEdgeEntity2D {true, u"MeshTopology_EdgeEntity_2D", -1};
inline TypeName const kMeshTopologyEdgeEntity3D {true, u"MeshTopology_EdgeEntity_3D", -1};
inline TypeName const kMeshTopologyEdgeWireframe{true, u"MeshTopology_EdgeWireframe", -1};
// clang-format on

}  // namespace vrn::orlo::typenames
