#include "plugins/modelingplugin/utilities/numerics/magnitudecomponent.h"

#include "plugins/modelingplugin/utilities/numerics/eightdigitpi.h"
#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <cmath>

namespace vrn::orlo::plugin::modeling {

namespace {

/// A hundredth of a degree, from pi to eight decimals; the digits are meant.
constexpr double kAgainstX = 0.00017453292500000002;

constexpr X3DVector kX(1.0, 0.0, 0.0);

}  // namespace

void MagnitudeComponent::setComponent(double x, double y, double z)
{
    X3DVector const vector(x, y, z);
    m_magnitude = vector.mod();
    X3DVector const direction = vector.unit();
    double const angle = direction.angle(kX);
    if (std::abs(angle - kEightDigitPi) < kAgainstX) {
        m_orientation = X3DSTransform::rotateEuler(kEightDigitPi, 0.0, 0.0);
        return;
    }
    X3DVector const axis = kX.crossProduct(direction);
    if (axis.isValid() == 0) {
        return;
    }
    m_orientation = X3DSTransform::rotate(X3DSPoint(), axis, angle);
}

void MagnitudeComponent::getComponent(double& x, double& y, double& z) const
{
    X3DVector const direction = X3DSTransform::transformVector(kX, m_orientation);
    x = direction.x * m_magnitude;
    y = direction.y * m_magnitude;
    z = direction.z * m_magnitude;
}

void MagnitudeComponent::setEulerAngle(double phi, double theta, double psi)
{
    m_orientation = X3DSTransform::rotateEuler(phi, theta, psi);
}

void MagnitudeComponent::getEulerAngle(double& phi, double& theta, double& psi) const
{
    X3DSTransform::getEuler(m_orientation, phi, theta, psi);
}

}  // namespace vrn::orlo::plugin::modeling
