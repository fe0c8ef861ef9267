/// \file
/// How faces meet at an edge.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <vector>

namespace vrn::orlo::host::geometry {

/// Two faces of one body at an edge.
struct Hinge {
    unsigned m_one = 0;
    unsigned m_other = 0;
    double m_degrees = 0.0;  ///< Between the outward normals at the middle of the edge.
};

/// The pairs of faces at the edge of a number: one in a plain solid, none at a seam. Left out are
/// pairs where a face has no normal at the middle, and those at an edge without length.
[[nodiscard]] std::vector<Hinge> hingesAt(GeometryModel const& model, unsigned edge);

}  // namespace vrn::orlo::host::geometry
