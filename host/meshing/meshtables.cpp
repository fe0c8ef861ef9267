#include "host/meshing/meshtables.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace vrn::orlo::host::meshing {

namespace {

/// Makes rows of items from pairs, in the order of the pairs.
/// \param each  calls what it is given with the row and the item of each pair; called twice
template <class T, class Each>
Rows<T> gather(std::size_t rowCount, Each const& each)
{
    Rows<T> rows;
    rows.m_first.assign(rowCount + 1, 0);
    each([&rows](std::size_t row, T const&) { ++rows.m_first[row + 1]; });
    std::partial_sum(rows.m_first.begin(), rows.m_first.end(), rows.m_first.begin());
    rows.m_items.resize(rows.m_first.back());
    // Where a row begins serves as the place of its next item meanwhile, which leaves there where
    // the next row begins.
    each([&rows](std::size_t row, T const& item) { rows.m_items[rows.m_first[row]++] = item; });
    std::shift_right(rows.m_first.begin(), rows.m_first.end(), 1);
    rows.m_first.front() = 0;
    return rows;
}

}  // namespace

std::span<LocalNumber const> MeshTables::elementsAt(LocalNumber node) const
{
    if (node == 0) {
        return {};
    }
    return m_elementsByNode.get([this] { return nodeRows(); }).of(std::size_t{node} - 1);
}

MeshTables::NumberRows MeshTables::nodeRows() const
{
    return gather<LocalNumber>(m_store->nodes().size(), [this](auto const& take) {
        for (LocalNumber element = 1; element <= m_store->elements().size(); ++element) {
            auto const nodes = m_store->nodesOf(element);
            for (auto node = nodes.begin(); node != nodes.end(); ++node) {
                // A collapsed element has a node twice, and a node it once.
                if (std::find(nodes.begin(), node, *node) == node) {
                    take(std::size_t{*node} - 1, element);
                }
            }
        }
    });
}

MeshTables::NumberRows const& MeshTables::byGroup() const
{
    return m_elementsByGroup.get([this] { return groupRows(); });
}

MeshTables::NumberRows MeshTables::groupRows() const
{
    return gather<LocalNumber>(m_store->groups().size(), [this](auto const& take) {
        for (LocalNumber element = 1; element <= m_store->elements().size(); ++element) {
            take(m_store->groupOf(element), element);
        }
    });
}

std::span<LocalNumber const> MeshTables::elementsOfGroup(MeshIndex group) const
{
    return byGroup().of(group);
}

std::vector<LocalNumber> MeshTables::elementsOfGroups(std::span<MeshIndex const> groups) const
{
    std::vector<LocalNumber> elements;
    for (MeshIndex const group : groups) {
        auto const more = elementsOfGroup(group);
        elements.insert(elements.end(), more.begin(), more.end());
    }
    if (!std::is_sorted(elements.begin(), elements.end())) {
        std::sort(elements.begin(), elements.end());
    }
    return elements;
}

std::vector<MeshIndex> MeshTables::groupsOf(MeshIndex body) const
{
    std::vector<MeshIndex> found;
    auto const& groups = m_store->groups();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        auto const index = static_cast<MeshIndex>(group);
        if (groups[group].m_body == body && !elementsOfGroup(index).empty()) {
            found.push_back(index);
        }
    }
    return found;
}

std::vector<MeshIndex> MeshTables::groupsOn(unsigned entity) const
{
    auto const& all = m_groupsByEntity.get([this] { return entityGroups(); });
    std::vector<MeshIndex> found;
    if (entity != 0) {
        for (auto row = std::lower_bound(all.begin(), all.end(), EntityGroup{entity, MeshIndex{0}});
             row != all.end() && row->first == entity; ++row) {
            found.push_back(row->second);
        }
    }
    return found;
}

std::vector<MeshTables::EntityGroup> MeshTables::entityGroups() const
{
    std::vector<EntityGroup> rows;
    auto const& groups = m_store->groups();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        auto const index = static_cast<MeshIndex>(group);
        if (groups[group].m_entity != 0 && !elementsOfGroup(index).empty()) {
            rows.emplace_back(groups[group].m_entity, index);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::span<LocalNumber const> MeshTables::nodesOfBody(MeshIndex body) const
{
    return m_nodesByBody.get([this] { return bodyNodeRows(); }).of(body);
}

MeshTables::NumberRows MeshTables::bodyNodeRows() const
{
    NumberRows rows;
    rows.m_first.push_back(0);
    std::vector<LocalNumber>& items = rows.m_items;
    if (m_store->bodies().size() == 1) {
        items.resize(m_store->nodes().size());
        std::iota(items.begin(), items.end(), LocalNumber{1});
        rows.m_first.push_back(m_store->nodes().size());
        return rows;
    }
    std::vector<std::vector<MeshIndex>> groups(m_store->bodies().size());
    for (std::size_t group = 0; group < m_store->groups().size(); ++group) {
        groups.at(m_store->groups()[group].m_body).push_back(static_cast<MeshIndex>(group));
    }
    std::vector<std::uint32_t> seenBy(std::size_t{m_store->nodes().size()} + 1, 0);
    for (std::size_t body = 0; body < groups.size(); ++body) {
        std::size_t const first = items.size();
        for (MeshIndex const group : groups[body]) {
            for (LocalNumber const element : elementsOfGroup(group)) {
                for (LocalNumber const node : m_store->nodesOf(element)) {
                    if (std::exchange(seenBy[node], body + 1) != body + 1) {
                        items.push_back(node);
                    }
                }
            }
        }
        std::sort(items.begin() + static_cast<std::ptrdiff_t>(first), items.end());
        rows.m_first.push_back(static_cast<std::uint32_t>(items.size()));
    }
    items.shrink_to_fit();
    return rows;
}

std::span<ElementFace const> MeshTables::skinOfBody(MeshIndex body) const
{
    return m_skins.get([this] { return skinsOf(*m_store); }).of(body);
}

LocalNumber numberIn(Numbering const& numbering, unsigned long long id, bool flag) noexcept
{
    constexpr auto kLargest =
        static_cast<unsigned long long>(std::numeric_limits<ExternalId>::max());
    if (flag) {
        return id <= kLargest ? numbering.numberOf(static_cast<ExternalId>(id)) : 0;
    }
    return id <= numbering.size() ? static_cast<LocalNumber>(id) : 0;
}

}  // namespace vrn::orlo::host::meshing
