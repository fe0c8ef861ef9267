#include "plugins/modelingplugin/utilities/numerics/octreemanager.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace vrn::orlo::plugin::modeling {

namespace {

/// How far the halves of a cell reach beyond it and beyond its centre plane. Does not scale.
constexpr double kMargin = 0.1;

/// Room of a leaf at its first insertion after create. A power of two.
constexpr unsigned kMovedRoom = 4;

/// Points between asking for a point's place in memory and filling it.
constexpr unsigned kPointsAhead = 24;

constexpr double kHighest = std::numeric_limits<double>::max();
constexpr double kLowest = std::numeric_limits<double>::lowest();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

double mean(double min, double max)
{
    return (min + max) / 2;
}

/// The "else" is meant: what lowers `min` is not looked at for `max`.
void extend(double coordinate, double& min, double& max)
{
    if (coordinate < min) {
        min = coordinate;
    } else if (coordinate > max) {
        max = coordinate;
    }
}

/// Number of cells in the levels above `level`.
std::size_t cellsAbove(int level)
{
    return ((std::size_t{1} << 3 * level) - 1) / 7;
}

/// The mean planes of a cell and of all below it, from the lowest to the highest.
void appendMeans(double min, double max, int levels, std::vector<double>& means)
{
    if (levels > 0) {
        double const middle = mean(min, max);
        appendMeans(min, middle, levels - 1, means);
        means.push_back(middle);
        appendMeans(middle, max, levels - 1, means);
    }
}

}  // namespace

// --- one axis ------------------------------------------------------------------------------------

void OctreeManager::Axis::build(double min, double max, int levels)
{
    m_min = min;
    m_max = max;
    m_levels = levels;
    m_limits.clear();
    // Half the largest double, so that no mean of two bounds overflows.
    if (!(min <= max) || !(min > kLowest / 2) || !(max < kHighest / 2)) {
        return;
    }
    // A cell's lower half takes all up to its mean plane and the margin, and what a parent's half
    // takes passes the outer bounds of the child. So beyond the root's own bounds the descent asks
    // only for `coordinate <= plane + margin`, a bisection over planes that ascend.
    m_reachLow = min - kMargin;
    m_reachHigh = max + kMargin;
    m_limits.push_back(-kInfinity);
    appendMeans(min, max, levels, m_limits);
    std::for_each(m_limits.begin() + 1, m_limits.end(), [](double& plane) { plane += kMargin; });
    m_limits.push_back(kInfinity);

    double const leaves = std::ldexp(1.0, levels);
    m_origin = min + kMargin;
    m_density = std::min(leaves / (max - min), kHighest);  // finite even for no extent
    m_last = leaves - 1.0;
}

inline bool OctreeManager::Axis::reaches(double coordinate) const
{
    return (coordinate >= m_reachLow) & (coordinate <= m_reachHigh);
}

inline unsigned OctreeManager::Axis::leafAt(double coordinate) const
{
    // The limits are equidistant but for rounding: guess, then let them decide.
    double const guess = (coordinate - m_origin) * m_density;
    unsigned const leaf =
        static_cast<unsigned>(static_cast<int>(std::max(0.0, std::min(guess, m_last))));
    double const* const limits = m_limits.data() + leaf;
    if ((limits[0] < coordinate) & (coordinate <= limits[1])) {
        return leaf;
    }
    return leafFrom(leaf, coordinate);
}

unsigned OctreeManager::Axis::leafFrom(unsigned guess, double coordinate) const
{
    while (guess > 0 && !(m_limits[guess] < coordinate)) {
        --guess;
    }
    while (m_limits[guess + 1] < coordinate) {
        ++guess;
    }
    return guess;
}

std::optional<unsigned> OctreeManager::Axis::leafUnder(int level, unsigned cell,
                                                       double coordinate) const
{
    auto [min, max] = boundsOf(level, cell);
    for (; level < m_levels; ++level) {
        double const middle = mean(min, max);
        if (coordinate >= min - kMargin && coordinate <= middle + kMargin) {
            max = middle;
            cell = 2 * cell;
        } else if (coordinate >= middle - kMargin && coordinate <= max + kMargin) {
            min = middle;
            cell = 2 * cell + 1;
        } else {
            return std::nullopt;
        }
    }
    return cell;
}

OctreeManager::Axis::Bounds OctreeManager::Axis::boundsOf(int level, unsigned cell) const
{
    Bounds bounds{m_min, m_max};
    while (level-- > 0) {
        bool const isUpper = (cell >> level & 1U) != 0;
        (isUpper ? bounds.m_min : bounds.m_max) = mean(bounds.m_min, bounds.m_max);
    }
    return bounds;
}

// --- building ------------------------------------------------------------------------------------

OctreeManager::OctreeManager(int depth, int other) : m_depth(depth), m_other(other)
{
}

OctreeManager::~OctreeManager() = default;

