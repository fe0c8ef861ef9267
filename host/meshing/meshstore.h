/// \file
/// The mesh of a part as plain data.

#pragma once

#include "host/meshing/elementtype.h"
#include "host/meshing/numbering.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::meshing {

/// x, y and z.
using Point = std::array<double, 3>;

/// Corners of an upright box.
struct MeshBox {
    Point m_low{};
    Point m_high{};
};

/// A named set of nodes or elements.
struct MeshSet {
    std::string m_name;                  ///< As the file spells it first.
    std::vector<LocalNumber> m_numbers;  ///< Ascending, each once.
};

/// The set of a name; null when there is none.
[[nodiscard]] MeshSet const* findSet(std::vector<MeshSet> const& sets,
                                     std::string_view name) noexcept;

/// Nodes, elements and sets of one part.
///
/// Units      Of the file, in coordinates of the part.
/// Shape      Of any dimension mixed; the elements of one dimension are one continuous mesh. A
///            point element belongs to none.
/// Order      Of the file, which local numbers follow. The nodes of an element are in the order of
///            the file's format.
/// Failure    std::out_of_range for a local number that is not there.
/// Threads    A value that does not change: any thread reads.
/// Cost       At most 48 bytes per node, 32 per element, and 4 per node of an element.
class MeshStore {
public:
    /// An element as it is stored; its id is in the numbering.
    struct Row {
        std::uint32_t m_firstNode;  ///< Where its nodes begin in the connectivity.
        std::uint16_t m_typeName;   ///< Index of the file's name for the type.
        ElementType m_type;
    };

    /// What a store is made of; the numbering of elements goes with m_rows, that of nodes with
    /// m_positions.
    struct Content {
        std::string m_name;
        Numbering m_nodes;
        std::vector<Point> m_positions;
        Numbering m_elements;
        std::vector<Row> m_rows;
        std::vector<LocalNumber> m_connectivity;
        std::vector<std::string> m_typeNames;
        std::vector<MeshSet> m_nodeSets;
        std::vector<MeshSet> m_elementSets;
    };
    explicit MeshStore(Content content);

    /// Of the part.
    [[nodiscard]] std::string const& name() const noexcept { return m_content.m_name; }

    [[nodiscard]] Numbering const& nodes() const noexcept { return m_content.m_nodes; }
    [[nodiscard]] Point const& position(LocalNumber node) const
    {
        return m_content.m_positions.at(std::size_t{node} - 1);
    }
    /// Of all nodes, whether an element has them or not. A point at the origin without nodes.
    [[nodiscard]] MeshBox const& box() const noexcept { return m_box; }

    [[nodiscard]] Numbering const& elements() const noexcept { return m_content.m_elements; }
    [[nodiscard]] ElementType typeOf(LocalNumber element) const { return row(element).m_type; }
    /// The file's name for the element's type, "C3D8R", in capitals: it says more than the topology
    /// does.
    [[nodiscard]] std::string const& typeNameOf(LocalNumber element) const
    {
        return m_content.m_typeNames[row(element).m_typeName];
    }
    [[nodiscard]] std::span<LocalNumber const> nodesOf(LocalNumber element) const;

    /// Elements of a dimension, 0 to 3: how many, and their numbers ascending.
    [[nodiscard]] LocalNumber countOf(std::uint8_t dimension) const
    {
        return m_counts.at(dimension);
    }
    [[nodiscard]] std::vector<LocalNumber> elementsOf(std::uint8_t dimension) const;

    /// In the order in which the file names them first.
    [[nodiscard]] std::vector<MeshSet> const& nodeSets() const noexcept
    {
        return m_content.m_nodeSets;
    }
    [[nodiscard]] std::vector<MeshSet> const& elementSets() const noexcept
    {
        return m_content.m_elementSets;
    }

private:
    [[nodiscard]] Row const& row(LocalNumber element) const
    {
        return m_content.m_rows.at(std::size_t{element} - 1);
    }

    Content m_content;
    MeshBox m_box;
    std::array<LocalNumber, 4> m_counts{};
};

}  // namespace vrn::orlo::host::meshing
