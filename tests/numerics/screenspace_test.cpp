// Screen and model space: the viewport's points, drags on a sphere, and vectors by magnitude.

#include "platform/ddm/display3ddatamanager.h"
#include "plugins/modelingplugin/utilities/numerics/magnitudecomponent.h"
#include "plugins/modelingplugin/utilities/numerics/pluginmath.h"
#include "plugins/modelingplugin/utilities/numerics/rotationhelper.h"
#include "plugins/modelingplugin/utilities/numerics/windowsize.h"
#include "tests/support/modelfakes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using F = KFRFloat3DPoint;
using P = KFRDouble3DPoint;

constexpr char const* kDisplay = "vrn.orlo.ddm.Display3DDataManager";
constexpr int kFailure = 17;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Looks down the Z axis from a height of 8. Two pixels and four units of depth make one of length.
/// Writes its answers whether it fails or not.
struct FakeViewport final : KFRServiceObjectImpl<ddm::KFRIDisplayViewportAdapter> {
    std::function<F(F)> toModel = [](F s) {
        return F{s.x / 2, s.y / 2, 8 - s.z / 4};
    };
    std::function<F(F)> toScreen = [](F m) {
        return F{m.x * 2, m.y * 2, (8 - m.z) * 4};
    };
    int callsThatGoWell = 1000;
    std::vector<F> asked;  ///< points of the screen

    void look(std::function<F(F)> const& intoModel, std::function<F(F)> const& ontoScreen = {})
    {
        toModel = intoModel;
        toScreen = ontoScreen;
    }
    KFRResult screenToModel(F const& screen, F& model) override
    {
        asked.push_back(screen);
        model = toModel(screen);
        return answer();
    }
    KFRResult modelToScreen(F const& model, F& screen) override
    {
        screen = toScreen(model);
        return answer();
    }
    KFRResult getModelBoundingBox(F& min, F& max) override
    {
        min = {-2, 0, 1};
        max = {4, 2, 6};
        return answer();
    }
    KFRResult answer() { return callsThatGoWell-- > 0 ? KFR::ok : kFailure; }
};

struct FakeDisplay final : KFRServiceObjectImpl<silent::DisplayView> {
    HANDS_OUT(getViewportAdapter, SP<ddm::KFRIDisplayViewportAdapter>, viewport)
};

struct ViewScope : PlatformScope {
    SP<FakeViewport> viewport = KFR::make<FakeViewport>();
    SP<FakeDisplay> display = KFR::make<FakeDisplay>();

    ViewScope()
    {
        display->viewport = viewport;
        services().put(kDisplay, display);
    }
};

void expectNear(P const& found, P const& expected, double tolerance = 1e-12)
{
    EXPECT_NEAR(found.x, expected.x, tolerance);
    EXPECT_NEAR(found.y, expected.y, tolerance);
    EXPECT_NEAR(found.z, expected.z, tolerance);
}

void expectLine(Line3 const& line, P const& origin, P const& direction)
{
    EXPECT_EQ(line.origin(), origin);
    expectNear(line.direction(), direction);
}

TEST(PluginMath, HasDefinedAnswersWithoutAViewport)
{
    for (int lack = 0; lack < 3; ++lack) {
        SCOPED_TRACE(lack);
        ViewScope scope;
        scope.display->viewport.reset();
        if (lack == 1) {
            scope.services().remove(kDisplay);
        } else if (lack == 2) {
            scope.services().putStranger(kDisplay);
        }
        PluginMath math;
        F a{1, 2, 3}, b{4, 5, 6};
        int x = 7, y = 8;
        float depth = 9;
        for (KFRResult const& result :
             {math.screenPoint2ModelPoint(1, 1, 1, a), math.screenPoint2ModelRay(1, 1, a, b),
              math.modelPoint2ScreenPoint(a, x, y), math.modelPointDepth(a, depth)}) {
            EXPECT_EQ(result.getCode(), KFR::notDone);
        }
        EXPECT_TRUE(math.modelBoundingBox(a, b).isOk());
        EXPECT_EQ(std::tuple(a, b, x, y, depth), std::tuple(F{1, 2, 3}, F{4, 5, 6}, 7, 8, 9.0F));
        EXPECT_EQ(math.mousePoint(5, 5), F());
        expectLine(math.getScreenPerpendicular(3, 4), {}, {1, 0, 0});
        expectLine(math.getScreenPerpendicular(a), {1, 2, 3}, {1, 0, 0});
        EXPECT_EQ(math.getScreenParallelPlane(a).normal(), (P{1, 0, 0}));
    }
}

