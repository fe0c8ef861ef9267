// The point octree against a hash grid and a k-d tree, each asked whether a point is near.

#include "benchmarks/support/ratio.h"
#include "plugins/modelingplugin/utilities/numerics/octreemanager.h"

#include <nanoflann.hpp>

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using orlo::bench::keep;
using orlo::bench::Ratios;
using vrn::orlo::plugin::modeling::OctreeManager;

constexpr double kExtent = 1000.0;
constexpr double kTolerance = 1e-3;
constexpr std::size_t kQueries = 100000;

/// Cells of twice the tolerance, of which a place reaches into eight, in a table of open addresses
/// with the points of a cell chained. Holds what the questions need and no more.
class HashGrid {
public:
    explicit HashGrid(KFRDouble3DPointSequence const& points)
        : m_points(points.begin(), points.end()),
          m_next(points.size(), kNone),
          m_slots(std::bit_ceil(2 * points.size()))
    {
        for (unsigned i = 0; i < m_points.size(); ++i) {
            Slot& slot =
                slotOf(keyOf(cell(m_points[i].x), cell(m_points[i].y), cell(m_points[i].z)));
            m_next[i] = std::exchange(slot.m_head, i);
        }
    }

    [[nodiscard]] bool find(KFRDouble3DPoint const& p) const
    {
        for (auto x = cell(p.x - kTolerance); x <= cell(p.x + kTolerance); ++x) {
            for (auto y = cell(p.y - kTolerance); y <= cell(p.y + kTolerance); ++y) {
                for (auto z = cell(p.z - kTolerance); z <= cell(p.z + kTolerance); ++z) {
                    if (holds(keyOf(x, y, z), p)) {
                        return true;
                    }
                }
            }
        }
        return false;
    }

private:
    static constexpr unsigned kNone = ~0U;
    struct Slot {
        std::uint64_t m_key = ~std::uint64_t{0};
        unsigned m_head = kNone;
    };

    static std::int64_t cell(double coordinate)
    {
        return static_cast<std::int64_t>((coordinate + 1.0) * (1.0 / (2.0 * kTolerance)));
    }
    static std::uint64_t keyOf(std::int64_t x, std::int64_t y, std::int64_t z)
    {
        return static_cast<std::uint64_t>(x << 42 | y << 21 | z);
    }
    [[nodiscard]] std::size_t home(std::uint64_t key) const
    {
        return key * 0x9E3779B97F4A7C15U >> (64 - std::countr_zero(m_slots.size()));
    }
    Slot& slotOf(std::uint64_t key)
    {
        std::size_t i = home(key);
        while (m_slots[i].m_head != kNone && m_slots[i].m_key != key) {
            i = (i + 1) & (m_slots.size() - 1);
        }
        m_slots[i].m_key = key;
        return m_slots[i];
    }
    [[nodiscard]] bool holds(std::uint64_t key, KFRDouble3DPoint const& p) const
    {
        std::size_t i = home(key);
        while (m_slots[i].m_head != kNone && m_slots[i].m_key != key) {
            i = (i + 1) & (m_slots.size() - 1);
        }
        for (unsigned at = m_slots[i].m_head; at != kNone; at = m_next[at]) {
            double const dx = m_points[at].x - p.x;
            double const dy = m_points[at].y - p.y;
            double const dz = m_points[at].z - p.z;
            if (dx * dx + dy * dy + dz * dz < kTolerance * kTolerance) {
                return true;
            }
        }
        return false;
    }

    std::vector<KFRDouble3DPoint> m_points;
    std::vector<unsigned> m_next;
    std::vector<Slot> m_slots;
};

struct Cloud {
    KFRDouble3DPointSequence const& m_points;

    [[nodiscard]] std::size_t kdtree_get_point_count() const { return m_points.size(); }
    [[nodiscard]] double kdtree_get_pt(std::size_t index, std::size_t axis) const
    {
        auto const& point = m_points[index];
        return axis == 0 ? point.x : axis == 1 ? point.y : point.z;
    }
    template <class Box>
    bool kdtree_get_bbox(Box&) const
    {
        return false;
    }
};

/// Ends the search of the tree at the first point that is near.
struct FirstNear {
    bool m_found = false;

