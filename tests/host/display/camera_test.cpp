#include "host/display/camera.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace vrn::orlo::host::display {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Optional;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr Projection kBoth[] = {Projection::orthographic, Projection::perspective};

auto isAt(Vector const& point, double tolerance = 1e-9)
{
    return Optional(ElementsAre(DoubleNear(point[0], tolerance), DoubleNear(point[1], tolerance),
                                DoubleNear(point[2], tolerance)));
}

/// From 10 mm above the origin, with 4 mm to the near plane, in a window of 1000 x 800.
Camera fromAbove(Projection projection)
{
    Camera::View view;
    view.m_eye = {0, 0, 10};
    view.m_projection = projection;
    view.m_height = 80.0;
    view.m_fieldOfView = 90.0;
    view.m_near = 4.0;
    return {view, 1000, 800};
}

TEST(Camera, ScreenCountsFromTheTopLeftCornerAndTheNearPlane)
{
    struct Row {
        Projection m_projection;
        Vector m_screen;
        Vector m_model;
    };
    constexpr auto kFlat = Projection::orthographic;
    constexpr auto kDeep = Projection::perspective;
    // A pixel is 0.1 mm; in perspective 1/400 of the way from the eye.
    Row const rows[] = {
        {kFlat, {500, 400, 0}, {0, 0, 6}},        {kFlat, {0, 0, 0}, {-50, 40, 6}},
        {kFlat, {1000, 800, 16}, {50, -40, -10}}, {kFlat, {0, 400, -10}, {-50, 0, 16}},
        {kDeep, {500, 400, 0}, {0, 0, 6}},        {kDeep, {0, 0, 0}, {-5, 4, 6}},
        {kDeep, {1000, 800, 16}, {25, -20, -10}}, {kDeep, {900, -400, -2}, {2, 4, 8}},
    };
    for (Row const& row : rows) {
        Camera const camera = fromAbove(row.m_projection);
        EXPECT_THAT(camera.screenToModel(row.m_screen), isAt(row.m_model));
        EXPECT_THAT(camera.modelToScreen(row.m_model), isAt(row.m_screen));
    }
}

TEST(Camera, WhatIsNotBeforeTheEyeHasNoPlaceInPerspective)
{
    Camera const deep = fromAbove(Projection::perspective);
    EXPECT_EQ(deep.modelToScreen({0, 0, 10}), std::nullopt);
    EXPECT_EQ(deep.modelToScreen({1, 0, 11}), std::nullopt);
    EXPECT_EQ(deep.screenToModel({500, 400, -4}), std::nullopt);
    for (Projection const projection : kBoth) {
        EXPECT_EQ(fromAbove(projection).modelToScreen({0, kNaN, 0}), std::nullopt);
        EXPECT_EQ(fromAbove(projection).screenToModel({0, 0, kNaN}), std::nullopt);
    }
}

TEST(Camera, FitShowsAllOfABoxAndFillsTheWindow)
{
    struct Row {
        Box m_box;
        int m_width;
        int m_height;
        double m_fill;  // share of the window from its middle that the farthest corner reaches
    };
    Row const rows[] = {
        {{{10, 20, 30}, {110, 70, 55}}, 1000, 800, 0.9},
        {{{-1, -1, -900}, {1, 1, 900}}, 300, 900, 0.9},
        {{{0, 0, 5}, {7, 3, 5}}, 2000, 20, 0.9},
        {{{1e6, 1e6, 1e6}, {1e6, 1e6, 1e6}}, 640, 480, 0},
    };
    for (Row const& row : rows) {
        for (Projection const projection : kBoth) {
            Camera const camera = Camera::fit(row.m_box, row.m_width, row.m_height, projection,
                                              {1, 2, -3}, {0, 0, 1});
            double farthest = 0.0;
            for (unsigned i = 0; i < 8; ++i) {
                Vector const screen = camera.modelToScreen(row.m_box.corner(i)).value();
                farthest = std::max({farthest, std::abs(2 * screen[0] / row.m_width - 1),
                                     std::abs(2 * screen[1] / row.m_height - 1)});
                EXPECT_GT(screen[2], 0.0);
                EXPECT_THAT(camera.screenToModel(screen), isAt(row.m_box.corner(i), 1e-8));
            }
            EXPECT_NEAR(farthest, row.m_fill, 1e-6);
        }
    }
}

TEST(Camera, ALineOfSightKeepsItsPixelAndCountsDepthAlongTheAxis)
{
    for (Projection const projection : kBoth) {
        Camera const camera = Camera::fit({{10, 20, 30}, {110, 70, 55}}, 1000, 800, projection,
                                          {1, 2, -3}, {0, 1, 0});
        Ray const ray = camera.sight(37.5, 700);
        for (double const depth : {0.0, 100.0, 300000.0}) {
            Vector const point = sum(ray.m_origin, ray.m_direction, depth);
            EXPECT_THAT(camera.screenToModel({37.5, 700, depth}), isAt(point, 1e-7));
            EXPECT_THAT(camera.modelToScreen(point), isAt({37.5, 700, depth}, 1e-7));
            EXPECT_NEAR(dot(difference(point, ray.m_origin), camera.direction()), depth, 1e-7);
        }
    }
}

TEST(Camera, TheNearPlaneStaysBeforeTheBoxAndTheEye)
{
    Box const around{{-20, -20, -20}, {20, 20, 20}};
    Camera const flat = fromAbove(Projection::orthographic).withNearBefore(around);
    EXPECT_LT(flat.view().m_near, -10.0);
    Camera const deep = fromAbove(Projection::perspective).withNearBefore(around);
    EXPECT_GT(deep.view().m_near, 0.0);
    EXPECT_LT(deep.view().m_near, 0.1);
    EXPECT_EQ(fromAbove(Projection::perspective).withNearBefore(Box()).view().m_near, 4.0);
}

TEST(Camera, AViewThatShowsNothingIsRefused)
{
    struct Row {
        void (*m_spoil)(Camera::View& view);
        int m_width;
        char const* m_message;
    };
    Row const rows[] = {
        {[](auto&) {}, 0, "camera: a window of 0 x 800 has no pixels"},
        {[](auto& v) { v.m_target = v.m_eye; }, 1,
         "camera: the way from eye to target has no direction"},
        {[](auto& v) {
             v.m_up = {0, 0, 2};
         },
         1, "camera: up lies along the way from eye to target"},
        {[](auto& v) { v.m_eye[1] = kNaN; }, 1, "camera: eye and target must be finite"},
        {[](auto& v) { v.m_height = 0; }, 1, "camera: the height of the view must be above 0 mm"},
        {[](auto& v) {
             v.m_projection = Projection::perspective;
             v.m_fieldOfView = 180;
         },
         1, "camera: the field of view must be above 0 and below 180 degrees"},
        {[](auto& v) {
             v.m_projection = Projection::perspective;
             v.m_near = 0;
         },
         1, "camera: the near plane of a perspective must be before the eye"},
    };
    for (Row const& row : rows) {
        Camera::View view;
        row.m_spoil(view);
        try {
            Camera const camera(view, row.m_width, 800);
            ADD_FAILURE() << "taken, but for: " << row.m_message;
        } catch (std::invalid_argument const& error) {
            EXPECT_STREQ(error.what(), row.m_message);
        }
    }
    EXPECT_THROW((void)Camera::fit(Box(), 10, 10, Projection::orthographic, {0, 0, 1}, {0, 1, 0}),
                 std::invalid_argument);
}

}  // namespace
}  // namespace vrn::orlo::host::display
