#include "apps/orlo/meshmeasure.h"

#include "host/display/space.h"
#include "host/meshing/elementfaces.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace vrn::orlo::app {

namespace {

using host::display::cross;
using host::display::dot;
using host::display::length;
using host::display::sum;
using host::meshing::ElementFaceRow;
using host::meshing::ElementType;
using host::meshing::LocalNumber;
using host::meshing::MeshStore;
using host::meshing::Point;

constexpr std::size_t kMostFaceNodes = 8;
using Weights = std::array<double, kMostFaceNodes>;

/// Shape functions and their derivatives at a place of a face.
struct Sample {
    double m_weight;
    Weights m_n{};
    Weights m_du{};
    Weights m_dv{};
};

/// The shape functions at u, v, by the node.
Sample triangle3(double u, double v)
{
    return {0.0, {1.0 - u - v, u, v}, {-1.0, 1.0, 0.0}, {-1.0, 0.0, 1.0}};
}

Sample triangle6(double u, double v)
{
    double const w = 1.0 - u - v;
    return {0.0,
            {w * (2 * w - 1), u * (2 * u - 1), v * (2 * v - 1), 4 * u * w, 4 * u * v, 4 * v * w},
            {1 - 4 * w, 4 * u - 1, 0.0, 4 * (w - u), 4 * v, -4 * v},
            {1 - 4 * w, 0.0, 4 * v - 1, -4 * u, 4 * u, 4 * (w - v)}};
}

constexpr std::array<std::array<double, 2>, 4> kCorners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};

Sample quad4(double u, double v)
{
    Sample sample{0.0};
    for (std::size_t i = 0; i < 4; ++i) {
        auto const [a, b] = kCorners[i];
        sample.m_n[i] = 0.25 * (1 + a * u) * (1 + b * v);
        sample.m_du[i] = 0.25 * a * (1 + b * v);
        sample.m_dv[i] = 0.25 * b * (1 + a * u);
    }
    return sample;
}

Sample quad8(double u, double v)
{
    Sample sample{0.0};
    for (std::size_t i = 0; i < 4; ++i) {
        auto const [a, b] = kCorners[i];
        sample.m_n[i] = 0.25 * (1 + a * u) * (1 + b * v) * (a * u + b * v - 1);
        sample.m_du[i] = 0.25 * a * (1 + b * v) * (2 * a * u + b * v);
        sample.m_dv[i] = 0.25 * b * (1 + a * u) * (a * u + 2 * b * v);
        bool const alongU = i % 2 == 0;  // the side that begins at the corner
        double const side = alongU ? b : a;
        double const along = alongU ? u : v;
        double const across = alongU ? v : u;
        sample.m_n[i + 4] = 0.5 * (1 - along * along) * (1 + side * across);
        (alongU ? sample.m_du : sample.m_dv)[i + 4] = -along * (1 + side * across);
        (alongU ? sample.m_dv : sample.m_du)[i + 4] = 0.5 * side * (1 - along * along);
    }
    return sample;
}

/// Exact up to the fourth degree, which the volume under a triangle with curved sides has.
template <class Shape>
std::vector<Sample> overTriangle(Shape const& shape)
{
    constexpr std::array<std::array<double, 2>, 2> kRows{
        {{0.091576213509770743, 0.109951743655321868},
         {0.445948490915964886, 0.223381589678011466}}};
    std::vector<Sample> samples;
    for (auto const& [place, weight] : kRows) {
        double const other = 1.0 - 2.0 * place;
        for (auto const& [u, v] :
             {std::pair(place, place), std::pair(other, place), std::pair(place, other)}) {
            samples.push_back(shape(u, v));
            samples.back().m_weight = 0.5 * weight;
        }
    }
    return samples;
}

/// Exact up to the fifth degree each way.
template <class Shape>
std::vector<Sample> overSquare(Shape const& shape)
{
    double const place = std::sqrt(0.6);
    std::array<std::pair<double, double>, 3> const rows{
        {{-place, 5.0 / 9}, {0.0, 8.0 / 9}, {place, 5.0 / 9}}};
    std::vector<Sample> samples;
    for (auto const& [u, weightU] : rows) {
        for (auto const& [v, weightV] : rows) {
            samples.push_back(shape(u, v));
            samples.back().m_weight = weightU * weightV;
        }
    }
    return samples;
}

std::vector<Sample> const& samplesOf(ElementType face)
{
    static std::array const kSamples{overTriangle(triangle3), overTriangle(triangle6),
                                     overSquare(quad4), overSquare(quad8)};
    return kSamples.at(static_cast<std::size_t>(face) -
                       static_cast<std::size_t>(ElementType::triangle3));
}

struct FaceIntegral {
    double m_area = 0.0;
    double m_volume = 0.0;  ///< Between the face and the point that it is seen from.
};

FaceIntegral integralOver(ElementFaceRow const& face, std::span<Point const> nodes,
                          Point const& from)
{
    auto const places = placesOf(face);
    FaceIntegral integral;
    for (Sample const& sample : samplesOf(face.m_type)) {
        Point place{};
        Point along{};
        Point across{};
        for (std::size_t i = 0; i < places.size(); ++i) {
            Point const& node = nodes[places[i]];
            place = sum(place, sum(node, from, -1.0), sample.m_n[i]);
            along = sum(along, node, sample.m_du[i]);
            across = sum(across, node, sample.m_dv[i]);
        }
        Point const normal = cross(along, across);
        integral.m_area += sample.m_weight * length(normal);
        integral.m_volume += sample.m_weight * dot(place, normal) / 3.0;
    }
    return integral;
}

/// Of a line through two points, or a parabola over three whose middle comes last.
double lengthOf(std::span<Point const> nodes)
{
    if (nodes.size() == 2) {
        return length(sum(nodes[1], nodes[0], -1.0));
    }
    double sumOfLengths = 0.0;
    for (double const u : {-std::sqrt(0.6), 0.0, std::sqrt(0.6)}) {
        Point along{};
        along = sum(along, nodes[0], u - 0.5);
        along = sum(along, nodes[1], u + 0.5);
        along = sum(along, nodes[2], -2.0 * u);
        sumOfLengths += length(along) * (u == 0.0 ? 8.0 : 5.0) / 9.0;
    }
    return sumOfLengths;
}

}  // namespace

MeshMeasure measureOf(MeshStore const& mesh)
{
    MeshMeasure measure;
    std::vector<Point> nodes;
    for (LocalNumber element = 1; element <= mesh.elements().size(); ++element) {
        nodes.clear();
        for (LocalNumber const node : mesh.nodesOf(element)) {
            nodes.push_back(mesh.position(node));
        }
        ElementType const type = mesh.typeOf(element);
        std::uint8_t const dimension = traitsOf(type).m_dimension;
        if (dimension == 1) {
            measure.m_length += lengthOf(nodes);
        }
        for (ElementFaceRow const& face : facesOf(type)) {
            FaceIntegral const integral = integralOver(face, nodes, nodes.front());
            (dimension == 2 ? measure.m_area : measure.m_volume) +=
                dimension == 2 ? integral.m_area : integral.m_volume;
        }
    }
    return measure;
}

}  // namespace vrn::orlo::app
