/// \file
/// Between the screen's pixels and the model's coordinates.

#pragma once

#include "platform/ddm/viewportadapter.h"
#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/line3.h"
#include "plugins/modelingplugin/utilities/numerics/plane3.h"

namespace vrn::orlo::plugin::modeling {

/// Carries points through the viewport of the display, as it is when the object is made.
///
/// Units      Screen: pixels, and depths of the display's own unit. Model: the model's length unit.
///            Single precision; lines and planes are widened from it.
/// Failure    Without a display: operations with a status answer KFR::notDone and write nothing,
///            lines run along the X axis, and points are the origin. Lines and planes drop the
///            display's status and are made of what it has written.
/// Ownership  Holds the viewport.
/// Threads    Main thread.
/// Cost       Made on the stack where it is needed: one look-up of the display.
class MODELING_API PluginMath {
public:
    /// \throws KFRSystemException  as ServiceHelper
    PluginMath();

    KFRResult screenPoint2ModelPoint(float x, float y, float depth, KFRFloat3DPoint& out);

    /// The ray from depth 0 on, its direction of length 1. Its far point lies at depth 300000,
    /// unlike that of the lines below.
    KFRResult screenPoint2ModelRay(float x, float y, KFRFloat3DPoint& origin,
                                   KFRFloat3DPoint& direction);

    /// Truncates towards zero. With a display x and y are written even where it fails; what no
    /// integer can hold is the least one.
    KFRResult modelPoint2ScreenPoint(KFRFloat3DPoint const& p, int& x, int& y);
    KFRResult modelPointDepth(KFRFloat3DPoint const& p, float& depth);

    /// Always OK, whatever the display says and without one too: deliberately so.
    KFRResult modelBoundingBox(KFRFloat3DPoint& min, KFRFloat3DPoint& max);

    /// The point under a pixel at the depth of the middle of the model.
    KFRFloat3DPoint mousePoint(int x, int y);

    /// The line of sight through a pixel.
    Line3 getScreenPerpendicular(float x, float y);
    Line3 getScreenPerpendicular(int x, int y)
    {
        return getScreenPerpendicular(static_cast<float>(x), static_cast<float>(y));
    }
    /// The line of sight through a point of the model, away from the viewer.
    Line3 getScreenPerpendicular(KFRFloat3DPoint const& modelPoint);
    /// The plane through the point across that line. Its normal is some 100 depths long.
    Plane3 getScreenParallelPlane(KFRFloat3DPoint const& modelPoint);

    /// Whether the vectors point the same way or opposite ways, within 5e-9 of an angle that is
    /// neither clamped nor exact near its ends: many a pair that is truly parallel is refused,
    /// (1, 1, 0) with itself for one, and a zero vector always is. That is meant.
    static bool isParallel(KFRDouble3DPoint const& a, KFRDouble3DPoint const& b);

private:
    [[nodiscard]] KFRFloat3DPoint sightFrom(KFRFloat3DPoint const& modelPoint);

    KFRSmartPointer<ddm::KFRIDisplayViewportAdapter> m_viewport;
};

}  // namespace vrn::orlo::plugin::modeling
