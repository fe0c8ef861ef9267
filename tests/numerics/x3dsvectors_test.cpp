#include "plugins/modelingplugin/utilities/numerics/plugintolerance.h"
#include "plugins/modelingplugin/utilities/numerics/x3dsline.h"
#include "plugins/modelingplugin/utilities/numerics/x3dsplane.h"
#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace vrn::orlo::plugin::modeling {
namespace {

constexpr double kPi = std::numbers::pi;
static_assert(kAntiParallelTolerance == 0.00017453292519943296);
static_assert(kSingularPivot == static_cast<double>(1e-4F));
X3DVector const kX(1.0, 0.0, 0.0);
X3DVector const kY(0.0, 1.0, 0.0);
X3DVector const kZ(0.0, 0.0, 1.0);
X3DVector const kZero;

void expectNear(X3DSPoint const& actual, X3DSPoint const& expected, double tolerance = 1e-12)
{
    EXPECT_NEAR(actual.distance(expected), 0.0, tolerance)
        << actual.x << ' ' << actual.y << ' ' << actual.z;
}

// clang-format off
struct {
    char const* name;
    X3DVector vector;
    int valid;
    bool hasUnit;
} const kSmallVectorRows[] = {
    {"Tiny",            {1e-7, 0.0, 0.0},    0, false},
    {"Small",           {1e-5, 0.0, 0.0},    1, true},
    {"AtTheTolerance",  {1e-6, 0.0, 0.0},    1, false},
    {"NegativeAtIt",    {0.0, -1e-6, 0.0},   1, false},
    {"LongByThree",     {9e-7, 9e-7, 9e-7},  0, true},
    {"Zero",            {0.0, 0.0, 0.0},     0, false}};
// clang-format on

TEST(SmallVector, IsJudgedByComponentsAndByLengthApart)
{
    for (auto const& row : kSmallVectorRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.vector.isValid(), row.valid);
        double const length = row.vector.unit().mod();
        EXPECT_NEAR(length, row.hasUnit ? 1.0 : 0.0, 1e-15);
    }
}

TEST(X3DVector, UnsignedAngleIsZeroForNothingAndClamped)
{
    EXPECT_EQ(kX.angle(kZero), 0.0);
    EXPECT_EQ(X3DVector(9e-7, 9e-7, 9e-7).angle(kX), 0.0);
    EXPECT_DOUBLE_EQ(kX.angle(X3DVector(-3.0, 0.0, 0.0)), kPi);
    X3DVector const odd(0.1, 0.2, 0.3);  // its cosine with itself rounds above 1
    EXPECT_FALSE(std::isnan(odd.angle(odd)));
}

TEST(X3DVector, SignedAngleLooksAtTheCrossProductAsItIs)
{
    EXPECT_DOUBLE_EQ(kX.angle(kY, kZ), kPi / 2);
    EXPECT_DOUBLE_EQ(kY.angle(kX, kZ), -kPi / 2);
    EXPECT_DOUBLE_EQ(kX.angle(kY, X3DVector(1.0, 0.0, 0.0)), -kPi / 2);  // at a right angle to c
    EXPECT_DOUBLE_EQ(kX.angle(X3DVector(-2.0, 0.0, 0.0), kZ), kPi);
    EXPECT_EQ(kX.angle(X3DVector(2.0, 0.0, 0.0), kZ), 0.0);
    EXPECT_EQ(X3DVector(5e-4, 0.0, 0.0).angle(X3DVector(0.0, 5e-4, 0.0), kZ), 0.0);
    EXPECT_EQ(kX.angle(kY, kZero), 0.0);
}

TEST(X3DSLine, OfTwoPointsAndOfAPointAndADirectionDifferAndMeetInDegrees)
{
    X3DSPoint const p(1.0, 0.0, 0.0);
    EXPECT_EQ(X3DSLine(p, X3DSPoint(1.0, 2.0, 0.0)).direction(), kY);
    EXPECT_EQ(X3DSLine(p, X3DVector(5.0, 0.0, 0.0)).direction(), kX);
    EXPECT_EQ(X3DSLine(p, p).direction(), kZero);
    EXPECT_TRUE(std::isnan(X3DSLine(p, p).distance(X3DSPoint())));
    X3DSLine const x(p, kX);
    EXPECT_NEAR(x.angle(X3DSLine(p, X3DVector(-1.0, 1.0, 0.0))), 45.0, 1e-12);  // acute
    EXPECT_TRUE(std::isnan(x.angle(X3DSLine())));
}

TEST(X3DSLine, DistanceOfItsOwnOriginIsNaNUnlessAFootIsAskedFor)
{
    X3DSLine const line(X3DSPoint(1.0, 2.0, 3.0), kX);
    X3DSPoint foot;
    EXPECT_TRUE(std::isnan(line.distance(line.origin())));
    EXPECT_EQ(line.distance(line.origin(), foot), 0.0);
    EXPECT_TRUE(std::isnan(line.distance(line)));
    EXPECT_NEAR(line.distance(X3DSPoint(5.0, 2.0, 7.0)), 4.0, 1e-12);
    EXPECT_EQ(line.distance(X3DSPoint(5.0, 2.0, 7.0), foot), 4.0);
    expectNear(foot, X3DSPoint(5.0, 2.0, 3.0));
}

