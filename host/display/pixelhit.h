/// \file
/// What is found under a pixel.

#pragma once

#include "host/display/camera.h"

#include <optional>

namespace vrn::orlo::host::display {

/// How far from the pixel a point or an edge may be to be hit.
inline constexpr double kPickSizePixels = 4.0;

/// A place on an entity that is under a pixel, or close to it.
struct PixelHit {
    unsigned m_number = 0;    ///< Of the entity.
    unsigned m_instance = 0;  ///< Index of the instance that shows it.
    double m_depth = 0.0;     ///< mm, as Camera counts it.
    Vector m_point{};         ///< In model coordinates.
    double m_pixels = 0.0;    ///< From the pixel on the screen; 0 for what has an area.
};

/// Failure    std::out_of_range for a pixel outside the window, std::invalid_argument for a pick
///            size below 0.
void requirePixel(Camera const& camera, double x, double y, double pickSizePixels);

/// False when surely no point of a box in the model is within so many pixels of a place.
[[nodiscard]] bool mayShow(Camera const& camera, Box const& box, double x, double y,
                           double pixels) noexcept;

/// A point of the model as a hit; nothing when it is farther from a place than so many pixels, or
/// before the near plane.
[[nodiscard]] std::optional<PixelHit> hitAt(Camera const& camera, Vector const& point, double x,
                                            double y, double pixels) noexcept;

/// True for the better of two points for one pick: the nearer one to the pixel, and of two that
/// look like one spot the one in front.
[[nodiscard]] bool isBetter(PixelHit const& one, PixelHit const& other) noexcept;

}  // namespace vrn::orlo::host::display
