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

/// A mesh body of a part: the mesh of one geometry body, or one without geometry.
struct MeshBodyRow {
    std::string m_name;
    unsigned m_entity = 0;  ///< Number of the geometry body in its model; 0 for none.
};

/// The elements of one dimension of a mesh body that lie on one geometry entity, or that a file
/// holds together: a sub-mesh.
struct MeshGroup {
    std::uint16_t m_body = 0;  ///< Index of the mesh body.
    std::uint8_t m_dimension = 0;
    unsigned m_entity = 0;  ///< Number of the geometry entity in its model; 0 for none.
    std::string m_name;     ///< "volume 3", "property 7"; empty for the only one of its dimension.
};

/// A face of an element, whose number counts from 0 as in elementfaces.h.
struct ElementFace {
    LocalNumber m_element = 0;
    std::uint8_t m_face = 0;

    friend auto operator<=>(ElementFace const&, ElementFace const&) = default;
};

/// What of a mesh lies on a geometry entity, whether elements of its own dimension do or not.
struct EntityMesh {
    unsigned m_entity = 0;             ///< Number of the geometry entity in its model.
    std::vector<LocalNumber> m_nodes;  ///< On it and on what bounds it; ascending.
    /// For a face: the faces of the solid elements that lie on it; ascending.
    std::vector<ElementFace> m_faces;
};

/// The set of a name; null when there is none.
[[nodiscard]] MeshSet const* findSet(std::vector<MeshSet> const& sets,
                                     std::string_view name) noexcept;

/// Nodes, elements and sets of one part.
///
/// Units      Of the file, in coordinates of the part.
/// Shape      Of any dimension mixed; the elements of one dimension are one continuous mesh. A
///            point element belongs to none.
/// Order      Of the file, which local numbers follow. The nodes of an element: corners, then the
///            nodes in the middle of its sides; in detail as Abaqus has them, but for lines, whose
///            middle comes last.
/// Failure    std::out_of_range for a local number that is not there.
/// Threads    A value that does not change: any thread reads.
/// Cost       At most 48 bytes per node, 36 per element, and 4 per node of an element.
class MeshStore {
public:
    /// An element as it is stored; its id is in the numbering.
    struct Row {
        std::uint32_t m_firstNode;  ///< Where its nodes begin in the connectivity.
        std::uint16_t m_typeName;   ///< Index of the file's name for the type.
        ElementType m_type;
        std::uint16_t m_group = 0;  ///< Index of its group.
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
        /// Empty for one body with the part's name.
        std::vector<MeshBodyRow> m_bodies;
        /// Empty for one group per dimension, in the only body; rows need not name theirs then.
        std::vector<MeshGroup> m_groups;
        std::vector<EntityMesh> m_entities;  ///< Ascending by entity.
    };
    explicit MeshStore(Content content);
    /// All of it, for who keeps or changes a mesh as a whole.
    [[nodiscard]] Content const& content() const noexcept { return m_content; }

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

    /// At least one.
    [[nodiscard]] std::vector<MeshBodyRow> const& bodies() const noexcept
    {
        return m_content.m_bodies;
    }
    [[nodiscard]] std::vector<MeshGroup> const& groups() const noexcept
    {
        return m_content.m_groups;
    }
    /// Index of an element's group.
    [[nodiscard]] std::uint16_t groupOf(LocalNumber element) const { return row(element).m_group; }
    /// What lies on a geometry entity; null where nothing does, or where that is not known.
    [[nodiscard]] EntityMesh const* meshOn(unsigned entity) const noexcept;
    [[nodiscard]] std::vector<EntityMesh> const& entities() const noexcept
    {
        return m_content.m_entities;
    }

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
    void groupByDimension();

    Content m_content;
    MeshBox m_box;
    std::array<LocalNumber, 4> m_counts{};
};

}  // namespace vrn::orlo::host::meshing
