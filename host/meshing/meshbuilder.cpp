#include "host/meshing/meshbuilder.h"

#include "host/meshing/names.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

std::string labelOf(char const* what, ExternalId id)
{
    return std::string(what) + " " + std::to_string(id);
}

}  // namespace

MeshBuilder::SetIndex MeshBuilder::set(SetKind kind, std::string const& name)
{
    Sets& sets = setsOf(kind);
    auto const [row, isNew] =
        sets.m_byName.try_emplace(inCapitals(name), static_cast<SetIndex>(sets.m_sets.size()));
    if (isNew) {
        sets.m_sets.push_back({name, {}});
    }
    return row->second;
}

std::uint16_t MeshBuilder::typeName(std::string const& name)
{
    auto& names = m_content.m_typeNames;
    auto const found = std::find(names.begin(), names.end(), name);
    auto const index = static_cast<std::uint16_t>(found - names.begin());
    if (found == names.end()) {
        names.push_back(name);
    }
    return index;
}

void MeshBuilder::addNode(ExternalId id, Point const& position, SetIndex set, SourceLine line)
{
    m_nodeIds.push_back(id);
    m_nodeLines.push_back(line);
    m_content.m_positions.push_back(position);
    if (set != kNoSet) {
        setsOf(SetKind::nodes)
            .m_sets[set]
            .m_numbers.push_back(static_cast<LocalNumber>(m_nodeIds.size()));
    }
}

void MeshBuilder::reserveNodes(std::size_t count)
{
    m_nodeIds.reserve(m_nodeIds.size() + count);
    m_nodeLines.reserve(m_nodeLines.size() + count);
    m_content.m_positions.reserve(m_content.m_positions.size() + count);
}

void MeshBuilder::reserveElements(std::size_t count, ElementType type)
{
    m_elementIds.reserve(m_elementIds.size() + count);
    m_elementLines.reserve(m_elementLines.size() + count);
    m_content.m_rows.reserve(m_content.m_rows.size() + count);
    m_connectivity.reserve(m_connectivity.size() + count * traitsOf(type).m_nodeCount);
}

std::uint16_t MeshBuilder::group(std::uint8_t dimension, std::string const& name)
{
    auto& groups = m_content.m_groups;
    auto const found = std::find_if(groups.begin(), groups.end(), [&](MeshGroup const& row) {
        return row.m_dimension == dimension && row.m_name == name;
    });
    auto const index = static_cast<std::uint16_t>(found - groups.begin());
    if (found == groups.end()) {
        if (groups.size() == kMostGroups) {
            throw std::length_error("a mesh with more than 65535 groups");
        }
        groups.push_back({0, dimension, 0, name});
    }
    return index;
}

void MeshBuilder::addElement(ExternalId id, ElementType type, std::uint16_t typeName, SetIndex set,
                             SourceLine line, std::uint16_t group)
{
    m_elementIds.push_back(id);
    m_elementLines.push_back(line);
    m_content.m_rows.push_back(
        {static_cast<std::uint32_t>(m_connectivity.size()), typeName, type, group});
    if (set != kNoSet) {
        addElementTo(set);
    }
}

void MeshBuilder::addElementTo(SetIndex set)
{
    setsOf(SetKind::elements)
        .m_sets[set]
        .m_numbers.push_back(static_cast<LocalNumber>(m_elementIds.size()));
}

void MeshBuilder::addRange(SetKind kind, SetIndex set, ExternalId first, ExternalId last,
                           ExternalId step)
{
    m_entries.push_back({kind, kind, set, 0, first, last, step, {}});
}

void MeshBuilder::addMember(SetKind kind, SetIndex set, ExternalId id, SourceLine line)
{
    m_entries.push_back({kind, kind, set, line, id, id, 1, {}});
}

void MeshBuilder::addSet(SetKind kind, SetIndex set, std::string const& other, SetKind kindOfOther,
                         SourceLine line)
{
    m_entries.push_back({kind, kindOfOther, set, line, 0, 0, 1, other});
}

MeshStore MeshBuilder::finish(SourceLines const& lines, std::vector<std::string>& warnings)
{
    m_content.m_name = m_name;
    m_content.m_nodes = Numbering(std::move(m_nodeIds));
    m_content.m_elements = Numbering(std::move(m_elementIds));
    checkIds("node", m_content.m_nodes, m_nodeLines, lines);
    checkIds("element", m_content.m_elements, m_elementLines, lines);
    resolveConnectivity(lines);
    std::vector<Missing> missing;
    for (Entry const& entry : m_entries) {
        resolve(entry, lines, missing);
    }
    for (Missing const& row : missing) {
        warnOf(row, lines, warnings);
    }
    for (Sets& sets : m_sets) {
        for (MeshSet& set : sets.m_sets) {
            std::sort(set.m_numbers.begin(), set.m_numbers.end());
            set.m_numbers.erase(std::unique(set.m_numbers.begin(), set.m_numbers.end()),
                                set.m_numbers.end());
            set.m_numbers.shrink_to_fit();
        }
    }
    m_content.m_nodeSets = std::move(setsOf(SetKind::nodes).m_sets);
    m_content.m_elementSets = std::move(setsOf(SetKind::elements).m_sets);
    m_content.m_positions.shrink_to_fit();
    m_content.m_rows.shrink_to_fit();
    return MeshStore(std::move(m_content));
}

