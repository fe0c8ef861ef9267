#include "host/display/viewport.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vrn::orlo::host::display {

namespace {

Vector wide(KFRFloat3DPoint const& point)
{
    return {point.x, point.y, point.z};
}

bool fits(Vector const& point)
{
    return std::all_of(point.begin(), point.end(), [](double value) {
        return std::abs(value) <= double{std::numeric_limits<float>::max()};
    });
}

KFRFloat3DPoint narrow(Vector const& point)
{
    return {static_cast<float>(point[0]), static_cast<float>(point[1]),
            static_cast<float>(point[2])};
}

KFRResult handOut(std::optional<Vector> const& point, KFRFloat3DPoint& out)
{
    if (!point || !fits(*point)) {
        return KFR::notDone;
    }
    out = narrow(*point);
    return KFR::ok;
}

}  // namespace

Viewport::Viewport(Camera const& camera) : m_given(camera), m_camera(camera)
{
}

void Viewport::setCamera(Camera const& camera)
{
    m_given = camera;
    m_camera = camera.withNearBefore(m_box);
}

void Viewport::setModelBox(std::optional<Box> const& box)
{
    m_box = box.value_or(Box());
    m_camera = m_given.withNearBefore(m_box);
}

KFRResult Viewport::screenToModel(KFRFloat3DPoint const& screen, KFRFloat3DPoint& model)
{
    return handOut(m_camera.screenToModel(wide(screen)), model);
}

KFRResult Viewport::modelToScreen(KFRFloat3DPoint const& model, KFRFloat3DPoint& screen)
{
    return handOut(m_camera.modelToScreen(wide(model)), screen);
}

KFRResult Viewport::getModelBoundingBox(KFRFloat3DPoint& min, KFRFloat3DPoint& max)
{
    if (m_box.isEmpty() || !fits(m_box.m_low) || !fits(m_box.m_high)) {
        return KFR::notDone;
    }
    min = narrow(m_box.m_low);
    max = narrow(m_box.m_high);
    return KFR::ok;
}

}  // namespace vrn::orlo::host::display
