#include "plugins/modelingplugin/utilities/numerics/octreemanager.h"

namespace vrn::orlo::plugin::modeling {

namespace {

/// Which half of each axis a child takes; 1 is the upper one.
constexpr std::array<std::array<unsigned, 3>, 8> kHalves{{
    {0, 0, 1},
    {1, 0, 1},
    {1, 1, 1},
    {0, 1, 1},
    {0, 0, 0},
    {1, 0, 0},
    {1, 1, 0},
    {0, 1, 0},
}};

}  // namespace

std::array<unsigned, 3> OctreeManager::OctreeNode::cell() const
{
    unsigned const mask = (1U << m_level) - 1;
    return {m_cell >> 2 * m_level, m_cell >> m_level & mask, m_cell & mask};
}

OctreeManager::OctreeNode* OctreeManager::OctreeNode::nodeAt(
    int level, std::array<unsigned, 3> const& cell) const
{
    std::size_t const above = ((std::size_t{1} << 3 * level) - 1) / 7;
    std::size_t const within = (((cell[0] << level) | cell[1]) << level) | cell[2];
    return m_tree->root() + above + within;
}

OctreeManager::OctreeNode* OctreeManager::OctreeNode::parent() const
{
    if (m_level == 0) {
        return nullptr;
    }
    auto const [x, y, z] = cell();
    return nodeAt(m_level - 1, {x / 2, y / 2, z / 2});
}

OctreeManager::OctreeNode* OctreeManager::OctreeNode::child(int index) const
{
    if (isLeaf() || index < 0 || index >= static_cast<int>(kHalves.size())) {
        return nullptr;
    }
    auto const [x, y, z] = cell();
    auto const& half = kHalves[static_cast<std::size_t>(index)];
    return nodeAt(m_level + 1, {2 * x + half[0], 2 * y + half[1], 2 * z + half[2]});
}

KFRDouble3DPoint OctreeManager::OctreeNode::min() const
{
    auto const [x, y, z] = cell();
    auto const& axes = m_tree->m_axes;
    return {axes[0].boundsOf(m_level, x).m_min, axes[1].boundsOf(m_level, y).m_min,
            axes[2].boundsOf(m_level, z).m_min};
}

KFRDouble3DPoint OctreeManager::OctreeNode::max() const
{
    auto const [x, y, z] = cell();
    auto const& axes = m_tree->m_axes;
    return {axes[0].boundsOf(m_level, x).m_max, axes[1].boundsOf(m_level, y).m_max,
            axes[2].boundsOf(m_level, z).m_max};
}

KFRDouble3DPoint OctreeManager::OctreeNode::centre() const
{
    KFRDouble3DPoint const low = min();
    KFRDouble3DPoint const high = max();
    return {(low.x + high.x) / 2, (low.y + high.y) / 2, (low.z + high.z) / 2};
}

KFRDouble3DPointSequence OctreeManager::OctreeNode::points() const
{
    if (!isLeaf()) {
        return {};
    }
    auto const [x, y, z] = cell();
    Leaf const& leaf = m_tree->m_leaves[m_tree->leafNumber(x, y, z)];
    KFRDouble3DPointSequence points;
    points.reserve(leaf.m_size);
    for (Place const* place = m_tree->pointsOf(leaf); points.size() < leaf.m_size; ++place) {
        points.append({place->x, place->y, place->z});
    }
    return points;
}

}  // namespace vrn::orlo::plugin::modeling
