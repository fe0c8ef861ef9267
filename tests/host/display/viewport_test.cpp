#include "host/display/viewport.h"

#include "host/selection/displaymanager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace vrn::orlo::host::display {
namespace {

Box const kBox{{10, 20, 30}, {110, 70, 55}};

Camera cameraOn(Box const& box, Projection projection)
{
    return Camera::fit(box, 1000, 800, projection, {1, 2, -3}, {0, 0, 1});
}

TEST(Viewport, CarriesPointsBothWaysInSinglePrecision)
{
    for (Projection const projection : {Projection::orthographic, Projection::perspective}) {
        auto const viewport = KFR::make<Viewport>(cameraOn(kBox, projection));
        viewport->setModelBox(kBox);
        KFRFloat3DPoint const model{42.5F, 33.25F, 54.0F};
        KFRFloat3DPoint screen;
        KFRFloat3DPoint back;
        ASSERT_TRUE(viewport->modelToScreen(model, screen).isOk());
        ASSERT_TRUE(viewport->screenToModel(screen, back).isOk());
        EXPECT_NEAR(back.x, model.x, 1e-4);
        EXPECT_NEAR(back.y, model.y, 1e-4);
        EXPECT_NEAR(back.z, model.z, 1e-4);
        EXPECT_GT(screen.z, 0.0F);
    }
}

TEST(Viewport, WhatCannotBeCarriedOverFailsAndLeavesTheAnswer)
{
    constexpr float kMost = std::numeric_limits<float>::max();
    auto const viewport = KFR::make<Viewport>(cameraOn(kBox, Projection::perspective));
    KFRFloat3DPoint const untouched{1, 2, 3};
    KFRFloat3DPoint out = untouched;
    KFRFloat3DPoint other = untouched;
    EXPECT_FALSE(
        viewport->screenToModel({0, 0, std::numeric_limits<float>::infinity()}, out).isOk());
    EXPECT_FALSE(viewport->screenToModel({kMost, 0, kMost}, out).isOk());
    EXPECT_FALSE(viewport->screenToModel({500, 400, -1e6F}, out).isOk());
    EXPECT_FALSE(viewport->modelToScreen({-1e6F, -2e6F, 3e6F}, out).isOk()) << "behind the eye";
    EXPECT_FALSE(viewport->getModelBoundingBox(out, other).isOk());
    viewport->setModelBox(Box());
    EXPECT_FALSE(viewport->getModelBoundingBox(out, other).isOk());
    EXPECT_EQ(out, untouched);
    EXPECT_EQ(other, untouched);
}

TEST(Viewport, LinesOfSightStartBeforeWhatIsDisplayed)
{
    auto const viewport = KFR::make<Viewport>(cameraOn(kBox, Projection::orthographic));
    Box const larger{{-500, -500, -500}, {500, 500, 500}};
    auto const depthOfNearest = [&] {
        double least = std::numeric_limits<double>::infinity();
        for (unsigned i = 0; i < 8; ++i) {
            least = std::min(least, (*viewport->camera().modelToScreen(larger.corner(i)))[2]);
        }
        return least;
    };
    viewport->setModelBox(larger);
    EXPECT_GT(depthOfNearest(), 0.0);
    viewport->setCamera(cameraOn(kBox, Projection::orthographic));
    EXPECT_GT(depthOfNearest(), 0.0);
    viewport->setModelBox(kBox);
    EXPECT_LT(depthOfNearest(), 0.0) << "the near plane comes back";

    KFRFloat3DPoint min;
    KFRFloat3DPoint max;
    ASSERT_TRUE(viewport->getModelBoundingBox(min, max).isOk());
    EXPECT_EQ(min, (KFRFloat3DPoint{10, 20, 30}));
    EXPECT_EQ(max, (KFRFloat3DPoint{110, 70, 55}));
}

TEST(Viewport, TheDisplayHandsItOutOnceItIsThere)
{
    auto const display = KFR::make<selection::DisplayManager>();
    auto const viewport = KFR::make<Viewport>(cameraOn(kBox, Projection::perspective));
    KFRSmartPointer<ddm::KFRIDisplayViewportAdapter> adapter = viewport;
    EXPECT_FALSE(display->getViewportAdapter(adapter).isOk());
    EXPECT_EQ(adapter, viewport) << "a failure leaves the argument";
    adapter = KFR::NULLSP;
    display->setViewportAdapter(viewport);
    EXPECT_TRUE(display->getViewportAdapter(adapter).isOk());
    EXPECT_EQ(adapter, viewport);
}

}  // namespace
}  // namespace vrn::orlo::host::display
