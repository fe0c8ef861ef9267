/// \file
/// One revision of a part's mesh, with the questions that lead backwards.

#pragma once

#include "host/meshing/meshstore.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Index of a mesh body or a group of a store.
using MeshIndex = std::uint16_t;

/// Rows of different lengths, one after the other.
template <class T>
struct Rows {
    std::vector<std::uint32_t> m_first;  ///< Where each row begins, and the end.
    std::vector<T> m_items;

    [[nodiscard]] std::span<T const> of(std::size_t row) const noexcept
    {
        return row + 1 < m_first.size()
                   ? std::span(m_items).subspan(m_first[row], m_first[row + 1] - m_first[row])
                   : std::span<T const>();
    }
};

/// A store with its inverse tables, each of which is made when it is first asked for.
///
/// Order      Ascending local numbers, unless said otherwise.
/// Failure    std::out_of_range for an element that is not there; nothing for a node, a body, a
///            group or an entity that is not there.
/// Ownership  Holds the store. Spans live as long as the tables.
/// Threads    Any thread asks.
/// Cost       All tables of a million tetrahedra with four nodes: some 40 bytes per element, and
///            32 more while the skin is made.
class MeshTables {
public:
    /// \param store  not null
    explicit MeshTables(std::shared_ptr<MeshStore const> store) : m_store(std::move(store)) {}
    MeshTables(MeshTables const&) = delete;
    MeshTables& operator=(MeshTables const&) = delete;

    [[nodiscard]] MeshStore const& store() const noexcept { return *m_store; }
    [[nodiscard]] std::shared_ptr<MeshStore const> const& sharedStore() const noexcept
    {
        return m_store;
    }

    /// Index of the mesh body that holds an element.
    [[nodiscard]] MeshIndex bodyOf(LocalNumber element) const
    {
        return m_store->groups()[m_store->groupOf(element)].m_body;
    }
    /// Elements that have the node.
    [[nodiscard]] std::span<LocalNumber const> elementsAt(LocalNumber node) const;
    [[nodiscard]] std::span<LocalNumber const> elementsOfGroup(MeshIndex group) const;
    [[nodiscard]] std::vector<LocalNumber> elementsOfGroups(
        std::span<MeshIndex const> groups) const;
    /// Groups of a body that have elements, by ascending index.
    [[nodiscard]] std::vector<MeshIndex> groupsOf(MeshIndex body) const;
    /// Groups that lie on a geometry entity and have elements.
    [[nodiscard]] std::vector<MeshIndex> groupsOn(unsigned entity) const;
    /// Of a body's elements; of the only body there is, all nodes, those without elements too.
    [[nodiscard]] std::span<LocalNumber const> nodesOfBody(MeshIndex body) const;
    /// Faces of a body's solid elements that no other of them has. What the corners of a face are
    /// decides, not where they lie: bodies that touch each keep their skin.
    [[nodiscard]] std::span<ElementFace const> skinOfBody(MeshIndex body) const;

private:
    /// A value that is made once.
    template <class T>
    class Lazy {
    public:
        template <class Maker>
        [[nodiscard]] T const& get(Maker const& make) const
        {
            std::call_once(m_once, [&] { m_value = make(); });
            return m_value;
        }

    private:
        mutable std::once_flag m_once;
        mutable T m_value;
    };
    using NumberRows = Rows<LocalNumber>;
    using EntityGroup = std::pair<unsigned, MeshIndex>;

    [[nodiscard]] NumberRows const& byGroup() const;
    [[nodiscard]] NumberRows nodeRows() const;
    [[nodiscard]] NumberRows groupRows() const;
    [[nodiscard]] NumberRows bodyNodeRows() const;
    [[nodiscard]] std::vector<EntityGroup> entityGroups() const;

    std::shared_ptr<MeshStore const> m_store;
    Lazy<NumberRows> m_elementsByNode;
    Lazy<NumberRows> m_elementsByGroup;
    Lazy<NumberRows> m_nodesByBody;
    Lazy<Rows<ElementFace>> m_skins;
    Lazy<std::vector<EntityGroup>> m_groupsByEntity;
};

/// The skins of all bodies of a store, by the index of the body.
[[nodiscard]] Rows<ElementFace> skinsOf(MeshStore const& store);

/// The local number that an id means; 0 for none.
/// \param flag  whether the id is an external one
[[nodiscard]] LocalNumber numberIn(Numbering const& numbering, unsigned long long id,
                                   bool flag) noexcept;

}  // namespace vrn::orlo::host::meshing
