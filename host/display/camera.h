/// \file
/// The way from the model to the pixels of a window and back.

#pragma once

#include "host/display/space.h"

#include <cstdint>
#include <optional>

namespace vrn::orlo::host::display {

enum class Projection : std::uint8_t { orthographic, perspective };

/// A place to look from, a way to look, and a window.
///
/// Units      Lengths are mm of the model. Screen x counts pixels to the right and y pixels DOWN
///            from the top left corner of the window, which is (0, 0); the middle of the first
///            pixel is (0.5, 0.5). Screen z, the depth, counts mm from the near plane along the
///            axis of the view, negative before that plane. So one depth more is one mm more away
///            in an orthographic view; in perspective it is that along the axis, hence all points
///            of a line of sight keep their pixel, whatever their depth.
/// Shape      Points beyond the borders of the window have a place on the screen, too.
/// Failure    Nothing for a point that is not finite, and in perspective for one that is not before
///            the eye. A constructor throws std::invalid_argument, which names what is wrong.
/// Threads    A value.
class Camera {
public:
    struct View {
        Vector m_eye{0.0, 0.0, 1.0};
        Vector m_target{};
        Vector m_up{0.0, 1.0, 0.0};  ///< Of any length; not along the way from eye to target.
        Projection m_projection = Projection::orthographic;
        double m_height = 100.0;  ///< mm that the window shows from top to bottom; orthographic.
        double m_fieldOfView = 30.0;  ///< Degrees from top to bottom; perspective.
        double m_near = 0.5;  ///< mm from the eye to the near plane; above 0 in perspective.
    };

    /// \param width, height  of the window in pixels
    Camera(View const& view, int width, int height);

    /// A view that shows all of a box, with some margin, as large as it gets.
    /// \param direction  from the eye to the middle of the box, of any length but 0
    /// Failure    std::invalid_argument, too, for an empty box.
    [[nodiscard]] static Camera fit(Box const& box, int width, int height, Projection projection,
                                    Vector const& direction, Vector const& up);

    [[nodiscard]] View const& view() const noexcept { return m_view; }
    [[nodiscard]] int width() const noexcept { return m_width; }
    [[nodiscard]] int height() const noexcept { return m_height; }

    /// The same view with the near plane before all of the box, so that lines of sight start
    /// outside of it; as far before it as it goes when the eye of a perspective is in the box.
    [[nodiscard]] Camera withNearBefore(Box const& box) const;

    [[nodiscard]] std::optional<Vector> screenToModel(Vector const& screen) const noexcept;
    [[nodiscard]] std::optional<Vector> modelToScreen(Vector const& model) const noexcept;

    /// All points of a pixel, by their depths.
    [[nodiscard]] Ray sight(double x, double y) const noexcept;
    /// mm across the view that one pixel is at a depth; not above 0 from the eye backwards.
    [[nodiscard]] double pixelSize(double depth) const noexcept;
    /// Unit vector away from the eye.
    [[nodiscard]] Vector const& direction() const noexcept { return m_forward; }

private:
    [[nodiscard]] bool isPerspective() const noexcept
    {
        return m_view.m_projection == Projection::perspective;
    }

    View m_view;
    int m_width;
    int m_height;
    Vector m_forward{};  // unit vectors
    Vector m_right{};
    Vector m_up{};
    double m_scale = 0.0;  // mm of a pixel; in perspective per mm away from the eye
};

}  // namespace vrn::orlo::host::display
