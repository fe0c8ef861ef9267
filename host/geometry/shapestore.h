/// \file
/// The kernel's shapes behind a GeometryModel. For the sources of the host's modules that work on
/// the kernel's shapes; never included by a header that others see.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <TopoDS_Shape.hxx>
#include <TopTools_IndexedMapOfShape.hxx>

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace vrn::orlo::host::geometry {

/// What entities are made of, from the whole to the least. The order is that of the numbers.
enum class TopologyLevel : std::uint8_t { body, volume, face, edge, vertex };
inline constexpr std::size_t kTopologyLevels = 5;

/// The level whose measures add up to a body's own, by the body's dimension: volumes of a 3D body,
/// faces of a 2D body and so on. General bodies count as 2D, whatever they enclose.
[[nodiscard]] TopologyLevel measuredLevel(EntityClass bodyClass);

/// A body of a part and its class. The shape is a sub-shape of the part's shape, placed in it.
struct BodyShape {
    TopoDS_Shape m_shape;
    EntityClass m_class = EntityClass::solidBody;
};

/// The topology of one part, numbered.
///
/// Order      bodies as given, then volumes, faces, edges, vertices in the kernel's map order.
/// Threads    Const operations may run on several threads; tables are filled once each.
/// Cost       below() and above() are linear in the answer. The first question for a pair of levels
///            fills its table, which is linear in the part.
class PartTopology {
public:
    /// \param firstNumber the number of the part's first entity.
    PartTopology(TopoDS_Shape const& shape, std::vector<BodyShape> const& bodies,
                 unsigned firstNumber);

    [[nodiscard]] TopoDS_Shape const& shape() const noexcept { return m_shape; }
    [[nodiscard]] std::size_t count(TopologyLevel level) const noexcept;
    [[nodiscard]] unsigned firstNumber(TopologyLevel level) const noexcept;

    /// For GeometryModel::numberFrom(); wraps around.
    void shiftNumbers(unsigned shift);

    /// The class of the body at an index from 0.
    [[nodiscard]] EntityClass bodyClass(std::size_t index) const { return m_bodyClasses.at(index); }

    /// A null shape for a number that is none of this part's.
    [[nodiscard]] TopoDS_Shape shapeOf(unsigned number) const;

    /// 0 for a shape that is none of this part's. A solid is both a body and a volume, hence the
    /// level. Orientation does not matter.
    [[nodiscard]] unsigned numberOf(TopoDS_Shape const& shape, TopologyLevel level) const;

    /// Numbers of the entities of `level` in the entity, ascending; empty unless it is a lower one.
    [[nodiscard]] std::vector<unsigned> below(unsigned number, TopologyLevel level) const;

    /// Numbers of the entities of `level` that hold the entity, ascending; empty unless it is a
    /// higher one.
    [[nodiscard]] std::vector<unsigned> above(unsigned number, TopologyLevel level) const;

    /// mm3, mm2 or mm by the entity's kind; measured once.
    [[nodiscard]] double measure(unsigned number) const;

private:
    /// The neighbours on one level of each entity of another. All are indices, from 0, of their
    /// level: numbers may be shifted.
    struct Adjacency {
        std::once_flag m_once;
        std::vector<std::size_t> m_ends;  // by entity, where its neighbours end
        std::vector<unsigned> m_neighbours;
    };

    // The level and the index from 0 in it; false for a number that is none of this part's.
    [[nodiscard]] bool locate(unsigned number, TopologyLevel& level, unsigned& index) const;

    [[nodiscard]] Adjacency const& adjacency(TopologyLevel from, TopologyLevel to) const;
    void fillBelow(TopologyLevel from, TopologyLevel to, Adjacency& table) const;
    void fillAbove(TopologyLevel from, TopologyLevel to, Adjacency& table) const;
    [[nodiscard]] std::vector<unsigned> neighbours(TopologyLevel from, unsigned index,
                                                   TopologyLevel to) const;

    TopoDS_Shape m_shape;
    std::array<TopTools_IndexedMapOfShape, kTopologyLevels> m_maps;
    std::array<unsigned, kTopologyLevels + 1> m_firstNumbers{};
    std::vector<EntityClass> m_bodyClasses;
    mutable std::vector<std::atomic<double>> m_measures;  // by number; not a number until asked for
    mutable std::array<Adjacency, kTopologyLevels * kTopologyLevels> m_adjacencies;
};

/// The topologies of all parts, by the parts' indices.
class ShapeStore {
public:
    PartTopology const& add(TopoDS_Shape const& shape, std::vector<BodyShape> const& bodies,
                            unsigned firstNumber);

    /// Throws std::out_of_range for an index that no part has.
    [[nodiscard]] PartTopology const& part(std::size_t index) const { return *m_parts.at(index); }
    [[nodiscard]] std::size_t partCount() const noexcept { return m_parts.size(); }
    void shiftNumbers(unsigned shift);

private:
    std::vector<std::unique_ptr<PartTopology>> m_parts;
};

/// The bodies of a shape: compounds are walked down to solids, compounds of solids, sheets, wires
/// and points. A body that stands twice at one place counts once.
[[nodiscard]] std::vector<BodyShape> bodiesOf(TopoDS_Shape const& shape);

}  // namespace vrn::orlo::host::geometry
