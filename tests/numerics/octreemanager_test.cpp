#include "plugins/modelingplugin/utilities/numerics/octreemanager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kMax = std::numeric_limits<double>::max();

/// The tree as it is told: a node per cell, every child tried in turn.
struct PlainNode {
    std::array<double, 3> m_min{kMax, kMax, kMax};
    std::array<double, 3> m_max{-kMax, -kMax, -kMax};
    std::vector<PlainNode> m_children;
    std::vector<KFRDouble3DPoint> m_points;

    void split(int depth)
    {
        m_children.resize(8);
        for (std::size_t c = 0; c < 8; ++c) {
            PlainNode& child = m_children[c];
            child.m_min = m_min;
            child.m_max = m_max;
            for (std::size_t i = 0; i < 3; ++i) {
                static constexpr std::array<char const*, 8> kUpper{"001", "101", "111", "011",
                                                                   "000", "100", "110", "010"};
                (kUpper[c][i] == '1' ? child.m_min : child.m_max)[i] = (m_min[i] + m_max[i]) / 2;
            }
            if (depth > 1) {
                child.split(depth - 1);
            }
        }
    }

    [[nodiscard]] PlainNode const* leafOf(KFRDouble3DPoint const& p) const
    {
        std::array const place{p.x, p.y, p.z};
        PlainNode const* node = this;
        while (node != nullptr && !node->m_children.empty()) {
            PlainNode const* chosen = nullptr;
            for (std::size_t const c : {2u, 6u, 1u, 5u, 3u, 7u, 0u, 4u}) {  // the last one wins
                PlainNode const& child = node->m_children[c];
                bool isIn = true;
                for (std::size_t i = 0; i < 3; ++i) {
                    isIn = isIn && place[i] >= child.m_min[i] - 0.1 &&
                           place[i] <= child.m_max[i] + 0.1;
                }
                chosen = isIn ? &child : chosen;
            }
            node = chosen;
        }
        return node;
    }

    [[nodiscard]] bool search(KFRDouble3DPoint const& p, double tolerance) const
    {
        return std::any_of(m_points.begin(), m_points.end(),
                           [&](KFRDouble3DPoint const& held) {
                               double const dx = held.x - p.x;
                               double const dy = held.y - p.y;
                               double const dz = held.z - p.z;
                               return dx * dx + dy * dy + dz * dz < tolerance * tolerance;
                           }) ||
               std::any_of(m_children.begin(), m_children.end(),
                           [&](PlainNode const& child) { return child.search(p, tolerance); });
    }

    int insert(KFRDouble3DPoint const& p)
    {
        auto* const leaf = const_cast<PlainNode*>(leafOf(p));
        if (leaf != nullptr) {
            leaf->m_points.push_back(p);
        }
        return leaf == nullptr ? 2 : 0;
    }

    [[nodiscard]] int find(KFRDouble3DPoint const& p, double tolerance) const
    {
        PlainNode const* const leaf = leafOf(p);
        return leaf == nullptr ? 2 : leaf->search(p, tolerance) ? 0 : 4;
    }

    int create(KFRDouble3DPointSequence const& points, int depth)
    {
        for (KFRDouble3DPoint const& p : points) {
            std::array const place{p.x, p.y, p.z};
            for (std::size_t i = 0; i < 3; ++i) {
                if (place[i] < m_min[i]) {
                    m_min[i] = place[i];
                } else if (place[i] > m_max[i]) {
                    m_max[i] = place[i];
                }
            }
        }
        split(depth);
        int error = 0;
        for (std::size_t i = 0; i < points.size() && error == 0; ++i) {
            error = insert(points[i]);
        }
        return error;
    }
};