    [[nodiscard]] bool full() const { return true; }
    [[nodiscard]] double worstDist() const { return kTolerance * kTolerance; }
    bool addPoint(double squaredDistance, std::size_t)
    {
        m_found = m_found || squaredDistance < worstDist();
        return !m_found;
    }
};

class KdTree {
public:
    explicit KdTree(KFRDouble3DPointSequence const& points) : m_cloud{points}, m_index(3, m_cloud)
    {
    }

    [[nodiscard]] bool find(KFRDouble3DPoint const& p) const
    {
        FirstNear near;
        std::array const place{p.x, p.y, p.z};
        m_index.findNeighbors(near, place.data(), nanoflann::SearchParams());
        return near.m_found;
    }

private:
    Cloud m_cloud;
    nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Cloud>, Cloud, 3>
        m_index;
};

template <class Find>
std::size_t countFound(KFRDouble3DPointSequence const& queries, Find&& find)
{
    std::size_t found = 0;
    for (KFRDouble3DPoint const& query : queries) {
        found += find(query) ? 1 : 0;
    }
    return found;
}

KFRDouble3DPointSequence cloudOf(std::size_t count, std::mt19937_64& random)
{
    std::uniform_real_distribution<double> place(0.0, kExtent);
    KFRDouble3DPointSequence points;
    points.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        points.append({place(random), place(random), place(random)});
    }
    return points;
}

/// Half of the queries are points of the cloud, moved by less than the tolerance.
KFRDouble3DPointSequence queriesFor(KFRDouble3DPointSequence const& points, std::mt19937_64& random)
{
    std::uniform_real_distribution<double> place(0.0, kExtent);
    std::uniform_real_distribution<double> step(-kTolerance / 2, kTolerance / 2);
    KFRDouble3DPointSequence queries;
    for (std::size_t i = 0; i < kQueries; ++i) {
        auto const& point = points[random() % points.size()];
        queries.append(i % 2 == 0 ? KFRDouble3DPoint{point.x + step(random), point.y + step(random),
                                                     point.z + step(random)}
                                  : KFRDouble3DPoint{place(random), place(random), place(random)});
    }
    return queries;
}

void compare(Ratios& ratios, std::size_t count, int depth)
{
    std::mt19937_64 random(count);
    auto const points = cloudOf(count, random);
    auto const queries = queriesFor(points, random);

    OctreeManager octree(depth);
    octree.create(points);
    HashGrid const grid(points);
    KdTree const kdTree(points);
    auto const askOctree = [&] {
        keep(countFound(queries, [&](auto const& p) { return octree.find(p, kTolerance); }));
    };
    std::string const title =
        "find, " + std::to_string(count) + " points, depth " + std::to_string(depth);
    ratios.compare((title + ", hash grid").c_str(), 0.5, askOctree,
                   [&] { keep(countFound(queries, [&](auto const& p) { return grid.find(p); })); });
    ratios.compare((title + ", k-d tree").c_str(), 0.5, askOctree, [&] {
        keep(countFound(queries, [&](auto const& p) { return kdTree.find(p); }));
    });
    // The tree may miss a neighbour across a cell face; here those are about one in a thousand.
    auto const found =
        countFound(queries, [&](auto const& p) { return octree.find(p, kTolerance); });
    auto const expected = countFound(queries, [&](auto const& p) { return grid.find(p); });
    if (found > expected || found < expected - expected / 100) {
        std::printf("the answers differ: %zu, %zu\n", found, expected);
        std::exit(2);
    }
}

void compareCreate(Ratios& ratios, std::size_t count, int depth)
{
    std::mt19937_64 random(count);
    auto const points = cloudOf(count, random);
    std::string const title =
        "create, " + std::to_string(count) + " points, depth " + std::to_string(depth);
    ratios.compare(
        title.c_str(), 0.5,
        [&] {
            OctreeManager made(depth);
            made.create(points);
            keep(made);
        },
        [&] {
            HashGrid const made(points);
            keep(made);
        });
}

}  // namespace

int main()
{
    Ratios ratios;
    compare(ratios, 10000, 5);
    compare(ratios, 100000, 5);
    // A leaf for every four points; at the default depth a leaf would have thirty.
    compare(ratios, 1000000, 6);
    compareCreate(ratios, 1000000, 5);
    return ratios.exitStatus();
}
