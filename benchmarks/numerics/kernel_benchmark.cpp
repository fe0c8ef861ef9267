// The vector kernel against two well-known ones, in the same loops.

#include "benchmarks/support/ratio.h"
#include "plugins/modelingplugin/utilities/numerics/x3dstransform.h"

#include <Eigen/Dense>
#include <glm/glm.hpp>

#include <random>
#include <vector>

namespace {

using namespace vrn::orlo::plugin::modeling;  // NOLINT: the library under test
using orlo::bench::keep;
using orlo::bench::Ratios;

constexpr int kCount = 1000;
constexpr int kRepeats = 300;

template <class M, class At>
std::vector<M> matrices(At at)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    std::vector<M> result(kCount);
    for (M& m : result) {
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                at(m, row, column) = value(random) + (row == column ? 2.0 : 0.0);
            }
        }
    }
    return result;
}

template <class M, class Multiply>
auto products(std::vector<M> const& all, std::vector<M>& out, Multiply multiply)
{
    return [&all, &out, multiply] {
        for (int repeat = 0; repeat < kRepeats; ++repeat) {
            for (std::size_t i = 1; i < all.size(); ++i) {
                out[i] = multiply(all[i - 1], all[i]);
            }
            keep(out);
        }
    };
}

template <class M, class Point, class Apply>
auto transforms(std::vector<M> const& all, std::vector<Point>& points, Apply apply)
{
    return [&all, &points, apply] {
        for (int repeat = 0; repeat < kRepeats; ++repeat) {
            M const& m = all[static_cast<std::size_t>(repeat)];
            for (Point& point : points) {
                point = apply(m, point);
            }
            keep(points);
            std::fill(points.begin(), points.end(), Point(1.0, 2.0, 3.0));
        }
    };
}

}  // namespace

int main()
{
    Ratios ratios;
    auto const ours = matrices<XMatrix4X4>(
        [](XMatrix4X4& m, int row, int column) -> double& { return m.at(row, column); });
    auto const eigens = matrices<Eigen::Matrix4d>(
        [](Eigen::Matrix4d& m, int row, int column) -> double& { return m(row, column); });
    auto const glms = matrices<glm::dmat4>(
        [](glm::dmat4& m, int row, int column) -> double& { return m[column][row]; });

    std::vector<XMatrix4X4> ourOut(kCount);
    std::vector<Eigen::Matrix4d> eigenOut(kCount);
    std::vector<glm::dmat4> glmOut(kCount);
    auto const ourProducts = products(
        ours, ourOut, [](XMatrix4X4 const& a, XMatrix4X4 const& b) { return a.product(b); });
    ratios.compare("product, against Eigen", 1.0, ourProducts,
                   products(eigens, eigenOut,
                            [](Eigen::Matrix4d const& a,
                               Eigen::Matrix4d const& b) -> Eigen::Matrix4d { return a * b; }));
    ratios.compare(
        "product, against glm", 1.0, ourProducts,
        products(glms, glmOut, [](glm::dmat4 const& a, glm::dmat4 const& b) { return a * b; }));

    std::vector<X3DSPoint> ourPoints(kCount, X3DSPoint(1.0, 2.0, 3.0));
    std::vector<Eigen::Vector3d> eigenPoints(kCount, Eigen::Vector3d(1.0, 2.0, 3.0));
    std::vector<glm::dvec3> glmPoints(kCount, glm::dvec3(1.0, 2.0, 3.0));
    auto const ourTransforms =
        transforms(ours, ourPoints, [](XMatrix4X4 const& m, X3DSPoint const& p) {
            return X3DSTransform::transformPoint(p, m);
        });
    ratios.compare(
        "transformPoint, against Eigen", 1.0, ourTransforms,
        transforms(eigens, eigenPoints,
                   [](Eigen::Matrix4d const& m, Eigen::Vector3d const& p) -> Eigen::Vector3d {
                       return m.topLeftCorner<3, 3>() * p + m.topRightCorner<3, 1>();
                   }));
    ratios.compare("transformPoint, against glm", 1.0, ourTransforms,
                   transforms(glms, glmPoints, [](glm::dmat4 const& m, glm::dvec3 const& p) {
                       return glm::dvec3(m * glm::dvec4(p, 1.0));
                   }));

    ratios.compare(
        "inverse, against full-pivot LU", 0.3,
        [&] {
            for (int repeat = 0; repeat < kRepeats / 10; ++repeat) {
                for (std::size_t i = 0; i < ours.size(); ++i) {
                    keep(X3DSTransform::inverse(ours[i], ourOut[i]));
                }
                keep(ourOut);
            }
        },
        [&] {
            for (int repeat = 0; repeat < kRepeats / 10; ++repeat) {
                for (std::size_t i = 0; i < eigens.size(); ++i) {
                    eigenOut[i] = eigens[i].fullPivLu().inverse();
                }
                keep(eigenOut);
            }
        });
    return ratios.exitStatus();
}
