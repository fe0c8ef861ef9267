#include "plugins/modelingplugin/utilities/numerics/pluginmath.h"

#include "platform/ddm/display3ddatamanager.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/numerics/eightdigitpi.h"
#include "plugins/modelingplugin/utilities/numerics/kernelconversions.h"
#include "plugins/modelingplugin/utilities/numerics/plugintolerance.h"

#include <cmath>
#include <limits>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

// The far ends of rays and of lines differ, and are meant to.
constexpr float kFarDepthOfRays = 300000.0F;
constexpr float kFarDepthOfLines = 100.0F;

KFRFloat3DPoint difference(KFRFloat3DPoint const& a, KFRFloat3DPoint const& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

KFRFloat3DPoint unitOf(KFRFloat3DPoint const& v)
{
    float const length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length == 0.0F) {
        return v;
    }
    return {v.x / length, v.y / length, v.z / length};
}

/// A plain cast is undefined for what an int cannot hold; this is what the processor makes of it.
int truncated(float value)
{
    constexpr auto kEnd = 2147483648.0F;
    return value >= -kEnd && value < kEnd ? static_cast<int>(value)
                                          : std::numeric_limits<int>::min();
}

double dot(KFRDouble3DPoint const& a, KFRDouble3DPoint const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

}  // namespace

PluginMath::PluginMath()
{
    auto const display =
        KFR::loose_cast<ddm::KFRIDisplay3DDataManager>(ServiceHelper::getDisplayDataManager());
    if (display != NULLSP) {
        static_cast<void>(display->getViewportAdapter(m_viewport));
    }
}

KFRResult PluginMath::screenPoint2ModelPoint(float x, float y, float depth, KFRFloat3DPoint& out)
{
    if (m_viewport == NULLSP) {
        return KFR::notDone;
    }
    return m_viewport->screenToModel({x, y, depth}, out);
}

KFRResult PluginMath::screenPoint2ModelRay(float x, float y, KFRFloat3DPoint& origin,
                                           KFRFloat3DPoint& direction)
{
    KFRFloat3DPoint near;
    if (KFRResult const result = screenPoint2ModelPoint(x, y, 0.0F, near); !result.isOk()) {
        return result;
    }
    KFRFloat3DPoint far;
    KFRResult const result = screenPoint2ModelPoint(x, y, kFarDepthOfRays, far);
    if (result.isOk()) {
        origin = near;
        direction = unitOf(difference(far, near));
    }
    return result;
}

KFRResult PluginMath::modelPoint2ScreenPoint(KFRFloat3DPoint const& p, int& x, int& y)
{
    if (m_viewport == NULLSP) {
        return KFR::notDone;
    }
    KFRFloat3DPoint screen;
    KFRResult const result = m_viewport->modelToScreen(p, screen);
    x = truncated(screen.x);
    y = truncated(screen.y);
    return result;
}

KFRResult PluginMath::modelPointDepth(KFRFloat3DPoint const& p, float& depth)
{
    if (m_viewport == NULLSP) {
        return KFR::notDone;
    }
    KFRFloat3DPoint screen;
    KFRResult const result = m_viewport->modelToScreen(p, screen);
    depth = screen.z;
    return result;
}

KFRResult PluginMath::modelBoundingBox(KFRFloat3DPoint& min, KFRFloat3DPoint& max)
{
    if (m_viewport != NULLSP) {
        static_cast<void>(m_viewport->getModelBoundingBox(min, max));
    }
    return KFR::ok;
}

KFRFloat3DPoint PluginMath::mousePoint(int x, int y)
{
    KFRFloat3DPoint min;
    KFRFloat3DPoint max;
    static_cast<void>(modelBoundingBox(min, max));
    KFRFloat3DPoint const center{(min.x + max.x) * 0.5F, (min.y + max.y) * 0.5F,
                                 (min.z + max.z) * 0.5F};
    float depth = 0.0F;
    static_cast<void>(modelPointDepth(center, depth));
    KFRFloat3DPoint point;
    static_cast<void>(
        screenPoint2ModelPoint(static_cast<float>(x), static_cast<float>(y), depth, point));
    return point;
}

Line3 PluginMath::getScreenPerpendicular(float x, float y)
{
    KFRFloat3DPoint origin;
    KFRFloat3DPoint direction{1.0F, 0.0F, 0.0F};
    if (m_viewport != NULLSP) {
        KFRFloat3DPoint far;
        static_cast<void>(m_viewport->screenToModel({x, y, 0.0F}, origin));
        static_cast<void>(m_viewport->screenToModel({x, y, kFarDepthOfLines}, far));
        direction = difference(far, origin);
    }
    return {origin, direction};
}

KFRFloat3DPoint PluginMath::sightFrom(KFRFloat3DPoint const& modelPoint)
{
    if (m_viewport == NULLSP) {
        return {1.0F, 0.0F, 0.0F};
    }
    KFRFloat3DPoint screen;
    static_cast<void>(m_viewport->modelToScreen(modelPoint, screen));
    screen.z += kFarDepthOfLines;
    KFRFloat3DPoint far;
    static_cast<void>(m_viewport->screenToModel(screen, far));
    return difference(far, modelPoint);
}

Line3 PluginMath::getScreenPerpendicular(KFRFloat3DPoint const& modelPoint)
{
    return {modelPoint, sightFrom(modelPoint)};
}

Plane3 PluginMath::getScreenParallelPlane(KFRFloat3DPoint const& modelPoint)
{
    return {sightFrom(modelPoint), modelPoint};
}

bool PluginMath::isParallel(KFRDouble3DPoint const& a, KFRDouble3DPoint const& b)
{
    double const angle = std::acos(dot(a, b) / (std::sqrt(dot(a, a)) * std::sqrt(dot(b, b))));
    return std::abs(angle) < kPluginTolerance || std::abs(angle - kEightDigitPi) < kPluginTolerance;
}

}  // namespace vrn::orlo::plugin::modeling