/// Cells, points and answers of a node and all below it.
void expectSame(OctreeManager& tree, OctreeManager::OctreeNode* node, PlainNode const& plain,
                std::vector<KFRDouble3DPoint> const& places, double tolerance)
{
    auto const low = node->min();
    auto const high = node->max();
    ASSERT_EQ((std::array{low.x, low.y, low.z}), plain.m_min);
    ASSERT_EQ((std::array{high.x, high.y, high.z}), plain.m_max);
    ASSERT_EQ(node->isLeaf(), plain.m_children.empty());
    auto const held = node->points();
    ASSERT_EQ(std::vector(held.begin(), held.end()), plain.m_points);
    for (KFRDouble3DPoint const& place : places) {
        ASSERT_EQ(tree.find(place, tolerance, node), plain.find(place, tolerance));
        ASSERT_EQ(tree.search(place, tolerance, node), plain.search(place, tolerance));
    }
    for (int c = 0; c < 8; ++c) {
        auto* const child = node->child(c);
        ASSERT_EQ(child == nullptr, plain.m_children.empty());
        if (child != nullptr) {
            ASSERT_EQ(child->parent(), node);
            ASSERT_NO_FATAL_FAILURE(expectSame(
                tree, child, plain.m_children[static_cast<std::size_t>(c)], places, tolerance));
        }
    }
}

struct CloudRow {
    char const* m_name;
    int m_depth;
    double m_origin;
    double m_extent;
    double m_grain;  ///< Coordinates are multiples of it: they fall on the cells' planes.
    std::size_t m_count;
};

// clang-format off
CloudRow const kOctreeCloudRows[] = {
    CloudRow{"DepthZero",         0,     0.0,   10.0, 0.0,   300},
    CloudRow{"DepthOne",          1,     0.0,   10.0, 0.0,   300},
    CloudRow{"DepthFive",         5,     0.0,  500.0, 0.0,  1500},
    CloudRow{"OnPlanes",          4,     0.0,   16.0, 0.5,   700},
    CloudRow{"AtTheMargins",      4,     0.0,    6.4, 0.1,   700},
    CloudRow{"MarginsOverlap",    5,     0.0,    1.0, 0.0,   500},
    CloudRow{"TinyAndFar",        4,   1e9,     1e-5, 0.0,   200},
    CloudRow{"BeyondDoubles",     2,     0.0, 1.5e308, 0.0,  100},
    CloudRow{"OnePoint",          2,     1.0,   10.0, 0.0,     1}};
// clang-format on

TEST(OctreeCloud, AnswersAsTheTreeOfNodesDoes)
{
    for (CloudRow const& row : kOctreeCloudRows) {
        SCOPED_TRACE(row.m_name);
        auto const [name, depth, origin, extent, grain, count] = row;
        std::mt19937_64 random(count);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        auto const coordinate = [&, origin = origin, extent = extent, grain = grain](double reach) {
            double const value = origin - reach + unit(random) * (extent + 2 * reach);
            return grain > 0.0 ? std::round(value / grain) * grain : value;
        };
        auto const place = [&](double reach) {
            return KFRDouble3DPoint{coordinate(reach), coordinate(reach), coordinate(reach)};
        };
        KFRDouble3DPointSequence points;
        for (std::size_t i = 0; i < count; ++i) {
            points.append(place(0.0));
        }
        OctreeManager tree(depth);
        PlainNode plain;
        ASSERT_EQ(tree.create(points), plain.create(points, depth));

        std::vector<KFRDouble3DPoint> places{points[0], points[count - 1], {kNaN, origin, origin}};
        for (int i = 0; i < 8; ++i) {
            places.push_back(place(0.15));
        }
        ASSERT_NO_FATAL_FAILURE(expectSame(tree, tree.root(), plain, places, extent / 50));

        std::array const extremes{0.0, kInfinity, -kInfinity, kMax, -kMax, kNaN, origin};
        for (int i = 0; i < 20000; ++i) {
            KFRDouble3DPoint p = i % 3 == 0 ? points[random() % count] : place(0.15);
            double tolerance = unit(random) * extent / 20;
            if (i % 50 == 0) {
                p.y = extremes[random() % extremes.size()];
            }
            if (i % 20 == 0) {
                tolerance = extremes[random() % extremes.size()];
            }
            tolerance = i % 7 == 0 ? -tolerance : tolerance;
            int const expected = plain.find(p, tolerance);
            ASSERT_EQ(tree.find(p, tolerance, tree.root()), expected) << p.x << ' ' << p.y;
            ASSERT_EQ(tree.find(p, tolerance), expected == 0);
            if (i % 10 == 0) {
                ASSERT_EQ(tree.searchAll(p, tolerance), plain.search(p, tolerance));
            }
        }
        for (int i = 0; i < 500; ++i) {
            auto const p = place(0.15);
            ASSERT_EQ(tree.insertPoint(p, tree.root()), plain.insert(p));
        }
        ASSERT_NO_FATAL_FAILURE(expectSame(tree, tree.root(), plain, places, extent / 50));
    }
}