void MeshBuilder::checkIds(char const* what, Numbering const& numbering,
                           std::vector<SourceLine> const& idLines, SourceLines const& lines) const
{
    if (auto const& repeated = numbering.repeated()) {
        SourceLine const second = idLines[repeated->m_second - 1];
        lines.refuse(second,
                     labelOf(what, numbering.idOf(repeated->m_second)) +
                         " is given twice, first in " +
                         lines.placeFrom(second, idLines[repeated->m_first - 1]),
                     "take one of the two out or renumber it");
    }
}

void MeshBuilder::resolveConnectivity(SourceLines const& lines)
{
    if (m_connectivity.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw std::length_error("a mesh with more than 2^32 nodes of elements");
    }
    m_content.m_connectivity.resize(m_connectivity.size());
    for (std::size_t i = 0; i < m_connectivity.size(); ++i) {
        m_content.m_connectivity[i] = m_content.m_nodes.numberOf(m_connectivity[i]);
        if (m_content.m_connectivity[i] == 0) {
            auto const& rows = m_content.m_rows;
            auto const after = std::upper_bound(
                rows.begin(), rows.end(), i,
                [](std::size_t at, MeshStore::Row const& row) { return at < row.m_firstNode; });
            auto const element = static_cast<LocalNumber>(after - rows.begin());
            lines.refuse(m_elementLines[element - 1],
                         labelOf("element", m_content.m_elements.idOf(element)) + " names " +
                             labelOf("node", m_connectivity[i]) + ", which does not exist",
                         "add the node or correct the element");
        }
    }
    m_connectivity = {};
}

void MeshBuilder::resolve(Entry const& entry, SourceLines const& lines,
                          std::vector<Missing>& missing)
{
    if (!entry.m_other.empty()) {
        addOther(entry, lines);
        return;
    }
    Numbering const& numbering =
        entry.m_kind == SetKind::nodes ? m_content.m_nodes : m_content.m_elements;
    auto& numbers = setsOf(entry.m_kind).m_sets[entry.m_set].m_numbers;
    if (entry.m_line == 0) {
        addNumbersIn(entry, numbering, numbers);
        return;
    }
    if (LocalNumber const number = numbering.numberOf(entry.m_first); number != 0) {
        numbers.push_back(number);
        return;
    }
    auto const known = std::find_if(missing.begin(), missing.end(), [&entry](Missing const& row) {
        return row.m_kind == entry.m_kind && row.m_set == entry.m_set;
    });
    if (known != missing.end()) {
        ++known->m_count;
    } else {
        missing.push_back({entry.m_kind, entry.m_set, entry.m_first, entry.m_line, 1});
    }
}

void MeshBuilder::addNumbersIn(Entry const& range, Numbering const& numbering,
                               std::vector<LocalNumber>& numbers)
{
    if (range.m_last < range.m_first) {
        return;
    }
    ExternalId const steps = (range.m_last - range.m_first) / range.m_step;
    if (steps < numbering.size()) {
        for (ExternalId i = 0; i <= steps; ++i) {
            LocalNumber const number = numbering.numberOf(range.m_first + i * range.m_step);
            if (number != 0) {
                numbers.push_back(number);
            }
        }
        return;
    }
    // By what there is: a careless file makes the range as wide as it likes.
    for (LocalNumber number = 1; number <= numbering.size(); ++number) {
        ExternalId const id = numbering.ids()[number - 1];
        if (id >= range.m_first && id <= range.m_last && (id - range.m_first) % range.m_step == 0) {
            numbers.push_back(number);
        }
    }
}

void MeshBuilder::addOther(Entry const& entry, SourceLines const& lines)
{
    Sets const& others = setsOf(entry.m_kindOfOther);
    auto const found = others.m_byName.find(inCapitals(entry.m_other));
    if (found == others.m_byName.end()) {
        lines.refuse(entry.m_line,
                     "set " + setsOf(entry.m_kind).m_sets[entry.m_set].m_name + " names \"" +
                         entry.m_other + "\", which is neither a number nor a set",
                     "correct the name or add the set");
    }
    std::vector<LocalNumber> members = others.m_sets[found->second].m_numbers;
    if (entry.m_kindOfOther != entry.m_kind) {
        std::vector<LocalNumber> nodes;
        for (LocalNumber const element : members) {
            MeshStore::Row const& row = m_content.m_rows[element - 1];
            auto const first = m_content.m_connectivity.begin() + row.m_firstNode;
            nodes.insert(nodes.end(), first, first + traitsOf(row.m_type).m_nodeCount);
        }
        members = std::move(nodes);
    }
    auto& numbers = setsOf(entry.m_kind).m_sets[entry.m_set].m_numbers;
    numbers.insert(numbers.end(), members.begin(), members.end());
}

void MeshBuilder::warnOf(Missing const& missing, SourceLines const& lines,
                         std::vector<std::string>& warnings)
{
    std::string const rest = missing.m_count > 1 ? " and " + std::to_string(missing.m_count - 1) +
                                                       " more, which do not exist and are left out"
                                                 : ", which does not exist and is left out";
    warnings.push_back(
        lines.place(missing.m_line) + ": set " +
        setsOf(missing.m_kind).m_sets[missing.m_set].m_name + " names " +
        labelOf(missing.m_kind == SetKind::nodes ? "node" : "element", missing.m_id) + rest);
}

}  // namespace vrn::orlo::host::meshing
