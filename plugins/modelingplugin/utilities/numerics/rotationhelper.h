/// \file
/// From a drag of the mouse to a turn.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// A sphere around a point of the model, which the mouse turns.
///
/// Units      Pixels on the screen, the model's length unit otherwise.
/// Failure    None. Without a display drags are measured from the origin along the X axis. A drag
///            at the centre itself has no axis to turn about: targetDirection() is not a number
///            then, while dragTo() gives the near pole. With a radius of 0 a drag has the greatest
///            angle, and at the centre none that is a number.
/// Threads    Main thread.
class MODELING_API RotationHelper {
public:
    RotationHelper() = default;

    /// Measures from now on at the centre's depth.
    void setCenter(KFRDouble3DPoint const& center);
    void setRadius(double radius) { m_radius = radius; }

    /// The point of the sphere that a pixel means: the further from the centre, the further round,
    /// up to an angle of 3.1. The poles lie along the model's Z axis, whatever the view: that is
    /// meant.
    KFRDouble3DPoint dragTo(int x, int y);

    /// Of length 1, away from where the last drag has gone; zero before the first one.
    [[nodiscard]] KFRDouble3DPoint targetDirection() const;

private:
    float m_depth = 0.0F;
    KFRDouble3DPoint m_center;
    double m_radius = 0.0;
    KFRDouble3DPoint m_target;
};

}  // namespace vrn::orlo::plugin::modeling