TEST(OctreeManager, HasNoTreeBeforeCreate)
{
    OctreeManager tree;
    EXPECT_EQ(tree.depth(), 5);
    EXPECT_EQ(tree.other(), 5);
    EXPECT_EQ(tree.root(), nullptr);
    EXPECT_EQ(tree.insertPoint({}, nullptr), 2);
    EXPECT_EQ(tree.find({}, 1.0, nullptr), 4);
    EXPECT_FALSE(tree.find({}, 1.0));
    EXPECT_FALSE(tree.search({}, 1.0, nullptr));
    EXPECT_FALSE(tree.searchAll({}, 1.0));
}

TEST(OctreeManager, OfNoPointsStandsOverTheInvertedStartBox)
{
    OctreeManager tree(2);
    EXPECT_EQ(tree.create({}), 0);
    ASSERT_NE(tree.root(), nullptr);
    EXPECT_EQ(tree.root()->min(), (KFRDouble3DPoint{kMax, kMax, kMax}));
    EXPECT_EQ(tree.root()->centre(), KFRDouble3DPoint{});
    EXPECT_EQ(tree.find({1.0, 2.0, 3.0}, 1.0, tree.root()), 2);
    EXPECT_FALSE(tree.find({0.0, 0.0, 0.0}, kInfinity));
    EXPECT_FALSE(tree.searchAll({0.0, 0.0, 0.0}, kInfinity));
}

TEST(OctreeManager, BoxLeavesMaxAtItsStartWhereCoordinatesOnlyFall)
{
    KFRDouble3DPoint min;
    KFRDouble3DPoint max;
    EXPECT_EQ(OctreeManager::getBoundingBox({{3, 1, 7}, {2, 5, 7}, {1, 4, 7}}, min, max), 0);
    EXPECT_EQ(min, (KFRDouble3DPoint{1, 1, 7}));
    EXPECT_EQ(max, (KFRDouble3DPoint{-kMax, 5, 7}));
    OctreeManager tree(1);
    EXPECT_EQ(tree.create({{3, 1, 7}, {2, 5, 7}, {1, 4, 7}}), 2);
    EXPECT_EQ(tree.create({{1, 1, 7}}), 2);
}

TEST(OctreeManager, FindsPointsThatWerePutIntoALeafOfAnotherPlace)
{
    OctreeManager tree(2);
    ASSERT_EQ(tree.create({{0, 0, 0}, {8, 8, 8}}), 0);
    auto* const leaf = tree.root()->child(2)->child(2);
    EXPECT_EQ(tree.insertPoint({1, 1, 1}, leaf), 0);  // a leaf takes every point
    EXPECT_TRUE(tree.searchAll({1, 1, 1}, 0.5));
    EXPECT_FALSE(tree.find({1, 1, 1}, 0.5));
    EXPECT_EQ(tree.find({1, 1, 1}, 0.5, leaf), 0);
    EXPECT_EQ(tree.insertPoint({1, 1, 1}, tree.root()->child(2)), 2);
    ASSERT_EQ(tree.create({{10, 10, 10}, {18, 18, 18}}), 0);  // the tree there was is gone
    EXPECT_FALSE(tree.searchAll({1, 1, 1}, 5.0));
    EXPECT_TRUE(tree.find({18, 18, 18}, 0.1));
}

TEST(OctreeManager, RefusesADepthWhoseLeavesCannotBeNumbered)
{
    OctreeManager tree(OctreeManager::kMaxDepth + 1);
    EXPECT_THROW(tree.create({}), std::length_error);
    EXPECT_EQ(tree.root(), nullptr);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
