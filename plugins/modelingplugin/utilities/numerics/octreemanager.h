/// \file
/// Point octree: whether a set of points holds one near a place.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace vrn::orlo::plugin::modeling {

/// Answers whether a given set of points holds a point within a distance of another one.
///
/// A tree of fixed depth over the box of the points: every cell is split at its centre, and only
/// leaves hold points. The halves of a cell reach 0.1 beyond the cell and its centre plane on each
/// side, inclusive, and the children are tried in the order 4, 0, 7, 3, 5, 1, 6, 2: the lower half
/// of x before the upper one, within it that of y, within it that of z. So a point up to 0.1 above
/// a centre plane goes below it. The margin is absolute and the same at every level, on purpose: in
/// a model of very small extent everything lands in child 4, over and over.
///
/// The order makes the three axes independent, and so the tree is stored flat: an axis maps a
/// coordinate to the leaf's number on it, the leaves stand in one array, and so do their points.
///
/// Units      Coordinates, tolerances and the margin: model units.
/// Shape      8^depth leaves, 8 for a depth of 1 or below.
/// Order      Points of a leaf as they were inserted.
/// Failure    An OctreeError, or false. Before create there is no tree: insertPoint answers
///            pointOutside, find notFound. A NaN is outside every cell. A depth above kMaxDepth
///            throws std::length_error in create.
/// Ownership  Copies the points. Nodes are the tree's and last until the next create.
/// Threads    Const operations may run on several threads while nothing is inserted.
/// Cost       create: linear in points and leaves. find: three look-ups and the scan of one leaf,
///            whatever the depth. search: the scan of the leaves that reach into the tolerance.
class MODELING_API OctreeManager {
public:
    class OctreeNode;

    enum OctreeError : int {
        success = 0,
        pointOutside = 2,  ///< The point lies outside a cell; no leaf was looked at.
        notFound = 4,      ///< A leaf was reached, and has no point near.
    };

    /// Largest depth of a tree: 2^30 leaves.
    static constexpr int kMaxDepth = 10;

    /// \param other  kept, and read by no operation.
    explicit OctreeManager(int depth = 5, int other = 5);
    ~OctreeManager();
    OctreeManager(OctreeManager const&) = delete;
    OctreeManager& operator=(OctreeManager const&) = delete;

    /// Builds the tree from the points, in place of the one there was. The first point that cannot
    /// be placed ends the loop; those before it stay. As the box may be inverted (see
    /// getBoundingBox), that can be the first point.
    OctreeError create(KFRDouble3DPointSequence const& points);

    /// Puts a point into a leaf under `node`; into `node` itself, untested, when that is a leaf.
    OctreeError insertPoint(KFRDouble3DPoint const& p, OctreeNode* node);

    /// Looks for a point strictly nearer than the tolerance in the one leaf under `node` that the
    /// point descends to. Can miss a neighbour across a cell face. Squares are compared: tolerance
    /// 0 finds nothing, not even an exact match, and a negative one works like its magnitude.
    OctreeError find(KFRDouble3DPoint const& p, double tolerance, OctreeNode const* node) const;

    /// The same from the root; true for success.
    [[nodiscard]] bool find(KFRDouble3DPoint const& p, double tolerance) const;

    /// Looks for a point strictly nearer than the tolerance in all leaves under `node`, by the test
    /// of find. Misses none, and the point itself may lie anywhere.
    [[nodiscard]] bool search(KFRDouble3DPoint const& p, double tolerance,
                              OctreeNode const* node) const;

    /// The same from the root.
    [[nodiscard]] bool searchAll(KFRDouble3DPoint const& p, double tolerance) const;

    /// Box of the points, from the largest double for `min` and the lowest for `max`. Always 0.
    ///
    /// A coordinate that lowers `min` never raises `max`, on purpose: with one point, or with
    /// coordinates that only fall, `max` stays at its start and the box is inverted on that axis.
    static OctreeError getBoundingBox(KFRDouble3DPointSequence const& points, KFRDouble3DPoint& min,
                                      KFRDouble3DPoint& max);

    [[nodiscard]] int depth() const { return m_depth; }
    [[nodiscard]] int other() const { return m_other; }

    /// Null before create.
    [[nodiscard]] OctreeNode* root() const { return m_nodes.get(); }

private:
    /// One axis: the cells' bounds, and which leaf a coordinate descends to.
    class Axis {
    public:
        void build(double min, double max, int levels);

        /// False for an inverted box and for one so large that means overflow. There the descent
        /// has to be walked cell by cell; else the operations that say so find the leaf at once.
        [[nodiscard]] bool isOrdinary() const { return !m_limits.empty(); }

        /// Whether the root holds the coordinate. Ordinary bounds only.
        [[nodiscard]] bool reaches(double coordinate) const;

        /// Number of the leaf that takes the coordinate, were the first and the last leaf without
        /// end. Ordinary bounds only.
        [[nodiscard]] unsigned leafAt(double coordinate) const;

