/// \file
/// Gathers a part as a file tells it.

#pragma once

#include "host/meshing/meshstore.h"
#include "host/meshing/nodeorder.h"
#include "host/meshing/sourcelines.h"

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::meshing {

enum class SetKind : std::uint8_t { nodes, elements };

/// Takes nodes, elements and sets in any order, by external ids, and looks nothing up before
/// finish(): files may name what comes later.
class MeshBuilder {
public:
    /// Index of a set within its kind.
    using SetIndex = std::uint32_t;
    static constexpr SetIndex kNoSet = ~SetIndex{0};

    explicit MeshBuilder(std::string name) : m_name(std::move(name)) {}
    [[nodiscard]] std::string const& name() const noexcept { return m_name; }
    [[nodiscard]] std::size_t nodeCount() const noexcept { return m_nodeIds.size(); }
    [[nodiscard]] std::size_t elementCount() const noexcept { return m_elementIds.size(); }
    /// Makes room for as many more, where the file says how many there are.
    void reserveNodes(std::size_t count);
    void reserveElements(std::size_t count, ElementType type);

    /// The set of the name, which is made if it is new.
    [[nodiscard]] SetIndex set(SetKind kind, std::string const& name);
    /// Index of a name for addElement().
    [[nodiscard]] std::uint16_t typeName(std::string const& name);

    /// Index of a group for addElement(), which is made if it is new. A file that names groups
    /// names one for each of its elements.
    /// Failure    std::length_error for one more than kMostGroups.
    static constexpr std::size_t kMostGroups = 65535;
    [[nodiscard]] std::size_t groupCount() const noexcept { return m_content.m_groups.size(); }
    [[nodiscard]] std::uint16_t group(std::uint8_t dimension, std::string const& name);

    /// \param set  into which the node comes; or kNoSet
    void addNode(ExternalId id, Point const& position, SetIndex set, SourceLine line);
    /// Of the node that was added at the index, from 0: id, and place, which may change.
    [[nodiscard]] ExternalId nodeId(std::size_t index) const { return m_nodeIds[index]; }
    [[nodiscard]] Point& nodePosition(std::size_t index) { return m_content.m_positions[index]; }
    /// The type's number of calls of addElementNode() is to follow.
    void addElement(ExternalId id, ElementType type, std::uint16_t typeName, SetIndex set,
                    SourceLine line, std::uint16_t group = 0);
    void addElementNode(ExternalId node) { m_connectivity.push_back(node); }
    /// All nodes of the element that was added last, in the order of the file.
    void addElementNodes(std::span<ExternalId const> nodes, NodeOrder const& order)
    {
        for (std::size_t place = 0; place < nodes.size(); ++place) {
            m_connectivity.push_back(nodes[order[place]]);
        }
    }
    /// Puts the element that was added last into one more set.
    void addElementTo(SetIndex set);

    /// Ids from first to last by step, as far as the file has them.
    void addRange(SetKind kind, SetIndex set, ExternalId first, ExternalId last, ExternalId step);
    void addMember(SetKind kind, SetIndex set, ExternalId id, SourceLine line);
    /// The members of another set of the kind; for a node set also the nodes of an element set.
    void addSet(SetKind kind, SetIndex set, std::string const& other, SetKind kindOfOther,
                SourceLine line);

    /// \param lines     says where the lines are that the calls have named
    /// \param warnings  receives a line for each set that names what is not there
    /// Failure    MeshFileError for an id that comes twice, an element that names a missing node,
    ///            and a set that names a missing set.
    [[nodiscard]] MeshStore finish(SourceLines const& lines, std::vector<std::string>& warnings);

private:
    /// What is to come into a set: a range, an id as a range of one, or another set.
    struct Entry {
        SetKind m_kind;
        SetKind m_kindOfOther;
        SetIndex m_set;
        SourceLine m_line;  // 0 for a range, of which nothing needs to be there
        ExternalId m_first;
        ExternalId m_last;
        ExternalId m_step;
        std::string m_other;  // empty for ids
    };
    /// The first id of a set that is not there, and how many there are.
    struct Missing {
        SetKind m_kind;
        SetIndex m_set;
        ExternalId m_id;
        SourceLine m_line;
        unsigned m_count;
    };
    struct Sets {
        std::vector<MeshSet> m_sets;
        std::map<std::string, SetIndex> m_byName;  // in capitals
    };

    [[nodiscard]] Sets& setsOf(SetKind kind) { return m_sets[static_cast<std::size_t>(kind)]; }
    void checkIds(char const* what, Numbering const& numbering,
                  std::vector<SourceLine> const& idLines, SourceLines const& lines) const;
    void resolveConnectivity(SourceLines const& lines);
    void resolve(Entry const& entry, SourceLines const& lines, std::vector<Missing>& missing);
    static void addNumbersIn(Entry const& range, Numbering const& numbering,
                             std::vector<LocalNumber>& numbers);
    void addOther(Entry const& entry, SourceLines const& lines);
    void warnOf(Missing const& missing, SourceLines const& lines,
                std::vector<std::string>& warnings);

    std::string m_name;
    std::vector<ExternalId> m_nodeIds;
    std::vector<SourceLine> m_nodeLines;
    std::vector<ExternalId> m_elementIds;
    std::vector<SourceLine> m_elementLines;
    std::vector<ExternalId> m_connectivity;
    std::array<Sets, 2> m_sets;
    std::vector<Entry> m_entries;
    MeshStore::Content m_content;
};

}  // namespace vrn::orlo::host::meshing