TEST(X3DSLine, IntersectionIsThePointOfThisLine)
{
    X3DSLine const x(X3DSPoint(), kX);
    X3DSLine const above(X3DSPoint(4.0, 1.0, 3.0), kY);
    X3DSPoint point;
    EXPECT_DOUBLE_EQ(x.intersection(above, point), 3.0);
    expectNear(point, X3DSPoint(4.0, 0.0, 0.0));
    X3DSLine const parallel(X3DSPoint(1.0, 0.0, 2.0), kX);
    EXPECT_NEAR(x.intersection(parallel, point), 2.0, 1e-12);
    expectNear(point, X3DSPoint());
}

TEST(X3DSPlane, MeetsALineByValuesThatGrowWithItsNormal)
{
    X3DSPoint point(9.0, 9.0, 9.0);
    X3DSPlane const floor(kZ, X3DSPoint());
    EXPECT_EQ(floor.intersection(X3DSLine(X3DSPoint(1.0, 2.0, 5.0), kZ), point), 0);
    expectNear(point, X3DSPoint(1.0, 2.0, 0.0));
    EXPECT_EQ(floor.intersection(X3DSLine(X3DSPoint(1.0, 2.0, 5.0), kX), point), -1);
    expectNear(point, X3DSPoint(1.0, 2.0, 0.0));
    EXPECT_EQ(floor.intersection(X3DSLine(X3DSPoint(3.0, 2.0, 0.0), kX), point), 1);
    expectNear(point, X3DSPoint(3.0, 2.0, 0.0));
    X3DSPlane const faint(X3DVector(0.0, 0.0, 1e-7), X3DSPoint());
    EXPECT_EQ(faint.intersection(X3DSLine(X3DSPoint(0.0, 0.0, 1.0), kZ), point), 1);
}

TEST(X3DSPlane, DistanceIsUnsignedAndKeepsTheFootOfAPlaneWithoutANormal)
{
    X3DSPoint foot;
    EXPECT_DOUBLE_EQ(X3DSPlane(X3DVector(0.0, 0.0, 7.0), X3DSPoint(0.0, 0.0, 1.0))
                         .distance(X3DSPoint(2.0, 3.0, -4.0), foot),
                     5.0);
    expectNear(foot, X3DSPoint(2.0, 3.0, 1.0));
    EXPECT_DOUBLE_EQ(X3DSPlane().distance(X3DSPoint(2.0, 3.0, 0.0), foot), 0.0);
}

// clang-format off
struct {
    char const* name;
    X3DSPlane first;
    X3DSPlane second;
} const kCrossingPlanesRows[] = {
    {"BothMissTheOrigin",   {kZ, {0.0, 0.0, 2.0}},  {kX, {3.0, 0.0, 0.0}}},
    {"OnlyTheFirstMisses",  {kZ, {0.0, 0.0, 2.0}},  {kX, {}}},
    {"OnlyTheSecondMisses", {{1.0, 1.0, 0.0}, {}},  {kX, {3.0, 0.0, 0.0}}},
    {"BothThroughIt",       {kZ, {}},               {{1.0, 0.0, 1.0}, {}}}};
// clang-format on

TEST(CrossingPlanes, ShareALineThatLiesInBoth)
{
    for (auto const& row : kCrossingPlanesRows) {
        SCOPED_TRACE(row.name);
        auto const& [name, first, second] = row;
        X3DSLine line;
        ASSERT_EQ(first.intersection(second, line), 0);
        for (double const t : {-3.0, 0.0, 10.0}) {
            X3DSPoint foot;
            EXPECT_NEAR(first.distance(line.at(t), foot), 0.0, 1e-12);
            EXPECT_NEAR(second.distance(line.at(t), foot), 0.0, 1e-12);
        }
        X3DVector const cross = first.normal().unit().crossProduct(second.normal().unit()).unit();
        EXPECT_NEAR(line.direction().dotProduct(cross), 1.0, 1e-12);
    }
}

TEST(X3DSPlane, RefusesWhatIsParallelCollinearOrTooSmall)
{
    X3DSLine line(X3DSPoint(1.0, 1.0, 1.0), kY);
    X3DSLine const kept = line;
    EXPECT_EQ(X3DSPlane(kZ, {}).intersection(X3DSPlane(kZ, X3DSPoint(0.0, 0.0, 1.0)), line), -1);
    EXPECT_EQ(X3DSPlane(kZ, {}).projection(X3DSLine(X3DSPoint(), kZ), line), -1);
    EXPECT_EQ(line, kept);
    ASSERT_EQ(X3DSPlane(kZ, {}).projection(
                  X3DSLine(X3DSPoint(1.0, 2.0, 3.0), X3DVector(1.0, 0.0, 1.0)), line),
              0);
    expectNear(line.origin(), X3DSPoint(1.0, 2.0, 0.0));
    EXPECT_NEAR(line.direction().dotProduct(kX), 1.0, 1e-15);
    X3DSPlane plane(kX, X3DSPoint(4.0, 0.0, 0.0));
    X3DSPlane const before = plane;
    EXPECT_EQ(X3DSPlane::from3Points(plane, {}, {1.0, 0.0, 0.0}, {2.0, 0.0, 0.0}), -1);
    EXPECT_EQ(X3DSPlane::from3Points(plane, {}, {5e-4, 0.0, 0.0}, {0.0, 5e-4, 0.0}), -1);
    EXPECT_EQ(plane, before);
    EXPECT_EQ(X3DSPlane::from3Points(plane, {0.0, 0.0, 1.0}, {2.0, 0.0, 1.0}, {0.0, 3.0, 1.0}), 0);
    EXPECT_EQ(plane.normal(), X3DVector(0.0, 0.0, 6.0));
    EXPECT_EQ(plane.d, -6.0);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
