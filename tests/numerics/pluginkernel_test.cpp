// The plug-in layer of the kernel, where it differs from the layer below.

#include "plugins/modelingplugin/utilities/numerics/boundingbox.h"
#include "plugins/modelingplugin/utilities/numerics/matrix33.h"
#include "plugins/modelingplugin/utilities/numerics/plane3.h"
#include "plugins/modelingplugin/utilities/numerics/transform3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace vrn::orlo::plugin::modeling {
namespace {

using P = KFRDouble3DPoint;
using F = KFRFloat3DPoint;

constexpr double kPi = std::numbers::pi;

static_assert(sizeof(Matrix4) == 128 && !std::is_polymorphic_v<Matrix4>);

TEST(Matrix4, TakesAtMostSixteenElementsOverTheIdentity)
{
    KFRSequence<double> twenty;
    for (int i = 0; i < 20; ++i) {
        twenty.append(100.0 + i);
    }
    EXPECT_EQ(Matrix4(twenty)[15], 115.0);
    Matrix4 const three(KFRSequence<float>{7.0F, 8.0F, 9.0F});
    EXPECT_EQ(three[0], 7.0);
    EXPECT_EQ(three[2], 9.0);
    EXPECT_EQ(three[5], 1.0);
    KFRSequence<double> out{1.0};
    EXPECT_TRUE(three.sequence(out));
    EXPECT_EQ(out.size(), 16U);
    EXPECT_EQ(Matrix4(out), three);
}

TEST(Matrix33, HasItsAxesInColumnsAndItsWordsAsTheyStand)
{
    Matrix33 m(P{1, 2, 3}, P{4, 5, 6}, P{7, 8, 10});
    EXPECT_EQ(m.matrix(), (KFRDoubleMatrix33{{1, 4, 7, 2, 5, 8, 3, 6, 10}}));
    EXPECT_EQ(m.y(), (P{4, 5, 6}));
    m.z(P{0, 0, 1});
    EXPECT_EQ(m.matrix().m[8], 1.0);
    EXPECT_EQ(m.matrix().m[2], 0.0);
    m.transposeSelf();
    EXPECT_EQ(m.x(), (P{1, 4, 0}));
}

TEST(Matrix33, InverseOfASingularMatrixIsTheIdentity)
{
    Matrix33 const turn(P{0, 1, 0}, P{-1, 0, 0}, P{0, 0, 1});
    EXPECT_TRUE(isUnitMatrix(Matrix33::getRotateMatrix(turn, turn).matrix()));
    EXPECT_TRUE(isUnitMatrix(Matrix33().inverse().matrix()));
    EXPECT_EQ(Matrix33::getRotateMatrix(Matrix33(), turn), turn);
}

TEST(MatrixComparison, IsStrict)
{
    KFRDoubleMatrix33 const identity{{1, 0, 0, 0, 1, 0, 0, 0, 1}};
    EXPECT_FALSE(isSameMatrix(identity, identity, 0.0));
    KFRDoubleMatrix33 off = identity;
    off.m[1] = 5e-9;
    EXPECT_FALSE(isUnitMatrix(off));
    off.m[1] = 4.9e-9;
    EXPECT_TRUE(isUnitMatrix(off));
}

TEST(Line3, TakesADirectionWhereTheBaseTakesAPoint)
{
    Line3 const line(P{1, 0, 0}, P{0, 4, 0});
    EXPECT_EQ(line.direction(), (P{0, 1, 0}));
    EXPECT_EQ(line.at(2.0), (P{1, 2, 0}));
    P foot;
    EXPECT_EQ(line.distance(F{3.0F, 5.0F, 0.0F}, foot), 2.0);
    EXPECT_EQ(foot, (P{1, 5, 0}));
    // In single precision the difference of these is nothing; in double precision it is 1.
    EXPECT_EQ(Line3::fromPoints(F{16777216.0F, 0, 0}, F{16777216.0F + 1.0F, 0, 0}).direction(),
              P{});
}

TEST(Plane3, WritesTheLineEvenWhenThereIsNone)
{
    Line3 line(P{1, 1, 1}, P{0, 0, 1});
    EXPECT_EQ(Plane3::XOY().intersection(Plane3(P{0, 0, 2}, P{0, 0, 5}), line), -1);
    EXPECT_EQ(line.origin(), P{});
    EXPECT_EQ(line.direction(), P{});
    EXPECT_EQ(Plane3::XOZ().normal(), (P{0, 1, 0}));
    EXPECT_EQ(Plane3::YOZ().normal(), (P{1, 0, 0}));
}

TEST(Transform3, ReflectsInThePointForOppositeVectors)
{
    Matrix4 const m = Transform3::rotateMatrix(P{0, 0, 2}, P{0, 0, -1});
    EXPECT_EQ(Transform3::transformPoint(m, P{1, 2, 3}), (P{-1, -2, -3}));
    EXPECT_EQ(Transform3::rotateMatrix(P{0, 0, 2}, P{0, 0, 3}), Matrix4());
    P const turned = Transform3::transformVector(Transform3::rotateMatrix(P{-1, 0, 0}), P{1, 0, 0});
    EXPECT_NEAR(turned.x, -1.0, 1e-15);
    P const upright = Transform3::transformVector(Transform3::rotateMatrix(P{0, 0, 7}), P{1, 0, 0});
    EXPECT_NEAR(upright.z, 1.0, 1e-15);
    EXPECT_NEAR(Transform3::rotateMatrix(P{-3, 0, 0})[5], 1.0, 1e-15);  // about Y: Y stays
}

TEST(Transform3, TranslatesAllThatIsNotBelowItsOwnTolerance)
{
    EXPECT_EQ(Transform3::translateMatrix(P{1, 0, 0}, P{1, 4e-9, 0}), Matrix4());
    Matrix4 const between = Transform3::translateMatrix(P{}, P{0, 1e-7, 0});
    EXPECT_NEAR(between[7], 1e-7, 1e-20);
    EXPECT_NEAR(Transform3::translateMatrix(P{1, 1, 1}, P{1, 1, 4})[11], 3.0, 1e-15);
}

TEST(Transform3, NormalisesWhatTheLowerLayerTakesForNothing)
{
    EXPECT_EQ(Transform3::transformVector(Matrix4(), P{1e-7, 0, 0}), (P{1, 0, 0}));
    EXPECT_EQ(Transform3::transformVector(Matrix4(), P{4e-9, 0, 0}), P{});
    EXPECT_EQ(X3DSTransform::transformVector(X3DVector(1e-7, 0, 0), XMatrix4X4()), X3DVector());
}

TEST(Transform3, RotatesAboutALineGivenByAngleDirectionOrigin)
{
    Matrix4 const m = Transform3::rotationAbout(kPi / 2, P{0, 0, 3}, P{1, 0, 0});
    P const image = Transform3::transformPoint(m, P{2, 0, 0});
    EXPECT_NEAR(image.x, 1.0, 1e-15);
    EXPECT_NEAR(image.y, 1.0, 1e-15);
    EXPECT_EQ(Transform3::rotateMatrix(0.1F, 0.2F, 0.3F),
              Matrix4(X3DSTransform::rotate(static_cast<double>(0.1F), static_cast<double>(0.2F),
                                            static_cast<double>(0.3F))));
    EXPECT_EQ(Transform3::scaleMatrix(3.0)[10], 3.0);
}

TEST(BoundingBox, StartsInvertedAndGrows)
{
    BoundingBox const empty;
    BoundingBox const box(P{0, 0, 0}, P{1, 2, 3});
    EXPECT_FALSE(empty.isValid());
    EXPECT_FALSE(empty.inBoundingBox(P{}));
    EXPECT_EQ(empty + box, box);
    EXPECT_EQ(empty.minPoint().x, 1.7976931348623157e308);
    EXPECT_EQ((box + BoundingBox(F{-1, 5, 0}, F{0, 6, 1})), BoundingBox(P{-1, 0, 0}, P{1, 6, 3}));
}

TEST(BoundingBox, TakesTheOthersLowZUnlessItIsInvertedItself)
{
    BoundingBox const high(P{0, 0, 5}, P{1, 1, 6});
    BoundingBox const low(P{0, 0, 0}, P{1, 1, 1});
    EXPECT_EQ(high.intersection(low).minPoint().z, 0.0);
    EXPECT_EQ(high.intersection(low).maxPoint().z, 1.0);
    BoundingBox const inverted(P{0, 0, 4}, P{1, 1, 2});
    EXPECT_EQ(inverted.intersection(low).minPoint().z, 4.0);
    EXPECT_EQ(BoundingBox(P{0, 0, 0}, P{5, 5, 5}).intersection(low), low);
}

TEST(BoundingBox, CountsItsToleranceAsInsideButNotMore)
{
    BoundingBox const box(P{0, 0, 0}, P{1, 1, 0});
    EXPECT_TRUE(box.isValid());
    EXPECT_TRUE(box.inBoundingBox(P{1 + 1e-9, 0.5, 0}));
    EXPECT_FALSE(box.inBoundingBox(P{1 + 1e-8, 0.5, 0}));
    EXPECT_FALSE(box.inBoundingBox(P{0.5, 0.5, 5e-9}));
    EXPECT_TRUE(box.inBoundingBox(P{0.5, 0.5, -4.9e-9}));
    EXPECT_TRUE(BoundingBox(P{0, 0, 4e-9}, P{1, 1, 0}).isValid());
    EXPECT_FALSE(BoundingBox(P{0, 0, 5e-9}, P{1, 1, 0}).isValid());
    BoundingBox grown = box;
    grown.inflate(1.0, 2.0);
    EXPECT_EQ(grown, BoundingBox(P{-1, -1, -1}, P{3, 3, 2}));
    grown.deflate(1.0, 2.0);
    EXPECT_EQ(grown, box);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
