#include "host/geometry/shapestore.h"

#include "host/geometry/measures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include <TopExp.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopTools_MapOfShape.hxx>

namespace vrn::orlo::host::geometry {

namespace {

constexpr std::array kShapeTypes{TopAbs_COMPOUND, TopAbs_SOLID, TopAbs_FACE, TopAbs_EDGE,
                                 TopAbs_VERTEX};

constexpr std::size_t at(TopologyLevel level)
{
    return static_cast<std::size_t>(level);
}

EntityClass classOfBody(TopAbs_ShapeEnum type)
{
    switch (type) {
        case TopAbs_SOLID:
            return EntityClass::solidBody;
        case TopAbs_COMPSOLID:
            return EntityClass::generalBody;
        case TopAbs_SHELL:
        case TopAbs_FACE:
            return EntityClass::sheetBody;
        case TopAbs_WIRE:
        case TopAbs_EDGE:
            return EntityClass::wireBody;
        default:
            return EntityClass::pointBody;
    }
}

}  // namespace

TopologyLevel measuredLevel(EntityClass bodyClass)
{
    switch (bodyClass) {
        case EntityClass::solidBody:
        case EntityClass::facetSolid:
            return TopologyLevel::volume;
        case EntityClass::generalBody:  // counts as 2D, whatever it encloses
        case EntityClass::sheetBody:
        case EntityClass::facetSheet:
        case EntityClass::facetGeneral:
            return TopologyLevel::face;
        case EntityClass::wireBody:
        case EntityClass::facetWire:
            return TopologyLevel::edge;
        default:
            return TopologyLevel::vertex;
    }
}

std::vector<BodyShape> bodiesOf(TopoDS_Shape const& shape)
{
    std::vector<BodyShape> bodies;
    TopTools_MapOfShape seen;
    // A stack of our own: how deep compounds nest is up to the file.
    std::vector<TopoDS_Shape> open{shape};
    while (!open.empty()) {
        TopoDS_Shape const current = open.back();
        open.pop_back();
        if (current.IsNull()) {
            continue;
        }
        if (current.ShapeType() != TopAbs_COMPOUND) {
            // A shell or wire without content is no body: nothing of it could be picked.
            bool const hasContent = current.ShapeType() == TopAbs_VERTEX ||
                                    current.ShapeType() == TopAbs_EDGE ||
                                    current.ShapeType() == TopAbs_FACE || current.NbChildren() > 0;
            if (hasContent && seen.Add(current)) {
                bodies.push_back({current, classOfBody(current.ShapeType())});
            }
            continue;
        }
        std::size_t const base = open.size();
        for (TopoDS_Iterator it(current); it.More(); it.Next()) {
            open.push_back(it.Value());
        }
        std::reverse(open.begin() + static_cast<std::ptrdiff_t>(base), open.end());
    }
    return bodies;
}

PartTopology::PartTopology(TopoDS_Shape const& shape, std::vector<BodyShape> const& bodies,
                           unsigned firstNumber)
    : m_shape(shape)
{
    for (BodyShape const& body : bodies) {
        m_maps[at(TopologyLevel::body)].Add(body.m_shape);
        m_bodyClasses.push_back(body.m_class);
    }
    m_firstNumbers[0] = firstNumber;
    for (std::size_t level = 0; level < kTopologyLevels; ++level) {
        if (level != at(TopologyLevel::body)) {
            TopExp::MapShapes(shape, kShapeTypes[level], m_maps[level]);
        }
        m_firstNumbers[level + 1] =
            m_firstNumbers[level] + static_cast<unsigned>(m_maps[level].Extent());
    }
    m_measures = std::vector<std::atomic<double>>(m_firstNumbers.back() - firstNumber);
    for (std::atomic<double>& measure : m_measures) {
        measure.store(std::numeric_limits<double>::quiet_NaN(), std::memory_order_relaxed);
    }
}

std::size_t PartTopology::count(TopologyLevel level) const noexcept
{
    return static_cast<std::size_t>(m_maps[at(level)].Extent());
}

unsigned PartTopology::firstNumber(TopologyLevel level) const noexcept
{
    return m_firstNumbers[at(level)];
}

bool PartTopology::locate(unsigned number, TopologyLevel& level, unsigned& index) const
{
    if (number < m_firstNumbers.front() || number >= m_firstNumbers.back()) {
        return false;
    }
    auto const next = std::upper_bound(m_firstNumbers.begin(), m_firstNumbers.end(), number);
    auto const found = static_cast<std::size_t>(next - m_firstNumbers.begin()) - 1;
    level = static_cast<TopologyLevel>(found);
    index = number - m_firstNumbers[found];
    return true;
}

TopoDS_Shape PartTopology::shapeOf(unsigned number) const
{
    TopologyLevel level{};
    unsigned index = 0;
    if (!locate(number, level, index)) {
        return {};
    }
    return m_maps[at(level)].FindKey(static_cast<int>(index) + 1);
}

unsigned PartTopology::numberOf(TopoDS_Shape const& shape, TopologyLevel level) const
{
    int const index = shape.IsNull() ? 0 : m_maps[at(level)].FindIndex(shape);
    return index == 0 ? 0 : m_firstNumbers[at(level)] + static_cast<unsigned>(index) - 1;
}

void PartTopology::fillBelow(TopologyLevel from, TopologyLevel to, Adjacency& table) const
{
    TopTools_IndexedMapOfShape const& targets = m_maps[at(to)];
    std::vector<unsigned>& all = table.m_neighbours;
    for (int i = 1; i <= m_maps[at(from)].Extent(); ++i) {
        auto const first = static_cast<std::ptrdiff_t>(all.size());
        TopTools_IndexedMapOfShape inside;
        TopExp::MapShapes(m_maps[at(from)].FindKey(i), kShapeTypes[at(to)], inside);
        for (int j = 1; j <= inside.Extent(); ++j) {
            if (int const index = targets.FindIndex(inside.FindKey(j)); index != 0) {
                all.push_back(static_cast<unsigned>(index) - 1);
            }
        }
        std::sort(all.begin() + first, all.end());
        table.m_ends.push_back(all.size());
    }
}

void PartTopology::fillAbove(TopologyLevel from, TopologyLevel to, Adjacency& table) const
{
    Adjacency const& down = adjacency(to, from);
    std::vector<std::size_t> next(count(from) + 1);  // first counts, then places to fill
    for (unsigned const child : down.m_neighbours) {
        ++next[child + 1];
    }
    std::partial_sum(next.begin(), next.end(), next.begin());
    table.m_ends.assign(next.begin() + 1, next.end());
    table.m_neighbours.resize(down.m_neighbours.size());
    std::size_t place = 0;
    for (unsigned parent = 0; parent < down.m_ends.size(); ++parent) {
        for (; place < down.m_ends[parent]; ++place) {
            table.m_neighbours[next[down.m_neighbours[place]]++] = parent;
        }
    }
}

PartTopology::Adjacency const& PartTopology::adjacency(TopologyLevel from, TopologyLevel to) const
{
    Adjacency& table = m_adjacencies[at(from) * kTopologyLevels + at(to)];
    std::call_once(table.m_once,
                   [&] { from < to ? fillBelow(from, to, table) : fillAbove(from, to, table); });
    return table;
}

std::vector<unsigned> PartTopology::neighbours(TopologyLevel from, unsigned index,
                                               TopologyLevel to) const
{
    Adjacency const& table = adjacency(from, to);
    auto const all = table.m_neighbours.begin();
    auto const endOf = [&](unsigned i) {
        return all + static_cast<std::ptrdiff_t>(table.m_ends[i]);
    };
    std::vector<unsigned> numbers(index == 0 ? all : endOf(index - 1), endOf(index));
    for (unsigned& number : numbers) {
        number += m_firstNumbers[at(to)];
    }
    return numbers;
}

std::vector<unsigned> PartTopology::below(unsigned number, TopologyLevel level) const
{
    TopologyLevel own{};
    unsigned index = 0;
    return locate(number, own, index) && level > own ? neighbours(own, index, level)
                                                     : std::vector<unsigned>();
}

std::vector<unsigned> PartTopology::above(unsigned number, TopologyLevel level) const
{
    TopologyLevel own{};
    unsigned index = 0;
    return locate(number, own, index) && level < own ? neighbours(own, index, level)
                                                     : std::vector<unsigned>();
}

void PartTopology::shiftNumbers(unsigned shift)
{
    for (unsigned& first : m_firstNumbers) {
        first += shift;
    }
}

double PartTopology::measure(unsigned number) const
{
    TopologyLevel level{};
    unsigned index = 0;
    if (!locate(number, level, index)) {
        return 0.0;
    }
    // Two threads may measure the same: both find the same.
    std::atomic<double>& kept = m_measures[number - m_firstNumbers.front()];
    double measure = kept.load(std::memory_order_relaxed);
    if (!std::isnan(measure)) {
        return measure;
    }
    if (level == TopologyLevel::body) {
        measure = 0.0;
        for (unsigned const child : below(number, measuredLevel(m_bodyClasses[index]))) {
            measure += this->measure(child);
        }
    } else {
        measure = measureOf(shapeOf(number));
    }
    kept.store(measure, std::memory_order_relaxed);
    return measure;
}

PartTopology const& ShapeStore::add(TopoDS_Shape const& shape, std::vector<BodyShape> const& bodies,
                                    unsigned firstNumber)
{
    return *m_parts.emplace_back(std::make_unique<PartTopology>(shape, bodies, firstNumber));
}

void ShapeStore::shiftNumbers(unsigned shift)
{
    for (auto const& part : m_parts) {
        part->shiftNumbers(shift);
    }
}

}  // namespace vrn::orlo::host::geometry
