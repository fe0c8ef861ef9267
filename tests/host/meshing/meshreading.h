/// \file
/// What tests of mesh readers and writers ask of meshes.

#pragma once

#include "host/meshing/elementfaces.h"
#include "host/meshing/meshfile.h"
#include "host/meshing/meshfileerror.h"
#include "host/meshing/nodeorder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// The message of a file that is refused.
inline std::string errorOf(MeshFile (*read)(std::filesystem::path const&),
                           std::filesystem::path const& file)
{
    try {
        static_cast<void>(read(file));
    } catch (MeshFileError const& error) {
        return error.what();
    }
    ADD_FAILURE() << file << " was read";
    return {};
}

/// A set's members by their external ids.
inline std::vector<ExternalId> idsOf(Numbering const& numbering, std::vector<MeshSet> const& sets,
                                     std::string_view name)
{
    MeshSet const* const set = findSet(sets, name);
    EXPECT_NE(set, nullptr) << name;
    std::vector<ExternalId> ids;
    for (LocalNumber const number : set != nullptr ? set->m_numbers : std::vector<LocalNumber>()) {
        ids.push_back(numbering.idOf(number));
    }
    return ids;
}

inline std::vector<ExternalId> nodeIdsOf(MeshStore const& store, ExternalId element)
{
    std::vector<ExternalId> ids;
    for (LocalNumber const node : store.nodesOf(store.elements().numberOf(element))) {
        ids.push_back(store.nodes().idOf(node));
    }
    return ids;
}

inline Point middleOf(Point const& left, Point const& right)
{
    return {(left[0] + right[0]) / 2, (left[1] + right[1]) / 2, (left[2] + right[2]) / 2};
}

/// Each node of an element that is none of its corners has to be in the middle of its side.
inline void expectNodesInTheMiddleOfSides(MeshStore const& store, LocalNumber element,
                                          double tolerance = 0.0)
{
    auto const nodes = store.nodesOf(element);
    auto const expectMiddle = [&](std::size_t left, std::size_t right, std::size_t middle) {
        Point const expected = middleOf(store.position(nodes[left]), store.position(nodes[right]));
        for (std::size_t axis = 0; axis < expected.size(); ++axis) {
            EXPECT_NEAR(store.position(nodes[middle])[axis], expected[axis], tolerance)
                << "place " << middle << " between " << left << " and " << right;
        }
    };
    if (store.typeOf(element) == ElementType::line3) {
        expectMiddle(0, 1, 2);
    }
    for (ElementFaceRow const& face : facesOf(store.typeOf(element))) {
        auto const places = placesOf(face);
        std::size_t const corners = traitsOf(face.m_type).m_cornerCount;
        for (std::size_t i = corners; i < places.size(); ++i) {
            expectMiddle(places[i - corners], places[(i - corners + 1) % corners], places[i]);
        }
    }
}

/// An element of second order as a file gives it: corners 1, 2, ..., then the middles of sides in
/// the file's order.
struct ElementInFile {
    char const* m_name;  ///< Of the type in the file.
    ElementType m_type;
    std::vector<std::pair<std::size_t, std::size_t>> m_sides;  ///< Corners from 1.

    /// Corners nowhere alike, so that no two sides have the same middle.
    [[nodiscard]] std::vector<Point> points() const
    {
        constexpr std::array<Point, 8> kCorners{{{0, 0, 0},
                                                 {4, 0, 0.5},
                                                 {5, 6, 0},
                                                 {-1, 4, 0},
                                                 {0.25, 0, 8},
                                                 {4, 1, 9},
                                                 {7, 6, 10},
                                                 {0, 4, 12}}};
        std::vector<Point> points(kCorners.begin(),
                                  kCorners.begin() + traitsOf(m_type).m_cornerCount);
        for (auto const& [left, right] : m_sides) {
            points.push_back(middleOf(kCorners[left - 1], kCorners[right - 1]));
        }
        return points;
    }
};

/// Nodes and elements alike; not the names of types and groups. Solvers read 13 digits.
inline void expectSameMesh(MeshStore const& mesh, MeshStore const& other)
{
    ASSERT_EQ(other.nodes().ids(), mesh.nodes().ids());
    ASSERT_EQ(other.elements().ids(), mesh.elements().ids());
    for (LocalNumber node = 1; node <= mesh.nodes().size(); ++node) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double const expected = mesh.position(node)[axis];
            EXPECT_NEAR(other.position(node)[axis], expected, 1e-12 * std::abs(expected));
        }
    }
    for (LocalNumber element = 1; element <= mesh.elements().size(); ++element) {
        EXPECT_EQ(other.typeOf(element), mesh.typeOf(element));
        EXPECT_EQ(nodeIdsOf(other, other.elements().idOf(element)),
                  nodeIdsOf(mesh, mesh.elements().idOf(element)));
    }
}

inline void expectSameSets(std::vector<MeshSet> const& sets, std::vector<MeshSet> const& others)
{
    ASSERT_EQ(others.size(), sets.size());
    for (std::size_t i = 0; i < sets.size(); ++i) {
        EXPECT_EQ(others[i].m_name, sets[i].m_name);
        EXPECT_EQ(others[i].m_numbers, sets[i].m_numbers);
    }
}

}  // namespace vrn::orlo::host::meshing
