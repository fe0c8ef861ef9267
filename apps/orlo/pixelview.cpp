#include "apps/orlo/pixelview.h"

#include "apps/orlo/usageerror.h"
#include "platform/kfr/numbertext.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <system_error>
#include <utility>

namespace vrn::orlo::app {

namespace {

using host::display::Box;
using host::display::Camera;
using host::display::Projection;
using host::display::Vector;

struct ViewRow {
    std::string_view m_name;
    Vector m_direction;  ///< From the eye.
    Vector m_up;
};

// clang-format off
constexpr std::array kViews{
    ViewRow{"iso", {-1, 1, -1}, {0, 0, 1}},
    ViewRow{"x",   {-1, 0, 0},  {0, 0, 1}},
    ViewRow{"-x",  {1, 0, 0},   {0, 0, 1}},
    ViewRow{"y",   {0, -1, 0},  {0, 0, 1}},
    ViewRow{"-y",  {0, 1, 0},   {0, 0, 1}},
    ViewRow{"z",   {0, 0, -1},  {0, 1, 0}},
    ViewRow{"-z",  {0, 0, 1},   {0, 1, 0}},
};
// clang-format on

ViewRow const& viewOf(std::string const& name)
{
    auto const row = std::ranges::find(kViews, name, &ViewRow::m_name);
    if (row != kViews.end()) {
        return *row;
    }
    throw UsageError("--view " + name +
                     ": give iso, x, y, z, -x, -y or -z, the side on which the eye stands");
}

std::pair<int, int> windowOf(std::string const& text)
{
    constexpr int kMost = 100'000;
    int width = 0;
    int height = 0;
    char const* const end = text.data() + text.size();
    auto const across = std::from_chars(text.data(), end, width);
    bool const hasMore = across.ec == std::errc() && across.ptr != end && *across.ptr == 'x';
    auto const down = std::from_chars(hasMore ? across.ptr + 1 : end, end, height);
    if (!hasMore || down.ec != std::errc() || down.ptr != end || width < 1 || height < 1 ||
        width > kMost || height > kMost) {
        throw UsageError("--window " + text + ": give its width and height, such as 1000x800");
    }
    return {width, height};
}

}  // namespace

void check(PixelOptions const& options)
{
    static_cast<void>(viewOf(options.m_view));
    auto const [width, height] = windowOf(options.m_window);
    if (!isGiven(options)) {
        return;
    }
    if (options.m_pixel.size() != 2) {
        throw UsageError("--at-pixel: give x,y");
    }
    double const x = options.m_pixel[0];
    double const y = options.m_pixel[1];
    if (!(x >= 0.0 && x <= width && y >= 0.0 && y <= height)) {
        throw UsageError("--at-pixel " + KFR::numberText(x) + "," + KFR::numberText(y) +
                         ": it is outside the window; give from 0,0 to " + std::to_string(width) +
                         "," + std::to_string(height) + ", or a larger --window");
    }
}

Camera cameraOf(PixelOptions const& options, Box const& box)
{
    check(options);
    if (box.isEmpty()) {
        throw UsageError("--at-pixel: there is nothing to be seen; give --entity");
    }
    ViewRow const& view = viewOf(options.m_view);
    auto const [width, height] = windowOf(options.m_window);
    return Camera::fit(box, width, height,
                       options.m_perspective ? Projection::perspective : Projection::orthographic,
                       view.m_direction, view.m_up);
}

}  // namespace vrn::orlo::app