TEST(PluginMath, LooksFurtherForRaysThanForLines)
{
    ViewScope scope;
    scope.viewport->look([](F s) { return F{s.x + s.z / 4, s.y + s.z / 2, 5 + s.z / 2}; });
    PluginMath math;
    F origin, direction;
    EXPECT_TRUE(math.screenPoint2ModelRay(3, 4, origin, direction).isOk());
    EXPECT_EQ(origin, (F{3, 4, 5}));
    EXPECT_EQ(direction, (F{1.0F / 3, 2.0F / 3, 2.0F / 3}));
    EXPECT_EQ(scope.viewport->asked, (std::vector<F>{{3, 4, 0}, {3, 4, 300000}}));
    scope.viewport->asked.clear();
    expectLine(math.getScreenPerpendicular(3, 4), {3, 4, 5}, {1.0 / 3, 2.0 / 3, 2.0 / 3});
    EXPECT_EQ(scope.viewport->asked, (std::vector<F>{{3, 4, 0}, {3, 4, 100}}));
}

TEST(PluginMath, PutsAPlaneOfRawNormalAcrossTheSightOfAPoint)
{
    ViewScope scope;
    PluginMath math;
    expectLine(math.getScreenPerpendicular(F{1, 2, 3}), {1, 2, 3}, {0, 0, -1});
    EXPECT_EQ(math.getScreenParallelPlane({1, 2, 3}).normal(), (P{0, 0, -25}));
    EXPECT_EQ(scope.viewport->asked, std::vector<F>(2, {2, 4, 120}));
    // Subtracted in single precision.
    scope.viewport->look([](F) { return F{0, 0, 0.1F}; }, scope.viewport->toScreen);
    EXPECT_EQ(math.getScreenParallelPlane({0, 0, 100}).normal().z, double{0.1F - 100.0F});
}

TEST(PluginMath, PassesStatusesOnButBuildsLinesAndPlanesWithoutThem)
{
    ViewScope scope;
    int& callsThatGoWell = scope.viewport->callsThatGoWell;
    PluginMath math;
    F a{1, 2, 3}, b{4, 5, 6};
    for (int const good : {0, 1}) {
        callsThatGoWell = good;
        EXPECT_EQ(math.screenPoint2ModelRay(1, 1, a, b).getCode(), kFailure);
        EXPECT_EQ(scope.viewport->asked.size(), good == 0 ? 1U : 3U);
        EXPECT_EQ(a, (F{1, 2, 3}));
        EXPECT_EQ(b, (F{4, 5, 6}));
    }
    callsThatGoWell = 0;
    int x = 0, y = 0;
    float depth = 0;
    EXPECT_EQ(math.modelPoint2ScreenPoint(b, x, y).getCode(), kFailure);
    EXPECT_EQ(math.modelPointDepth(b, depth).getCode(), kFailure);
    EXPECT_EQ(std::tuple(x, y, depth), std::tuple(8, 10, 8.0F));
    expectLine(math.getScreenPerpendicular(6, 8), {3, 4, 8}, {0, 0, -1});
    EXPECT_EQ(math.getScreenParallelPlane(a).normal(), (P{0, 0, -25}));
    EXPECT_EQ(math.mousePoint(6, 10), (F{3, 5, 3.5F}));  // the middle of the box
    EXPECT_TRUE(math.modelBoundingBox(a, b).isOk());
    EXPECT_EQ(b, (F{4, 2, 6}));
    EXPECT_EQ(math.screenPoint2ModelPoint(2, 4, 4, a).getCode(), kFailure);
    EXPECT_EQ(a, (F{1, 2, 7}));
}

