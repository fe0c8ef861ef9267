/// \file
/// The objects of curves and surfaces.

#pragma once

#include "host/geometryserver/geometryserver.h"
#include "platform/gsc/geometryentities.h"

#include <memory>

namespace vrn::orlo::host::geometryserver {

/// The curve of an edge. Parameters are the kernel's, from one end of the edge to the other.
///
/// Failure    Null for what is no edge, and for an edge without length, which has no curve. The
///            object fails when the edge has gone, and evaluate() beyond the ends of the edge and
///            in a cusp.
/// Ownership  Holds nothing. Each call makes an object.
[[nodiscard]] KFRSmartPointer<gsc::GSCICurve> makeCurve(
    std::shared_ptr<GeometryServer const> const& server, int edge);

/// The surface of a face; its normal points out of the body.
///
/// Failure    Null for what is no face, and for a face of triangles, which has no surface. The
///            object fails when the face has gone, and evaluate() beyond the range of the face and
///            where there is no normal, as at the tip of a cone.
/// Ownership  Holds nothing. Each call makes an object.
[[nodiscard]] KFRSmartPointer<gsc::GSCISurface> makeSurface(
    std::shared_ptr<GeometryServer const> const& server, int face);

}  // namespace vrn::orlo::host::geometryserver
