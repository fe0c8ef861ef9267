#include "plugins/modelingplugin/utilities/numerics/x3dvector.h"

#include <algorithm>
#include <numbers>

namespace vrn::orlo::plugin::modeling {

double X3DVector::angle(X3DVector const& other) const
{
    if (isValid() == 0 || other.isValid() == 0) {
        return 0.0;
    }
    double const cosine = dotProduct(other) / (mod() * other.mod());
    return std::acos(std::clamp(cosine, -1.0, 1.0));
}

double X3DVector::angle(X3DVector const& other, X3DVector const& reference) const
{
    if (isValid() == 0 || other.isValid() == 0 || reference.isValid() == 0) {
        return 0.0;
    }
    X3DVector const cross = crossProduct(other);
    if (cross.isValid() == 0) {
        X3DVector const a = unit();
        X3DVector const b = other.unit();
        X3DVector const difference(-a.x - b.x, -a.y - b.y, -a.z - b.z);
        return difference.isValid() == 0 ? std::numbers::pi : 0.0;
    }
    double const unsignedAngle = std::acos(dotProduct(other) / (mod() * other.mod()));
    return cross.dotProduct(reference) > 0.0 ? unsignedAngle : -unsignedAngle;
}

}  // namespace vrn::orlo::plugin::modeling