TEST(PluginMath, TruncatesPixelsTowardsZeroAndTakesWhatNoIntegerHoldsForTheLeast)
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    struct {
        float screen;
        int pixel;
    } const rows[] = {{2.9F, 2},      {-2.9F, -2},        {-0.5F, 0},
                      {3e9F, kLeast}, {-3e9F, kLeast},    {2147483520.0F, 2147483520},
                      {NAN, kLeast},  {INFINITY, kLeast}, {2147483648.0F, kLeast}};
    ViewScope scope;
    for (auto const& row : rows) {
        scope.viewport->look({}, [&](F) { return F{row.screen, row.screen, 0}; });
        int x = 1, y = 1;
        EXPECT_TRUE(PluginMath().modelPoint2ScreenPoint({}, x, y).isOk());
        EXPECT_EQ(x, row.pixel) << row.screen;
        EXPECT_EQ(y, row.pixel) << row.screen;
    }
}

TEST(PluginMath, TakesParallelForWhatItsArcCosineGives)
{
    // clang-format off
    struct {
        P a, b;
        bool isParallel;
    } const rows[] = {
        {{1, 0, 0}, {2, 0, 0}, true},
        {{1, 0, 0}, {-1, 0, 0}, true},
        {{1, 2, 3}, {1, 2, 3}, true},
        {{1, 0, 0}, {1, 1e-8, 0}, true},  // a cosine of 1
        {{1, 0, 0}, {1, 3e-8, 0}, false},
        {{1, 1, 0}, {1, 1, 0}, false},  // an angle of 1.5e-8
        {{1, 1, 1}, {1, 1, 1}, false},  // a cosine above 1
        {{1, 0, 0}, {0, 1, 0}, false},
        {{0, 0, 0}, {1, 0, 0}, false},
        {{1, 0, 0}, {0, 0, 0}, false},
        {{kNaN, 0, 0}, {1, 0, 0}, false},
    };
    // clang-format on
    for (auto const& row : rows) {
        EXPECT_EQ(PluginMath::isParallel(row.a, row.b), row.isParallel) << &row - rows;
    }
}

TEST(RotationHelper, FollowsADragRoundTheSphereUpToItsGreatestAngle)
{
    ViewScope scope;
    RotationHelper helper;
    EXPECT_EQ(helper.targetDirection(), P());
    helper.setCenter({1, 2, 3});
    constexpr double kCap = double{3.1F};
    struct {
        double radius;
        int pixels;
        double angle;
    } const rows[] = {{3, 2, double{1.0F / 3}},  {1, 4, 2}, {2, 40, kCap}, {0, 2, kCap}, {1, -4, 2},
                      {1000, 12, double{0.006F}}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.pixels);
        helper.setRadius(row.radius);
        scope.viewport->asked.clear();
        P const point = helper.dragTo(2 + row.pixels, 4);
        double const way = row.pixels / 2.0;
        double const side = row.pixels < 0 ? -1 : 1;
        expectNear(point, {1 + way, 2, 3 + std::abs(way) / std::tan(row.angle)}, 1e-9);
        expectNear(helper.targetDirection(), {-side * std::sin(row.angle), 0, -std::cos(row.angle)},
                   1e-9);
        EXPECT_EQ(scope.viewport->asked.front().z, 20);  // the centre's depth
    }
}

