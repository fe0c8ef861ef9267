#include "plugins/modelingplugin/utilities/numerics/octreemanager.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <memory>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kMax = std::numeric_limits<double>::max();

/// The tree as it is told: a node per cell, every child tried in turn.
struct PlainNode {
    std::array<std::unique_ptr<PlainNode>, 8> m_children;
    std::array<double, 3> m_min{};
    std::array<double, 3> m_max{};
    std::vector<KFRDouble3DPoint> m_points;

    [[nodiscard]] bool isLeaf() const { return m_children[0] == nullptr; }

    static bool isUpper(std::size_t child, std::size_t axis)
    {
        static constexpr std::array<char const*, 8> kUpper{"001", "101", "111", "011",
                                                           "000", "100", "110", "010"};
        return kUpper[child][axis] == '1';
    }

    void split(int depth)
    {
        for (std::size_t c = 0; c < 8; ++c) {
            m_children[c] = std::make_unique<PlainNode>();
            for (std::size_t i = 0; i < 3; ++i) {
                double const centre = (m_min[i] + m_max[i]) / 2;
                m_children[c]->m_min[i] = isUpper(c, i) ? centre : m_min[i];
                m_children[c]->m_max[i] = isUpper(c, i) ? m_max[i] : centre;
            }
            if (depth > 1) {
                m_children[c]->split(depth - 1);
            }
        }
    }

    [[nodiscard]] PlainNode* choose(KFRDouble3DPoint const& p) const
    {
        std::array const place{p.x, p.y, p.z};
        for (std::size_t const c : {4u, 0u, 7u, 3u, 5u, 1u, 6u, 2u}) {
            bool isIn = true;
            for (std::size_t i = 0; i < 3; ++i) {
                auto const& child = *m_children[c];
                isIn = isIn && place[i] >= child.m_min[i] - 0.1 && place[i] <= child.m_max[i] + 0.1;
            }
            if (isIn) {
                return m_children[c].get();
            }
        }
        return nullptr;
    }

    [[nodiscard]] bool holds(KFRDouble3DPoint const& p, double tolerance) const
    {
        for (KFRDouble3DPoint const& held : m_points) {
            double const dx = held.x - p.x;
            double const dy = held.y - p.y;
            double const dz = held.z - p.z;
            if (dx * dx + dy * dy + dz * dz < tolerance * tolerance) {
                return true;
            }
        }
        return false;
    }

    int insert(KFRDouble3DPoint const& p)
    {
        if (isLeaf()) {
            m_points.push_back(p);
            return 0;
        }
        PlainNode* const child = choose(p);
        return child == nullptr ? 2 : child->insert(p);
    }

    [[nodiscard]] int find(KFRDouble3DPoint const& p, double tolerance) const
    {
        if (isLeaf()) {
            return holds(p, tolerance) ? 0 : 4;
        }
        PlainNode const* const child = choose(p);
        return child == nullptr ? 2 : child->find(p, tolerance);
    }

    [[nodiscard]] bool search(KFRDouble3DPoint const& p, double tolerance) const
    {
        if (isLeaf()) {
            return holds(p, tolerance);
        }
        for (auto const& child : m_children) {
            if (child->search(p, tolerance)) {
                return true;
            }
        }
        return false;
    }

