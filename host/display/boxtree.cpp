#include "host/display/boxtree.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vrn::orlo::host::display {

namespace {

constexpr std::uint32_t kLeafSize = 4;

double middleOf(Box const& box, std::size_t axis)
{
    return box.m_low[axis] + box.m_high[axis];  // twice, which orders alike
}

}  // namespace

BoxCrossing::BoxCrossing(Ray const& ray) noexcept : m_ray(ray)
{
    for (std::size_t i = 0; i < 3; ++i) {
        m_inverse[i] = 1.0 / ray.m_direction[i];
    }
}

bool BoxCrossing::meets(Box const& box, double deepest) const noexcept
{
    double from = 0.0;
    double to = deepest;
    for (std::size_t i = 0; i < 3; ++i) {
        if (m_ray.m_direction[i] == 0.0) {
            // 0 times infinity would let the box go that the ray slides along.
            if (!(m_ray.m_origin[i] >= box.m_low[i] && m_ray.m_origin[i] <= box.m_high[i])) {
                return false;
            }
            continue;
        }
        double one = (box.m_low[i] - m_ray.m_origin[i]) * m_inverse[i];
        double other = (box.m_high[i] - m_ray.m_origin[i]) * m_inverse[i];
        if (m_inverse[i] < 0.0) {
            std::swap(one, other);
        }
        from = std::max(from, one);
        to = std::min(to, other);
    }
    return from <= to && !box.isEmpty();
}

BoxTree::BoxTree(std::vector<Box> const& boxes)
{
    for (std::uint32_t i = 0; i < boxes.size(); ++i) {
        if (!boxes[i].isEmpty()) {
            m_order.push_back(i);
        }
    }
    build(boxes, 0, static_cast<std::uint32_t>(m_order.size()));
}

void BoxTree::build(std::vector<Box> const& boxes, std::uint32_t first, std::uint32_t count)
{
    std::size_t const self = m_nodes.size();
    m_nodes.emplace_back();
    Box all;
    Box middles;
    for (std::uint32_t i = first; i < first + count; ++i) {
        Box const& box = boxes[m_order[i]];
        all.add(box);
        middles.add(Vector{middleOf(box, 0), middleOf(box, 1), middleOf(box, 2)});
    }
    m_nodes[self].m_box = all;
    if (count <= kLeafSize) {
        m_nodes[self].m_first = first;
        m_nodes[self].m_count = count;
        return;
    }
    Vector const spread = difference(middles.m_high, middles.m_low);
    auto const axis =
        static_cast<std::size_t>(std::max_element(spread.begin(), spread.end()) - spread.begin());
    std::uint32_t const half = count / 2;
    auto const begin = m_order.begin() + first;
    std::nth_element(begin, begin + half, begin + count, [&](std::uint32_t a, std::uint32_t b) {
        return middleOf(boxes[a], axis) < middleOf(boxes[b], axis);
    });
    build(boxes, first, half);
    m_nodes[self].m_first = static_cast<std::uint32_t>(m_nodes.size());
    build(boxes, first + half, count - half);
}

}  // namespace vrn::orlo::host::display
