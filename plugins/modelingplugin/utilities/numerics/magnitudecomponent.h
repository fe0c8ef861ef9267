/// \file
/// A vector as a magnitude and an orientation.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/xmatrix4x4.h"

namespace vrn::orlo::plugin::modeling {

/// The image of the X axis under an orientation, times a magnitude: what forms edit as components,
/// as a magnitude or as Euler angles.
///
/// Units      The magnitude: the caller's. Euler angles: radians, as X3DSTransform::rotateEuler.
/// Failure    None.
/// Threads    A value.
class MODELING_API MagnitudeComponent {
public:
    /// A vector along X, or of a magnitude of no more than 1e-6, changes the magnitude and keeps
    /// the orientation, whatever that was: getComponent() need not give it back. A vector against
    /// X is turned by pi to eight decimals, so that its other components are not quite 0. Both are
    /// meant.
    void setComponent(double x, double y, double z);
    void getComponent(double& x, double& y, double& z) const;

    /// Keeps the orientation.
    void setMagnitude(double magnitude) { m_magnitude = magnitude; }
    [[nodiscard]] double getMagnitude() const { return m_magnitude; }

    /// Keeps the magnitude.
    void setEulerAngle(double phi, double theta, double psi);
    void getEulerAngle(double& phi, double& theta, double& psi) const;

private:
    double m_magnitude = 1.0;
    XMatrix4X4 m_orientation;
};

}  // namespace vrn::orlo::plugin::modeling
