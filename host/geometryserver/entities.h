/// \file
/// The objects of entities.

#pragma once

#include "host/geometryserver/geometryserver.h"
#include "platform/gsc/geometryentities.h"

#include <memory>

namespace vrn::orlo::host::geometryserver {

/// How far in mm a point may be from an edge and still lie on it, inclusive.
inline constexpr double kOnEdge = 1e-5;

/// An object of an entity, or of a temporary line: faces answer KFRIVTKFace, edges KFRIVTKEdge,
/// KFRIVTKCurve and KFRIGSCTessellationEdge, vertices KFRIVTKVertex. All but lines answer
/// KFRIVTKVirtuable, and none is virtual: the server shows the kernel's entities as they are.
/// Nor is one ever suppressed.
///
/// Failure    Null for a number that is not there. The object of what has gone since, be it with
///            its model or with the server, fails in all.
/// Ownership  Holds nothing. Each call makes an object.
[[nodiscard]] KFRSmartPointer<gsc::KFRIVTKEntity> makeEntity(
    std::shared_ptr<GeometryServer const> const& server, int number);

}  // namespace vrn::orlo::host::geometryserver