        /// Number of the leaf that the coordinate descends to from a cell of a level; nothing when
        /// a cell on the way does not hold it.
        [[nodiscard]] std::optional<unsigned> leafUnder(int level, unsigned cell,
                                                        double coordinate) const;

        struct Bounds {
            double m_min;
            double m_max;
        };
        [[nodiscard]] Bounds boundsOf(int level, unsigned cell) const;

    private:
        [[nodiscard]] unsigned leafFrom(unsigned guess, double coordinate) const;

        double m_reachLow = 0.0;  // the bounds with the margin
        double m_reachHigh = 0.0;
        double m_origin = 0.0;   // where the leaves would begin if all were equally wide, their
        double m_density = 0.0;  // number per unit, and the number of the last: for a guess
        double m_last = 0.0;
        std::vector<double> m_limits;  // leaf k holds the coordinates above [k] up to [k + 1]
        double m_min = 0.0;
        double m_max = 0.0;
        int m_levels = 0;
    };

    static constexpr std::size_t kNoLeaf = ~std::size_t{0};

    struct Leaf {
        unsigned m_begin = 0;  // in m_points; above its end, in m_movedPoints
        unsigned m_size = 0;
    };
    struct Place {  // a point without initial values: a million of them cost time
        double x, y, z;
    };

    [[nodiscard]] std::size_t leafOf(KFRDouble3DPoint const& p) const;
    [[nodiscard]] std::size_t leafUnder(KFRDouble3DPoint const& p, OctreeNode const& node) const;
    [[nodiscard]] OctreeError findFrom(std::size_t leaf, KFRDouble3DPoint const& p,
                                       double tolerance) const;
    [[nodiscard]] bool leafHolds(std::size_t leaf, KFRDouble3DPoint const& p,
                                 double squaredTolerance) const;
    [[nodiscard]] Place const* pointsOf(Leaf const& leaf) const
    {
        return leaf.m_begin < m_pointCount ? m_points.get() + leaf.m_begin
                                           : m_movedPoints.data() + (leaf.m_begin - m_pointCount);
    }
    [[nodiscard]] std::size_t leafNumber(unsigned x, unsigned y, unsigned z) const
    {
        return ((std::size_t{x} << m_levels | y) << m_levels) | z;
    }
    void makeCells(KFRDouble3DPoint const& min, KFRDouble3DPoint const& max);
    OctreeError fillLeaves(KFRDouble3DPointSequence const& points);
    void append(Leaf& leaf, KFRDouble3DPoint const& p);

    int m_depth;
    int m_other;
    std::unique_ptr<OctreeNode[]> m_nodes;  // level after level from the root
    int m_levels = 0;                       // below the root
    std::array<Axis, 3> m_axes;
    std::vector<Leaf> m_leaves;  // by number on x, then y, then z
    // The points of create, leaf after leaf. A leaf that gets more moves to the second array, where
    // it has room for a power of two.
    std::unique_ptr<Place[]> m_points;
    unsigned m_pointCount = 0;
    std::vector<Place> m_movedPoints;
    bool m_isOrdinary = false;  // all axes are
    // A point was put where the descent from the root would not have taken it: search can then not
    // tell from a leaf's place what it holds.
    bool m_hasStrays = false;
};

/// A cell of the tree.
///
/// Child      0      1      2      3      4      5      6      7
///   x        lower  upper  upper  lower  lower  upper  upper  lower
///   y        lower  lower  upper  upper  lower  lower  upper  upper
///   z        upper  upper  upper  upper  lower  lower  lower  lower
///
/// Units      Model units.
/// Ownership  The tree's. parent() of the root and the children of a leaf are null.
/// Cost       Corners: the depth of the cell. points(): a copy.
class MODELING_API OctreeManager::OctreeNode {
public:
    [[nodiscard]] OctreeNode* parent() const;
    /// Null in a leaf, and for an index outside 0 to 7.
    [[nodiscard]] OctreeNode* child(int index) const;
    [[nodiscard]] bool isLeaf() const { return m_level == m_tree->m_levels; }
    [[nodiscard]] KFRDouble3DPoint min() const;
    [[nodiscard]] KFRDouble3DPoint max() const;
    /// Mean of min and max on each axis.
    [[nodiscard]] KFRDouble3DPoint centre() const;
    /// Points of a leaf; none for an inner cell.
    [[nodiscard]] KFRDouble3DPointSequence points() const;

private:
    friend class OctreeManager;
    OctreeNode() = default;

    [[nodiscard]] std::array<unsigned, 3> cell() const;
    [[nodiscard]] OctreeNode* nodeAt(int level, std::array<unsigned, 3> const& cell) const;

    OctreeManager const* m_tree = nullptr;
    int m_level = 0;      // 0 is the root
    unsigned m_cell = 0;  // within the level; m_level bits each of x, y and z
};

}  // namespace vrn::orlo::plugin::modeling
