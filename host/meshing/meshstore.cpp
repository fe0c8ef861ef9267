#include "host/meshing/meshstore.h"

#include "host/meshing/names.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::host::meshing {

MeshSet const* findSet(std::vector<MeshSet> const& sets, std::string_view name) noexcept
{
    auto const found = std::find_if(sets.begin(), sets.end(), [name](MeshSet const& set) {
        return isSameName(set.m_name, name);
    });
    return found != sets.end() ? &*found : nullptr;
}

MeshStore::MeshStore(Content content) : m_content(std::move(content))
{
    for (Row const& row : m_content.m_rows) {
        ++m_counts[traitsOf(row.m_type).m_dimension];
    }
    if (m_content.m_bodies.empty()) {
        m_content.m_bodies.push_back({m_content.m_name, 0});
    }
    if (m_content.m_groups.empty()) {
        groupByDimension();
    }
    if (!m_content.m_positions.empty()) {
        m_box = {m_content.m_positions.front(), m_content.m_positions.front()};
    }
    for (Point const& point : m_content.m_positions) {
        for (std::size_t axis = 0; axis < point.size(); ++axis) {
            m_box.m_low[axis] = std::min(m_box.m_low[axis], point[axis]);
            m_box.m_high[axis] = std::max(m_box.m_high[axis], point[axis]);
        }
    }
}

void MeshStore::groupByDimension()
{
    std::array<std::uint16_t, 4> groups{};
    for (std::uint8_t dimension = 0; dimension < groups.size(); ++dimension) {
        if (m_counts[dimension] > 0) {
            groups[dimension] = static_cast<std::uint16_t>(m_content.m_groups.size());
            m_content.m_groups.push_back({0, dimension, 0, {}});
        }
    }
    for (Row& row : m_content.m_rows) {
        row.m_group = groups[traitsOf(row.m_type).m_dimension];
    }
}

EntityMesh const* MeshStore::meshOn(unsigned entity) const noexcept
{
    auto const found = std::lower_bound(
        m_content.m_entities.begin(), m_content.m_entities.end(), entity,
        [](EntityMesh const& row, unsigned wanted) { return row.m_entity < wanted; });
    return found != m_content.m_entities.end() && found->m_entity == entity ? &*found : nullptr;
}

std::span<LocalNumber const> MeshStore::nodesOf(LocalNumber element) const
{
    Row const& found = row(element);
    return std::span(m_content.m_connectivity)
        .subspan(found.m_firstNode, traitsOf(found.m_type).m_nodeCount);
}

std::vector<LocalNumber> MeshStore::elementsOf(std::uint8_t dimension) const
{
    std::vector<LocalNumber> numbers;
    numbers.reserve(countOf(dimension));
    for (LocalNumber number = 1; number <= m_content.m_rows.size(); ++number) {
        if (traitsOf(typeOf(number)).m_dimension == dimension) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

}  // namespace vrn::orlo::host::meshing
