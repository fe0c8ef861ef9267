/// \file
/// A pixel of a window that shows a model, as the command line says it.

#pragma once

#include "host/display/camera.h"

#include <string>
#include <vector>

namespace vrn::orlo::app {

struct PixelOptions {
    std::vector<double> m_pixel;  ///< x to the right and y down from the top left corner.
    std::string m_view = "iso";   ///< Where the eye stands: "iso", "x", "-x", "y", ...
    bool m_perspective = false;
    std::string m_window = "1000x800";  ///< Width and height in pixels.
};

/// Whether a pixel is given at all.
[[nodiscard]] inline bool isGiven(PixelOptions const& options) noexcept
{
    return !options.m_pixel.empty();
}

/// Checks what can be checked without a model.
///
/// Failure    UsageError for a pixel outside the window, and for a view or a window that is none.
void check(PixelOptions const& options);

/// The view that shows all of a box.
///
/// Failure    UsageError as check(), and for an empty box.
[[nodiscard]] host::display::Camera cameraOf(PixelOptions const& options,
                                             host::display::Box const& box);

}  // namespace vrn::orlo::app
