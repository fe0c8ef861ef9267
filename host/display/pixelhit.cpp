#include "host/display/pixelhit.h"

#include <sstream>
#include <stdexcept>

namespace vrn::orlo::host::display {

void requirePixel(Camera const& camera, double x, double y, double pickSizePixels)
{
    if (!(x >= 0.0 && x <= camera.width() && y >= 0.0 && y <= camera.height())) {
        std::ostringstream text;
        text << "pixel " << x << ',' << y << " is outside the window of " << camera.width() << " x "
             << camera.height();
        throw std::out_of_range(text.str());
    }
    if (!(pickSizePixels >= 0.0)) {
        std::ostringstream text;
        text << "a pick size of " << pickSizePixels << " pixels is not possible: give 0 or more";
        throw std::invalid_argument(text.str());
    }
}

bool mayShow(Camera const& camera, Box const& box, double x, double y, double pixels) noexcept
{
    Box onScreen;
    for (unsigned i = 0; i < 8 && !box.isEmpty(); ++i) {
        std::optional<Vector> const corner = camera.modelToScreen(box.corner(i));
        if (!corner) {
            return true;  // it reaches behind the eye, where nothing can be told
        }
        onScreen.add(*corner);
    }
    return !onScreen.isEmpty() && x >= onScreen.m_low[0] - pixels &&
           x <= onScreen.m_high[0] + pixels && y >= onScreen.m_low[1] - pixels &&
           y <= onScreen.m_high[1] + pixels;
}

std::optional<PixelHit> hitAt(Camera const& camera, Vector const& point, double x, double y,
                              double pixels) noexcept
{
    std::optional<Vector> const screen = camera.modelToScreen(point);
    if (!screen || (*screen)[2] < 0.0) {
        return std::nullopt;
    }
    PixelHit hit;
    hit.m_depth = (*screen)[2];
    hit.m_point = point;
    hit.m_pixels = std::hypot((*screen)[0] - x, (*screen)[1] - y);
    return hit.m_pixels <= pixels ? std::optional(hit) : std::nullopt;
}

bool isBetter(PixelHit const& one, PixelHit const& other) noexcept
{
    constexpr double kSpotsPerPixel = 1000.0;
    double const spot = std::round(one.m_pixels * kSpotsPerPixel);
    double const otherSpot = std::round(other.m_pixels * kSpotsPerPixel);
    return spot != otherSpot ? spot < otherSpot : one.m_depth < other.m_depth;
}

}  // namespace vrn::orlo::host::display