OctreeManager::OctreeError OctreeManager::getBoundingBox(KFRDouble3DPointSequence const& points,
                                                         KFRDouble3DPoint& min,
                                                         KFRDouble3DPoint& max)
{
    KFRDouble3DPoint low{kHighest, kHighest, kHighest};
    KFRDouble3DPoint high{kLowest, kLowest, kLowest};
    for (KFRDouble3DPoint const& point : points) {
        extend(point.x, low.x, high.x);
        extend(point.y, low.y, high.y);
        extend(point.z, low.z, high.z);
    }
    min = low;
    max = high;
    return success;
}

OctreeManager::OctreeError OctreeManager::create(KFRDouble3DPointSequence const& points)
{
    if (m_depth > kMaxDepth) {
        throw std::length_error("OctreeManager: the depth is too large");
    }
    KFRDouble3DPoint min;
    KFRDouble3DPoint max;
    getBoundingBox(points, min, max);
    makeCells(min, max);
    return fillLeaves(points);
}

void OctreeManager::makeCells(KFRDouble3DPoint const& min, KFRDouble3DPoint const& max)
{
    m_nodes.reset();
    m_leaves.clear();
    m_points.reset();
    m_pointCount = 0;
    m_movedPoints.clear();
    m_hasStrays = false;

    m_levels = std::max(m_depth, 1);
    m_axes[0].build(min.x, max.x, m_levels);
    m_axes[1].build(min.y, max.y, m_levels);
    m_axes[2].build(min.z, max.z, m_levels);
    m_isOrdinary = std::all_of(m_axes.begin(), m_axes.end(),
                               [](Axis const& axis) { return axis.isOrdinary(); });
    m_leaves.resize(std::size_t{1} << 3 * m_levels);

    std::unique_ptr<OctreeNode[]> nodes(new OctreeNode[cellsAbove(m_levels + 1)]);
    OctreeNode* node = nodes.get();
    for (int level = 0; level <= m_levels; ++level) {
        for (unsigned cell = 0; cell < 1U << 3 * level; ++cell, ++node) {
            node->m_tree = this;
            node->m_level = level;
            node->m_cell = cell;
        }
    }
    m_nodes = std::move(nodes);
}

OctreeManager::OctreeError OctreeManager::fillLeaves(KFRDouble3DPointSequence const& points)
{
    // Counted first, so that every leaf gets its place in the one array.
    auto const leafOfPoint = std::make_unique_for_overwrite<unsigned[]>(points.size());
    KFRDouble3DPoint const* const source = points.data();
    std::size_t const count = points.size();
    unsigned placed = 0;
    for (; placed < count; ++placed) {
        std::size_t const leaf = leafOf(source[placed]);
        if (leaf == kNoLeaf) {
            break;
        }
        leafOfPoint[placed] = static_cast<unsigned>(leaf);
        ++m_leaves[leaf].m_size;
    }
    unsigned begin = 0;
    for (Leaf& leaf : m_leaves) {
        leaf.m_begin = begin;
        begin += leaf.m_size;
    }
    m_points = std::make_unique_for_overwrite<Place[]>(placed);
    m_pointCount = placed;
    Place* const places = m_points.get();
    Leaf* const leaves = m_leaves.data();
    auto const put = [&](unsigned i) {
        // Moves the leaf's begin on, for the time being, to where its next point goes.
        places[leaves[leafOfPoint[i]].m_begin++] = {source[i].x, source[i].y, source[i].z};
    };
    unsigned const early = placed - std::min(placed, kPointsAhead);
    for (unsigned i = 0; i < early; ++i) {
        // The places are all over the array: ask for one some points ahead.
        __builtin_prefetch(places + leaves[leafOfPoint[i + kPointsAhead]].m_begin, 1);
        put(i);
    }
    for (unsigned i = early; i < placed; ++i) {
        put(i);
    }
    for (Leaf& leaf : m_leaves) {
        leaf.m_begin -= leaf.m_size;
    }
    return placed == points.size() ? success : pointOutside;
}

void OctreeManager::append(Leaf& leaf, KFRDouble3DPoint const& p)
{
    // Where create has put it, a leaf is full.
    bool const isFull = leaf.m_begin < m_pointCount || leaf.m_size == 0 ||
                        (leaf.m_size >= kMovedRoom && std::has_single_bit(leaf.m_size));
    if (isFull) {
        std::size_t const begin = m_movedPoints.size();
        std::size_t const room = std::max(kMovedRoom, std::bit_ceil(leaf.m_size + 1));
        if (begin + room > std::numeric_limits<unsigned>::max() - m_pointCount) {
            throw std::length_error("OctreeManager: too many points");
        }
        m_movedPoints.resize(begin + room);
        std::copy_n(pointsOf(leaf), leaf.m_size, m_movedPoints.data() + begin);
        leaf.m_begin = m_pointCount + static_cast<unsigned>(begin);
    }
    m_movedPoints[leaf.m_begin - m_pointCount + leaf.m_size++] = {p.x, p.y, p.z};
}

