#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace vrn::orlo::plugin::modeling {
namespace {

using T = X3DSTransform;

constexpr double kPi = std::numbers::pi;
X3DVector const kX(1.0, 0.0, 0.0);

double greatestDifference(XMatrix4X4 const& a, XMatrix4X4 const& b)
{
    double greatest = 0.0;
    for (int i = 0; i < 16; ++i) {
        greatest = std::max(greatest, std::abs(a[i] - b[i]));
    }
    return greatest;
}

/// A rotation about one axis, written out: 0 is X, 1 is Y, 2 is Z.
XMatrix4X4 plainRotation(int axis, double angle)
{
    XMatrix4X4 m;
    int const i = (axis + 1) % 3;
    int const j = (axis + 2) % 3;
    m.at(i, i) = m.at(j, j) = std::cos(angle);
    m.at(i, j) = -std::sin(angle);
    m.at(j, i) = std::sin(angle);
    return m;
}

class RandomCases : public ::testing::Test {
protected:
    double between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    X3DVector vector() { return {between(-1, 1), between(-1, 1), between(-1, 1)}; }

    std::mt19937 m_random{20201};
};

TEST_F(RandomCases, AnglesComposeAsZTimesYTimesX)
{
    for (int i = 0; i < 500; ++i) {
        double const a = between(-4, 4);
        double const b = between(-4, 4);
        double const c = between(-4, 4);
        XMatrix4X4 const expected =
            plainRotation(2, c).product(plainRotation(1, b)).product(plainRotation(0, a));
        ASSERT_LT(greatestDifference(T::rotate(a, b, c), expected), 1e-14);
    }
}

TEST_F(RandomCases, EulerAnglesAreTheExtrinsicZXZAndComeBack)
{
    for (int i = 0; i < 2000; ++i) {
        double const phi = between(0.0, 2 * kPi);
        double const theta = between(0.01, kPi - 0.01);
        double const psi = between(0.0, 2 * kPi);
        XMatrix4X4 const m = T::rotateEuler(phi, theta, psi);
        XMatrix4X4 const expected =
            plainRotation(2, phi).product(plainRotation(0, theta)).product(plainRotation(2, psi));
        ASSERT_LT(greatestDifference(m, expected), 1e-12);
        double backPhi = 0.0;
        double backTheta = 0.0;
        double backPsi = 0.0;
        T::getEuler(m, backPhi, backTheta, backPsi);
        ASSERT_LT(greatestDifference(T::rotateEuler(backPhi, backTheta, backPsi), m), 1e-7);
        ASSERT_GE(backPhi, 0.0);
        ASSERT_GE(backPsi, 0.0);
    }
}

TEST(EulerAngles, OfAPlainTurnAboutZAreAllInPhi)
{
    double phi = 9.0;
    double theta = 9.0;
    double psi = 9.0;
    T::getEuler(plainRotation(2, -0.5), phi, theta, psi);
    EXPECT_NEAR(phi, 2 * kPi - 0.5, 1e-12);
    EXPECT_EQ(theta, 0.0);
    EXPECT_EQ(psi, 0.0);
}

TEST_F(RandomCases, RotationTakesOneDirectionToTheOther)
{
    for (int i = 0; i < 2000; ++i) {
        X3DVector const a = vector();
        X3DVector const b = vector();
        X3DVector const image = T::transformVector(a, T::rotate(a, b));
        ASSERT_GT(image.dotProduct(b.unit()), 1.0 - 1e-9);
    }
}

TEST(Rotation, OfOppositeVectorsIsTheHalfTurnAboutXWhateverTheyAre)
{
    XMatrix4X4 const halfTurn = T::rotateEuler(0.0, kPi, 0.0);
    EXPECT_EQ(T::rotate(kX, X3DVector(-2.0, 0.0, 0.0)), halfTurn);
    EXPECT_EQ(T::rotate(X3DVector(0.0, 0.0, 1.0), X3DVector(0.0, 0.0, -1.0)), halfTurn);
    EXPECT_GT(T::transformVector(kX, halfTurn).x, 0.99);  // X stays X
    EXPECT_EQ(T::rotate(kX, X3DVector(3.0, 0.0, 0.0)), XMatrix4X4());
}

TEST(Rotation, AboutAPointKeepsThePointAndTurnsRightHanded)
{
    X3DSPoint const p(1.0, 2.0, 3.0);
    XMatrix4X4 const m = T::rotate(p, X3DVector(0.0, 0.0, 5.0), kPi / 2);
    EXPECT_NEAR(T::transformPoint(p, m).distance(p), 0.0, 1e-14);
    EXPECT_NEAR(T::transformPoint({2.0, 2.0, 3.0}, m).distance({1.0, 3.0, 3.0}), 0.0, 1e-14);
    EXPECT_TRUE(std::isnan(T::rotate(p, X3DVector(), 1.0)[0]));
    EXPECT_TRUE(std::isnan(T::translate(X3DVector(), 1.0)[3]));
}

TEST(Transformation, ScalesAboutAPointAndMakesUnitVectorsAndIgnoresTheFourthRow)
{
    XMatrix4X4 m = T::scale({1.0, 2.0, 3.0}, 2.0);
    m[12] = m[13] = m[15] = 7.0;
    EXPECT_EQ(T::transformPoint({1.0, 2.0, 3.0}, m), X3DSPoint(1.0, 2.0, 3.0));
    EXPECT_EQ(T::transformPoint({2.0, 2.0, 3.0}, m), X3DSPoint(3.0, 2.0, 3.0));
    EXPECT_EQ(T::transformVector({0.0, 0.0, 9.0}, T::translate(5.0, 5.0, 5.0)),
              X3DVector(0.0, 0.0, 1.0));
    EXPECT_EQ(T::transformVector({1e-6, 0.0, 0.0}, XMatrix4X4()), X3DVector());
}

TEST_F(RandomCases, InverseTimesMatrixIsTheIdentityAndTheDeterminantMultiplies)
{
    for (int i = 0; i < 3000; ++i) {
        XMatrix4X4 m;
        XMatrix4X4 other;
        for (int k = 0; k < 16; ++k) {
            m[k] = between(-1, 1);
            other[k] = between(-1, 1);
        }
        XMatrix4X4 inverse;
        double const both = T::inverse(m.product(other), inverse);
        double const second = T::inverse(other, inverse);
        double const determinant = T::inverse(m, inverse);
        if (both * second * determinant == 0.0) {
            continue;
        }
        ASSERT_NEAR(both, determinant * second, 1e-12);
        ASSERT_LT(greatestDifference(m.product(inverse), XMatrix4X4()),
                  1e-14 / std::abs(determinant) * 100);
    }
}

TEST(Inverse, RefusesAPivotBelowTheLimitAndLeavesTheResultAlone)
{
    auto const diagonal = [](double value) {
        XMatrix4X4 m;
        m[0] = m[5] = m[10] = value;
        return m;
    };
    XMatrix4X4 const mark = T::translate(1.0, 2.0, 3.0);
    XMatrix4X4 out = mark;
    EXPECT_EQ(T::inverse(diagonal(9.9e-5), out), 0.0);
    EXPECT_EQ(T::inverse(diagonal(std::nextafter(kSingularPivot, 0.0)), out), 0.0);
    EXPECT_EQ(out, mark);
    EXPECT_GT(T::inverse(diagonal(kSingularPivot), out), 0.0);
    EXPECT_NEAR(T::inverse(diagonal(1e-4), out), 1e-12, 1e-25);
    XMatrix4X4 zeroRow;
    zeroRow[5] = 0.0;
    out = mark;
    EXPECT_EQ(T::inverse(zeroRow, out), 0.0);
    EXPECT_EQ(out, mark);
}

TEST(Inverse, CountsASwapAsAChangeOfSignAndMayWriteIntoItsArgument)
{
    XMatrix4X4 m;
    m[0] = m[5] = 0.0;
    m[1] = m[4] = 2.0;
    EXPECT_EQ(T::inverse(m, m), -4.0);
    EXPECT_EQ(m[1], 0.5);
    EXPECT_EQ(m[4], 0.5);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