    int create(KFRDouble3DPointSequence const& points, int depth)
    {
        m_min.fill(kMax);
        m_max.fill(-kMax);
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
        for (KFRDouble3DPoint const& p : points) {
            if (int const error = insert(p); error != 0) {
                return error;
            }
        }
        return 0;
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
    ASSERT_EQ(node->isLeaf(), plain.isLeaf());
    auto const held = node->points();
    ASSERT_EQ(std::vector(held.begin(), held.end()), plain.m_points);
    for (KFRDouble3DPoint const& place : places) {
        ASSERT_EQ(tree.find(place, tolerance, node), plain.find(place, tolerance));
        ASSERT_EQ(tree.search(place, tolerance, node), plain.search(place, tolerance));
    }
    for (int c = 0; c < 8; ++c) {
        auto* const child = node->child(c);
        ASSERT_EQ(child == nullptr, plain.isLeaf());
        if (child != nullptr) {
            ASSERT_EQ(child->parent(), node);
            ASSERT_NO_FATAL_FAILURE(expectSame(
                tree, child, *plain.m_children[static_cast<std::size_t>(c)], places, tolerance));
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

void PrintTo(CloudRow const& row, std::ostream* out)
{
    *out << row.m_name;
}

class OctreeCloud : public ::testing::TestWithParam<CloudRow> {};

TEST_P(OctreeCloud, AnswersAsTheTreeOfNodesDoes)
{
    auto const [name, depth, origin, extent, grain, count] = GetParam();
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

// clang-format off
INSTANTIATE_TEST_SUITE_P(Clouds, OctreeCloud, ::testing::Values(
    CloudRow{"DepthZero",         0,     0.0,   10.0, 0.0,   300},
    CloudRow{"DepthOne",          1,     0.0,   10.0, 0.0,   300},
    CloudRow{"DepthTwo",          2,   -50.0,  100.0, 0.0,   400},
    CloudRow{"DepthThree",        3,  1000.0,    3.0, 0.0,   400},
    CloudRow{"DepthFour",         4,   -10.0,   20.0, 0.0,   700},
    CloudRow{"DepthFive",         5,     0.0,  500.0, 0.0,  1500},
    CloudRow{"OnPlanes",          4,     0.0,   16.0, 0.5,   700},
    CloudRow{"AtTheMargins",      4,     0.0,    6.4, 0.1,   700},
    CloudRow{"SmallExtent",       3,     5.0,   1e-3, 0.0,   200},
    CloudRow{"MarginsOverlap",    5,     0.0,    1.0, 0.0,   500},
    CloudRow{"TinyAndFar",        4,   1e9,     1e-5, 0.0,   200},
    CloudRow{"BeyondDoubles",     2,     0.0, 1.5e308, 0.0,  100},
    CloudRow{"OnePoint",          2,     1.0,   10.0, 0.0,     1},
    CloudRow{"OnePlace",          2,     3.0,    0.0, 0.0,    50}),
    [](auto const& row) { return std::string(row.param.m_name); });
// clang-format on

TEST(OctreeManager, AnswersAsTheTreeOfNodesDoesAtDepthSix)
{
    KFRDouble3DPointSequence points;
    std::mt19937_64 random(6);
    std::uniform_real_distribution<double> place(0.0, 100.0);
    for (int i = 0; i < 3000; ++i) {
        points.append({place(random), place(random), place(random)});
    }
    OctreeManager tree(6);
    PlainNode plain;
    ASSERT_EQ(tree.create(points), plain.create(points, 6));
    for (int i = 0; i < 20000; ++i) {
        KFRDouble3DPoint const p{place(random), place(random), place(random)};
        ASSERT_EQ(tree.find(p, 1.0, tree.root()), plain.find(p, 1.0));
    }
    ASSERT_NO_FATAL_FAILURE(expectSame(tree, tree.root(), plain, {}, 1.0));
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

TEST(OctreeManager, TakesPointsUpToTheMarginOutsideOfTheBox)
{
    OctreeManager tree(3);
    ASSERT_EQ(tree.create({{0, 0, 0}, {8, 8, 8}}), 0);
    EXPECT_EQ(tree.insertPoint({-0.05, 8.05, 4.0}, tree.root()), 0);
    EXPECT_TRUE(tree.find({-0.05, 8.05, 4.0}, 1e-9));
    EXPECT_EQ(tree.insertPoint({-0.1, 0.0, 0.0}, tree.root()), 0);  // inclusive
    EXPECT_EQ(tree.insertPoint({-0.2, 0.0, 0.0}, tree.root()), 2);
    EXPECT_EQ(tree.insertPoint({0.0, 0.0, 8.2}, tree.root()), 2);
    EXPECT_FALSE(tree.searchAll({0.0, 0.0, 8.2}, 0.1));
}

TEST(OctreeManager, ComparesSquaresStrictly)
{
    OctreeManager tree(1);
    ASSERT_EQ(tree.create({{0, 0, 0}, {8, 8, 8}}), 0);
    EXPECT_EQ(tree.find({0, 0, 0}, 0.0, tree.root()), 4);
    EXPECT_FALSE(tree.searchAll({0, 0, 0}, 0.0));
    EXPECT_EQ(tree.find({0, 0, 1}, 1.0, tree.root()), 4);
    EXPECT_EQ(tree.find({0, 0, 1}, -1.0000001, tree.root()), 0);
}

TEST(OctreeManager, FindMissesWhatSearchFindsAcrossACentrePlane)
{
    OctreeManager tree(1);
    ASSERT_EQ(tree.create({{0, 0, 0}, {8, 8, 8}, {4.05, 1, 1}}), 0);
    EXPECT_EQ(tree.root()->child(4)->points().size(), 2u);  // the margin takes it below the plane
    EXPECT_TRUE(tree.searchAll({4.15, 1, 1}, 0.2));
    EXPECT_EQ(tree.find({4.15, 1, 1}, 0.2, tree.root()), 4);
    EXPECT_FALSE(tree.search({4.15, 1, 1}, 0.2, tree.root()->child(5)));
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
}

TEST(OctreeManager, CreateReleasesTheTreeThereWas)
{
    OctreeManager tree(2);
    ASSERT_EQ(tree.create({{0, 0, 0}, {8, 8, 8}}), 0);
    ASSERT_EQ(tree.insertPoint({1, 1, 1}, tree.root()->child(2)->child(2)), 0);
    ASSERT_EQ(tree.create({{10, 10, 10}, {18, 18, 18}}), 0);
    EXPECT_FALSE(tree.searchAll({0, 0, 0}, 5.0));
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
