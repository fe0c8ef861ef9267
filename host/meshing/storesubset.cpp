#include "host/meshing/storesubset.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

namespace {

/// New numbers by old ones; 0 for what goes.
class Renumbering {
public:
    explicit Renumbering(std::size_t count) : m_numbers(count + 1) {}

    void keep(LocalNumber number) { m_numbers[number] = 1; }
    void drop(LocalNumber number) { m_numbers[number] = 0; }
    /// To be called when it is known what is kept.
    void closeUp()
    {
        LocalNumber last = 0;
        for (LocalNumber& number : m_numbers) {
            number = number != 0 ? ++last : 0;
        }
    }
    [[nodiscard]] LocalNumber of(LocalNumber number) const { return m_numbers[number]; }

    [[nodiscard]] Numbering applied(Numbering const& numbering) const
    {
        std::vector<ExternalId> ids;
        for (LocalNumber number = 1; number <= numbering.size(); ++number) {
            if (of(number) != 0) {
                ids.push_back(numbering.idOf(number));
            }
        }
        return Numbering(std::move(ids));
    }
    void apply(std::vector<LocalNumber>& numbers) const
    {
        std::erase_if(numbers, [this](LocalNumber number) { return of(number) == 0; });
        for (LocalNumber& number : numbers) {
            number = of(number);
        }
    }
    void apply(std::vector<MeshSet>& sets) const
    {
        for (MeshSet& set : sets) {
            apply(set.m_numbers);
        }
    }

private:
    std::vector<LocalNumber> m_numbers;
};

std::vector<EntityMesh> reduced(std::vector<EntityMesh> entities, Renumbering const& nodes,
                                Renumbering const& elements)
{
    for (EntityMesh& entity : entities) {
        nodes.apply(entity.m_nodes);
        std::erase_if(entity.m_faces, [&elements](ElementFace const& face) {
            return elements.of(face.m_element) == 0;
        });
        for (ElementFace& face : entity.m_faces) {
            face.m_element = elements.of(face.m_element);
        }
    }
    std::erase_if(entities, [](EntityMesh const& entity) {
        return entity.m_nodes.empty() && entity.m_faces.empty();
    });
    return entities;
}

}  // namespace

std::shared_ptr<MeshStore const> withoutBody(MeshStore const& store, std::size_t body)
{
    MeshStore::Content const& all = store.content();
    Renumbering nodes(store.nodes().size());
    Renumbering elements(store.elements().size());
    auto const isTaken = [&](LocalNumber element) {
        return all.m_groups[store.groupOf(element)].m_body == body;
    };
    for (LocalNumber node = 1; node <= store.nodes().size(); ++node) {
        nodes.keep(node);
    }
    for (bool const ofBody : {true, false}) {  // its nodes go, unless others have them as well
        for (LocalNumber element = 1; element <= store.elements().size(); ++element) {
            if (isTaken(element) != ofBody) {
                continue;
            }
            for (LocalNumber const node : store.nodesOf(element)) {
                ofBody ? nodes.drop(node) : nodes.keep(node);
            }
            if (!ofBody) {
                elements.keep(element);
            }
        }
    }
    nodes.closeUp();
    elements.closeUp();

    MeshStore::Content left;
    left.m_name = all.m_name;
    left.m_typeNames = all.m_typeNames;
    left.m_bodies = all.m_bodies;
    left.m_groups = all.m_groups;
    left.m_nodes = nodes.applied(all.m_nodes);
    left.m_elements = elements.applied(all.m_elements);
    for (LocalNumber node = 1; node <= store.nodes().size(); ++node) {
        if (nodes.of(node) != 0) {
            left.m_positions.push_back(store.position(node));
        }
    }
    for (LocalNumber element = 1; element <= store.elements().size(); ++element) {
        if (elements.of(element) == 0) {
            continue;
        }
        MeshStore::Row row = all.m_rows[element - 1];
        row.m_firstNode = static_cast<std::uint32_t>(left.m_connectivity.size());
        left.m_rows.push_back(row);
        for (LocalNumber const node : store.nodesOf(element)) {
            left.m_connectivity.push_back(nodes.of(node));
        }
    }
    if (left.m_rows.empty()) {
        return nullptr;
    }
    left.m_nodeSets = all.m_nodeSets;
    nodes.apply(left.m_nodeSets);
    left.m_elementSets = all.m_elementSets;
    elements.apply(left.m_elementSets);
    left.m_entities = reduced(all.m_entities, nodes, elements);
    return std::make_shared<MeshStore const>(std::move(left));
}

}  // namespace vrn::orlo::host::meshing