TEST(RotationHelper, PutsTheNearPoleAlongTheModelsZAxisWhateverTheView)
{
    ViewScope scope;
    RotationHelper helper;
    helper.setRadius(4);
    helper.setCenter({1, 2, 3});
    expectNear(helper.dragTo(2, 4), {1, 2, -1});
    EXPECT_TRUE(std::isnan(helper.targetDirection().x));  // nothing to turn about
    helper.setRadius(1000);
    expectNear(helper.dragTo(10, 4), {5, 2, -997});  // an angle of 0.004
    helper.setRadius(4);
    // Along X the shifted plane is the plane of the centre.
    scope.viewport->look(
        [](F s) {
            return F{s.z, s.x, s.y};
        },
        [](F m) {
            return F{m.y, m.z, m.x};
        });
    helper.setCenter({1, 2, 3});
    expectNear(helper.dragTo(2, 3), {1, 2, 3});
    // Obliquely the sight moves on: here by one along X for one along Z.
    scope.viewport->look(
        [](F s) {
            return F{s.x + s.z, s.y, s.z - s.x};
        },
        [](F m) {
            return F{(m.x - m.z) / 2, m.y, (m.x + m.z) / 2};
        });
    helper.setCenter({1, 2, 3});
    expectNear(helper.dragTo(-1, 2), {-1, 2, 1});
}

TEST(RotationHelper, MeasuresFromTheOriginAlongXWithoutADisplay)
{
    PlatformScope scope;
    RotationHelper helper;
    helper.setCenter({3, 4, 0});
    helper.setRadius(5);
    expectNear(helper.dragTo(100, 100), {3 - 4 / std::tan(1), 0, 0}, 1e-9);
    expectNear(helper.targetDirection(), {std::cos(1), std::sin(1), 0}, 1e-9);
}

TEST(MagnitudeComponent, KeepsItsOrientationForWhatLiesAlongX)
{
    double const turn = 0.5;
    double const missing = std::sin(3.14159265);  // what pi to eight decimals leaves
    struct {
        P set;
        double turnBefore;
        P got;
    } const rows[] = {
        {{1, 2, 3}, 0, {1, 2, 3}},
        {{0, 0, -5}, turn, {0, 0, -5}},
        {{2, 0, 0}, 0, {2, 0, 0}},
        {{2, 0, 0}, turn, {2 * std::cos(turn), 2 * std::sin(turn), 0}},
        {{1, 9e-7, 0}, turn, {std::cos(turn), std::sin(turn), 0}},
        {{1, 2e-6, 0}, turn, {1, 2e-6, 0}},
        {{0, 1e-6, 0}, turn, {1e-6 * std::cos(turn), 1e-6 * std::sin(turn), 0}},
        {{0, 0, 0}, turn, {0, 0, 0}},
        {{-2, 0, 0}, turn, {-2, 2 * missing, 0}},
        {{-1, 1.7e-4, 0}, turn, {-std::hypot(1, 1.7e-4), missing, 0}},
        {{-1, 1.8e-4, 0}, turn, {-1, 1.8e-4, 0}},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(&row - rows);
        MagnitudeComponent vector;
        EXPECT_EQ(vector.getMagnitude(), 1.0);
        vector.setEulerAngle(row.turnBefore, 0, 0);
        vector.setComponent(row.set.x, row.set.y, row.set.z);
        P got{kNaN, kNaN, kNaN};
        vector.getComponent(got.x, got.y, got.z);
        EXPECT_DOUBLE_EQ(vector.getMagnitude(), std::hypot(row.set.x, row.set.y, row.set.z));
        expectNear(got, row.got, 1e-10);
    }
}

TEST(MagnitudeComponent, ChangesMagnitudeAndAnglesApart)
{
    MagnitudeComponent vector;
    vector.setMagnitude(-3);
    vector.setEulerAngle(0.5, 0.25, 0.125);
    EXPECT_EQ(vector.getMagnitude(), -3);
    vector.setMagnitude(7);
    P angles;
    vector.getEulerAngle(angles.x, angles.y, angles.z);
    expectNear(angles, {0.5, 0.25, 0.125});
}

TEST(WindowSize, IsOneForTheProcess)
{
    int width = -1, height = -1;
    WindowSize::getWindowSize(width, height);
    EXPECT_EQ(std::pair(width, height), std::pair(0, 0));
    WindowSize::setWindowSize(1920, 1080);
    WindowSize::getWindowSize(width, height);
    EXPECT_EQ(std::pair(width, height), std::pair(1920, 1080));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
