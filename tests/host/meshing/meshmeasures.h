/// \file
/// What tests of the mesher measure on its meshes, apart from what it knows itself.

#pragma once

#include "host/geometry/modelbuilder.h"
#include "host/geometry/shapestore.h"
#include "host/meshing/elementfaces.h"
#include "host/meshing/mesher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <gp_Vec.hxx>
#include <limits>
#include <memory>
#include <stdexcept>

namespace vrn::orlo::host::meshing {

inline gp_Vec at(MeshStore const& store, LocalNumber node)
{
    Point const& p = store.position(node);
    return {p[0], p[1], p[2]};
}

/// Twice the area of a triangle, along its normal.
inline gp_Vec doubleArea(MeshStore const& store, std::array<LocalNumber, 3> const& corners)
{
    gp_Vec const origin = at(store, corners[0]);
    return (at(store, corners[1]) - origin).Crossed(at(store, corners[2]) - origin);
}

/// Six times the volume between a triangle and the origin.
inline double below(MeshStore const& store, std::array<LocalNumber, 3> const& corners)
{
    return doubleArea(store, corners).Dot(at(store, corners[0]));
}

inline std::array<LocalNumber, 3> cornersOf(MeshStore const& store, ElementFace const& face)
{
    auto const places = placesOf(facesOf(store.typeOf(face.m_element))[face.m_face]);
    auto const nodes = store.nodesOf(face.m_element);
    return {nodes[places[0]], nodes[places[1]], nodes[places[2]]};
}

/// The volume that the faces of an element enclose; the sides count as straight.
inline double sizeOf(MeshStore const& store, LocalNumber element)
{
    double sum = 0.0;
    for (std::uint8_t face = 0; face < traitsOf(store.typeOf(element)).m_faceCount; ++face) {
        sum += below(store, cornersOf(store, {element, face}));
    }
    return sum / 6;
}

inline double totalOf(MeshStore const& store, std::uint8_t dimension)
{
    double sum = 0.0;
    for (LocalNumber const element : store.elementsOf(dimension)) {
        sum += sizeOf(store, element);
    }
    return sum;
}

/// The least determinant, by differences of positions, near corners and middles of a C3D10.
inline double leastJacobian(MeshStore const& store, LocalNumber element)
{
    constexpr std::array<std::array<std::size_t, 2>, 6> kSides{
        {{0, 1}, {1, 2}, {0, 2}, {0, 3}, {1, 3}, {2, 3}}};
    auto const nodes = store.nodesOf(element);
    auto const place = [&](double r, double s, double t) {
        std::array<double, 4> const w{1 - r - s - t, r, s, t};
        gp_Vec sum;
        for (std::size_t i = 0; i < 4; ++i) {
            sum += at(store, nodes[i]) * (w[i] * (2 * w[i] - 1));
        }
        for (std::size_t i = 0; i < 6; ++i) {
            sum += at(store, nodes[4 + i]) * (4 * w[kSides[i][0]] * w[kSides[i][1]]);
        }
        return sum;
    };
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < 125; ++i) {  // multiples of 1/7 up to 4/7
        double const r = i % 5 / 7.0;
        double const s = i / 5 % 5 / 7.0;
        double const t = i / 25 / 7.0;
        double const h = 1e-4;
        if (r + s + t <= 1.0) {
            auto const slope = [&](double a, double b, double c) {
                return (place(r + a, s + b, t + c) - place(r - a, s - b, t - c)) / (2 * h);
            };
            least = std::min(least, slope(h, 0, 0).DotCross(slope(0, h, 0), slope(0, 0, h)));
        }
    }
    return least;
}

inline MeshOptions sized(double size, int order = 1)
{
    MeshOptions options;
    options.m_size = size;
    options.m_order = order;
    return options;
}

/// The mesh of a part of which each body can be meshed.
inline std::shared_ptr<MeshStore const> storeOf(geometry::GeometryModel const& model,
                                                MeshOptions const& options, std::size_t part = 0)
{
    MeshedPartResult const result = meshPart(model, part, options);
    for (BodyFailure const& failure : result.m_failures) {
        ADD_FAILURE() << failure.m_name << ": " << failure.m_reason;
    }
    if (result.m_store == nullptr) {
        throw std::runtime_error("no body has got a mesh");
    }
    return result.m_store;
}

/// A part with the very shape, which a file would have put in order.
inline geometry::GeometryModel modelAround(TopoDS_Shape const& shape)
{
    geometry::GeometryModel model;
    geometry::addPart(model, "piece", shape, geometry::bodiesOf(shape));
    return model;
}

}  // namespace vrn::orlo::host::meshing
