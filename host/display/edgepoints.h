/// \file
/// The points of an edge that look near to a pixel. For the sources of this module only.

#pragma once

#include "host/display/frame.h"
#include "host/display/pixelhit.h"
#include "host/geometry/geometryqueries.h"

#include <vector>

namespace vrn::orlo::host::display {

/// A place on the screen, and how far around it counts.
struct PickSpot {
    Camera const& m_camera;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_pixels = 0.0;
};

/// Points of an edge within a spot, the best first: where each piece of the edge comes nearest to
/// the pixel, and the ends. There are several, for the best one may be hidden: an edge may go round
/// the back of its body. Hits without numbers; none for an edge without length.
[[nodiscard]] std::vector<PixelHit> edgePointsNear(geometry::GeometryQueries const& queries,
                                                   unsigned edge, Frame const& frame,
                                                   PickSpot const& spot);

}  // namespace vrn::orlo::host::display
