#include "host/display/camera.h"

#include <algorithm>
#include <numbers>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vrn::orlo::host::display {

namespace {

/// Share of the window that a fitted box takes at most.
constexpr double kFill = 0.9;
/// Share of the diagonal of a box that the near plane stays before it.
constexpr double kNearGap = 0.05;
/// The nearest that the near plane of a perspective comes to the eye, as a share of the diagonal.
constexpr double kNearest = 1e-4;

void require(bool isRight, std::string const& what)
{
    if (!isRight) {
        throw std::invalid_argument("camera: " + what);
    }
}

Vector unit(Vector const& vector, char const* what)
{
    double const size = length(vector);
    require(std::isfinite(size) && size > 0.0, std::string(what) + " has no direction");
    return {vector[0] / size, vector[1] / size, vector[2] / size};
}

/// What the gaps before a box are shares of; a single point is taken for a box of 1 mm.
double sizeOf(Box const& box)
{
    double const diagonal = box.diagonal();
    return diagonal > 0.0 ? diagonal : 1.0;
}

double tangentOf(double fieldOfView)
{
    return std::tan(fieldOfView / 2.0 * std::numbers::pi / 180.0);
}

}  // namespace

Camera::Camera(View const& view, int width, int height)
    : m_view(view), m_width(width), m_height(height)
{
    if (width <= 0 || height <= 0) {
        std::ostringstream text;
        text << "a window of " << width << " x " << height << " has no pixels";
        require(false, text.str());
    }
    require(isFinite(view.m_eye) && isFinite(view.m_target), "eye and target must be finite");
    m_forward = unit(difference(view.m_target, view.m_eye), "the way from eye to target");
    Vector const up = unit(view.m_up, "up");
    Vector const right = cross(m_forward, up);
    require(length(right) > 1e-9, "up lies along the way from eye to target");
    m_right = unit(right, "the right side");
    m_up = cross(m_right, m_forward);

    require(std::isfinite(view.m_near), "the near plane must be at a finite distance");
    if (isPerspective()) {
        require(view.m_fieldOfView > 0.0 && view.m_fieldOfView < 180.0,
                "the field of view must be above 0 and below 180 degrees");
        require(view.m_near > 0.0, "the near plane of a perspective must be before the eye");
        m_scale = 2.0 * tangentOf(view.m_fieldOfView) / height;
    } else {
        require(std::isfinite(view.m_height) && view.m_height > 0.0,
                "the height of the view must be above 0 mm");
        m_scale = view.m_height / height;
    }
}

Camera Camera::fit(Box const& box, int width, int height, Projection projection,
                   Vector const& direction, Vector const& up)
{
    require(!box.isEmpty() && isFinite(box.m_low) && isFinite(box.m_high),
            "there is no box to be shown");
    View view;
    view.m_projection = projection;
    view.m_target = sum(box.m_low, difference(box.m_high, box.m_low), 0.5);
    view.m_up = up;
    Vector const forward = unit(direction, "the direction");
    view.m_eye = difference(view.m_target, forward);
    Camera const axes(view, width, height);  // which also checks the arguments

    double const aspect = static_cast<double>(width) / height;
    double const tangent = kFill * tangentOf(view.m_fieldOfView);
    double const gap = kNearGap * sizeOf(box);
    double halfHeight = 0.0;
    double distance = 2.0 * gap;
    for (unsigned i = 0; i < 8; ++i) {
        Vector const arm = difference(box.corner(i), view.m_target);
        double const half =
            std::max(std::abs(dot(arm, axes.m_up)), std::abs(dot(arm, axes.m_right)) / aspect);
        double const ahead = dot(arm, forward);
        halfHeight = std::max(halfHeight, half);
        bool const narrows = projection == Projection::perspective;
        distance = std::max(distance, std::max(narrows ? half / tangent : 0.0, 2.0 * gap) - ahead);
    }
    if (halfHeight > 0.0) {
        view.m_height = 2.0 * halfHeight / kFill;
    } else {
        view.m_height = sizeOf(box);  // a single point, or a line that is seen from its end
    }
    view.m_eye = sum(view.m_target, forward, -distance);
    view.m_near = distance;
    return Camera(view, width, height).withNearBefore(box);
}

Camera Camera::withNearBefore(Box const& box) const
{
    if (box.isEmpty()) {
        return *this;
    }
    Camera moved(*this);
    double const size = sizeOf(box);
    for (unsigned i = 0; i < 8; ++i) {
        double const ahead = dot(difference(box.corner(i), m_view.m_eye), m_forward);
        moved.m_view.m_near = std::min(moved.m_view.m_near, ahead - kNearGap * size);
    }
    if (isPerspective()) {
        double const nearest = std::min(m_view.m_near, kNearest * size);
        moved.m_view.m_near = std::max(moved.m_view.m_near, nearest);
    }
    return moved;
}

std::optional<Vector> Camera::screenToModel(Vector const& screen) const noexcept
{
    if (!isFinite(screen) || !(pixelSize(screen[2]) > 0.0)) {
        return std::nullopt;
    }
    Ray const ray = sight(screen[0], screen[1]);
    Vector const model = sum(ray.m_origin, ray.m_direction, screen[2]);
    return isFinite(model) ? std::optional(model) : std::nullopt;
}

std::optional<Vector> Camera::modelToScreen(Vector const& model) const noexcept
{
    Vector const arm = difference(model, m_view.m_eye);
    double const depth = dot(arm, m_forward) - m_view.m_near;
    double const pixel = pixelSize(depth);
    if (!isFinite(arm) || !(pixel > 0.0)) {
        return std::nullopt;
    }
    Vector const screen{m_width / 2.0 + dot(arm, m_right) / pixel,
                        m_height / 2.0 - dot(arm, m_up) / pixel, depth};
    return isFinite(screen) ? std::optional(screen) : std::nullopt;
}

Ray Camera::sight(double x, double y) const noexcept
{
    Vector const across =
        sum(sum({}, m_right, x - m_width / 2.0), m_up, m_height / 2.0 - y);  // in pixels
    Vector const nearCentre = sum(m_view.m_eye, m_forward, m_view.m_near);
    Ray ray{sum(nearCentre, across, pixelSize(0.0)), m_forward};
    if (isPerspective()) {
        ray.m_direction = sum(m_forward, across, m_scale);
    }
    return ray;
}

double Camera::pixelSize(double depth) const noexcept
{
    return isPerspective() ? m_scale * (m_view.m_near + depth) : m_scale;
}

}  // namespace vrn::orlo::host::display