OctreeManager::OctreeError OctreeManager::insertPoint(KFRDouble3DPoint const& p, OctreeNode* node)
{
    std::size_t const leaf = node != nullptr ? leafUnder(p, *node) : kNoLeaf;
    if (leaf == kNoLeaf) {
        return pointOutside;
    }
    append(m_leaves[leaf], p);
    m_hasStrays = m_hasStrays || leafOf(p) != leaf;
    return success;
}

// --- asking --------------------------------------------------------------------------------------

inline std::size_t OctreeManager::leafOf(KFRDouble3DPoint const& p) const
{
    if (!m_isOrdinary) {
        return leafUnder(p, *root());
    }
    if (!(m_axes[0].reaches(p.x) & m_axes[1].reaches(p.y) & m_axes[2].reaches(p.z))) {
        return kNoLeaf;
    }
    return leafNumber(m_axes[0].leafAt(p.x), m_axes[1].leafAt(p.y), m_axes[2].leafAt(p.z));
}

std::size_t OctreeManager::leafUnder(KFRDouble3DPoint const& p, OctreeNode const& node) const
{
    auto const cell = node.cell();
    auto const x = m_axes[0].leafUnder(node.m_level, cell[0], p.x);
    auto const y = m_axes[1].leafUnder(node.m_level, cell[1], p.y);
    auto const z = m_axes[2].leafUnder(node.m_level, cell[2], p.z);
    return x && y && z ? leafNumber(*x, *y, *z) : kNoLeaf;
}

inline bool OctreeManager::leafHolds(std::size_t leaf, KFRDouble3DPoint const& p,
                                     double squaredTolerance) const
{
    Place const* const first = pointsOf(m_leaves[leaf]);
    Place const* const last = first + m_leaves[leaf].m_size;
    // Which point is near cannot be foreseen, and a leaf has few: batches are scanned without a
    // jump.
    constexpr std::ptrdiff_t kBatch = 16;
    for (Place const* held = first; held != last;) {
        Place const* const end = held + std::min(kBatch, last - held);
        bool isNear = false;
        for (; held != end; ++held) {
            double const dx = held->x - p.x;
            double const dy = held->y - p.y;
            double const dz = held->z - p.z;
            isNear |= dx * dx + dy * dy + dz * dz < squaredTolerance;
        }
        if (isNear) {
            return true;
        }
    }
    return false;
}

inline OctreeManager::OctreeError OctreeManager::findFrom(std::size_t leaf,
                                                          KFRDouble3DPoint const& p,
                                                          double tolerance) const
{
    if (leaf == kNoLeaf) {
        return pointOutside;
    }
    return leafHolds(leaf, p, tolerance * tolerance) ? success : notFound;
}

OctreeManager::OctreeError OctreeManager::find(KFRDouble3DPoint const& p, double tolerance,
                                               OctreeNode const* node) const
{
    return node != nullptr ? findFrom(leafUnder(p, *node), p, tolerance) : notFound;
}

bool OctreeManager::find(KFRDouble3DPoint const& p, double tolerance) const
{
    return root() != nullptr && findFrom(leafOf(p), p, tolerance) == success;
}

bool OctreeManager::search(KFRDouble3DPoint const& p, double tolerance,
                           OctreeNode const* node) const
{
    if (node == nullptr) {
        return false;
    }
    struct Range {
        unsigned m_first;
        unsigned m_last;
    };
    std::array<Range, 3> ranges;
    auto const cell = node->cell();
    std::array const coordinates{p.x, p.y, p.z};
    int const levelsBelow = m_levels - node->m_level;
    for (std::size_t i = 0; i < 3; ++i) {
        Range range{cell[i] << levelsBelow, ((cell[i] + 1) << levelsBelow) - 1};
        if (m_axes[i].isOrdinary() && !m_hasStrays) {
            // Rounding is monotonic: a coordinate outside of this interval makes a difference of at
            // least the tolerance, whose square alone fails the test. So no leaf is left out that
            // would have answered.
            double const low = coordinates[i] - std::fabs(tolerance);
            double const high = coordinates[i] + std::fabs(tolerance);
            if (!(low <= high)) {
                return false;  // a NaN is near nothing
            }
            range.m_first = std::max(range.m_first, m_axes[i].leafAt(std::max(low, kLowest)));
            range.m_last = std::min(range.m_last, m_axes[i].leafAt(std::min(high, kHighest)));
        }
        ranges[i] = range;
    }
    double const squaredTolerance = tolerance * tolerance;
    for (unsigned x = ranges[0].m_first; x <= ranges[0].m_last; ++x) {
        for (unsigned y = ranges[1].m_first; y <= ranges[1].m_last; ++y) {
            for (unsigned z = ranges[2].m_first; z <= ranges[2].m_last; ++z) {
                if (leafHolds(leafNumber(x, y, z), p, squaredTolerance)) {
                    return true;
                }
            }
        }
    }
    return false;
}

bool OctreeManager::searchAll(KFRDouble3DPoint const& p, double tolerance) const
{
    return search(p, tolerance, root());
}

}  // namespace vrn::orlo::plugin::modeling
