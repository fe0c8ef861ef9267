#include "plugins/modelingplugin/utilities/numerics/rotationhelper.h"

#include "plugins/modelingplugin/utilities/numerics/eightdigitpi.h"
#include "plugins/modelingplugin/utilities/numerics/kernelconversions.h"
#include "plugins/modelingplugin/utilities/numerics/pluginmath.h"
#include "plugins/modelingplugin/utilities/numerics/plugintolerance.h"
#include "plugins/modelingplugin/utilities/numerics/transform3.h"

#include <cmath>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr float kGreatestAngle = 3.1F;
constexpr double kPoleAngle = 0.005;

KFRFloat3DPoint narrowed(KFRDouble3DPoint const& p)
{
    return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
}

KFRDouble3DPoint scaled(KFRDouble3DPoint const& v, double factor)
{
    return {v.x * factor, v.y * factor, v.z * factor};
}

KFRDouble3DPoint unitOf(KFRDouble3DPoint const& v)
{
    double const length = toVector(v).mod();
    if (length < kPluginTolerance) {
        return {};
    }
    return {v.x / length, v.y / length, v.z / length};
}

float distance(KFRFloat3DPoint const& a, KFRFloat3DPoint const& b)
{
    float const x = a.x - b.x;
    float const y = a.y - b.y;
    float const z = a.z - b.z;
    return std::sqrt(x * x + y * y + z * z);
}

}  // namespace

void RotationHelper::setCenter(KFRDouble3DPoint const& center)
{
    m_center = center;
    PluginMath math;
    int x = 0;
    int y = 0;
    static_cast<void>(math.modelPoint2ScreenPoint(narrowed(center), x, y));
    static_cast<void>(math.modelPointDepth(narrowed(center), m_depth));
}

KFRDouble3DPoint RotationHelper::dragTo(int x, int y)
{
    PluginMath math;
    KFRFloat3DPoint dragged;
    static_cast<void>(math.screenPoint2ModelPoint(static_cast<float>(x), static_cast<float>(y),
                                                  m_depth, dragged));
    float turn = distance(narrowed(m_center), dragged) / static_cast<float>(m_radius);
    if (turn > kGreatestAngle) {
        turn = kGreatestAngle;
    }
    auto const angle = static_cast<double>(turn);

    Line3 const sight = math.getScreenPerpendicular(x, y);
    KFRDouble3DPoint onPlane;
    math.getScreenParallelPlane(narrowed(m_center)).intersection(sight, onPlane);
    KFRDouble3DPoint const toViewer = unitOf(scaled(sight.direction(), -1.0));
    KFRDouble3DPoint const sideways =
        unitOf({onPlane.x - m_center.x, onPlane.y - m_center.y, onPlane.z - m_center.z});
    KFRDouble3DPoint const axis = toRecord(toVector(toViewer).crossProduct(toVector(sideways)));
    m_target =
        Transform3::transformVector(Transform3::rotationAbout(angle, axis, m_center), toViewer);

    auto const pole = [&](double z) {
        KFRDouble3DPoint point;
        math.getScreenParallelPlane(narrowed({m_center.x, m_center.y, z}))
            .intersection(sight, point);
        return point;
    };
    if (angle < kPoleAngle) {
        return pole(m_center.z - m_radius);
    }
    // Out of reach as long as the greatest angle is what it is; kept with it.
    if (kEightDigitPi - angle < kPoleAngle) {
        return pole(m_center.z + m_radius);
    }
    KFRDouble3DPoint nearest;
    sight.intersection(Line3(m_center, m_target), nearest);
    return nearest;
}

KFRDouble3DPoint RotationHelper::targetDirection() const
{
    return unitOf(scaled(m_target, -1.0));
}

}  // namespace vrn::orlo::plugin::modeling
