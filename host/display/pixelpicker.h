/// \file
/// Geometry under a pixel.

#pragma once

#include "host/display/pixelhit.h"
#include "host/geometry/geometrymodel.h"
#include "host/geometry/geometrypicker.h"
#include "host/geometry/geometryqueries.h"

#include <memory>
#include <span>
#include <vector>

namespace vrn::orlo::host::display {

/// Finds what of a geometry a user means who points at a pixel.
///
/// Shape      Faces are opaque, whatever classes are asked for.
/// Failure    at() throws as requirePixel(). Nothing under the pixel: no hits. An entity that the
///            geometry kernel fails on is left out.
/// Ownership  Refers to the model and the queries, which must stay where they are.
/// Threads    Const operations may run on several threads.
/// Cost       The first ray near to a part finds the boxes of its faces, and is slow. Afterwards a
///            pick meets few faces, and goes over the edges and vertices of the instances at the
///            pixel, and the near ones cost a ray each.
class PixelPicker {
public:
    /// \param instances  whose indices the hits have; needed here only
    PixelPicker(geometry::GeometryModel const& model, geometry::GeometryPicker const& instances,
                geometry::GeometryQueries const& queries);
    PixelPicker(PixelPicker&&) noexcept;
    PixelPicker& operator=(PixelPicker&&) noexcept;
    ~PixelPicker();

    /// The entities of the classes that are under the pixel:
    ///  - faces that the line of sight meets, each where it is met first, hidden ones as well;
    ///  - edges and vertices within the pick size that no face hides, each where it looks nearest
    ///    to the pixel;
    ///  - volumes, and bodies with faces, by their faces; wire and point bodies by what they are
    ///    made of.
    ///
    /// Order      By depth. An edge goes with the first face under the pixel that it has a vertex
    ///            in common with, a vertex with the first edge at it. Of those that go together
    ///            vertices come first, then edges, faces, volumes and bodies, and of a kind the
    ///            nearer to the pixel.
    [[nodiscard]] std::vector<PixelHit> at(Camera const& camera, double x, double y,
                                           std::span<geometry::EntityClass const> classes,
                                           double pickSizePixels = kPickSizePixels) const;

private:
    struct Kept;

    std::unique_ptr<Kept> m_kept;
};

}  // namespace vrn::orlo::host::display
