#include "host/modelfile/renumbering.h"

#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace vrn::orlo::host::modelfile {

namespace {

using meshing::MeshStore;

constexpr std::array kGroupWords{"vertex ", "edge ", "face ", "volume "};

class Move {
public:
    Move(unsigned from, unsigned to) : m_from(from), m_to(to)
    {
        if (from == 0 || to == 0) {
            throw std::invalid_argument("numbers of entities count from 1 or more, not from 0");
        }
    }

    void number(unsigned& entity) const
    {
        if (entity == 0) {
            return;
        }
        std::uint64_t const moved = std::uint64_t{entity} - m_from + m_to;
        if (entity < m_from || moved > std::numeric_limits<unsigned>::max()) {
            throw std::invalid_argument("entity " + std::to_string(entity) +
                                        " cannot be counted from " + std::to_string(m_to) +
                                        " instead of " + std::to_string(m_from));
        }
        entity = static_cast<unsigned>(moved);
    }

    /// Of something that is named after its entity, unless somebody gave it another name.
    void numberAndName(unsigned& entity, std::string& name, std::string const& word) const
    {
        bool const isNamedAfter = entity != 0 && name == word + std::to_string(entity);
        number(entity);
        if (isNamedAfter) {
            name = word + std::to_string(entity);
        }
    }

private:
    unsigned m_from;
    unsigned m_to;
};

}  // namespace

std::shared_ptr<MeshStore const> renumbered(std::shared_ptr<MeshStore const> store, unsigned from,
                                            unsigned to)
{
    Move const move(from, to);
    if (from == to) {
        return store;
    }
    MeshStore::Content content = store->content();
    // The only body of a part has the part's name, and that may happen to be "body 3".
    bool const isOnly = content.m_bodies.size() == 1;
    for (meshing::MeshBodyRow& body : content.m_bodies) {
        if (isOnly) {
            move.number(body.m_entity);
        } else {
            move.numberAndName(body.m_entity, body.m_name, "body ");
        }
    }
    for (meshing::MeshGroup& group : content.m_groups) {
        move.numberAndName(group.m_entity, group.m_name, kGroupWords.at(group.m_dimension));
    }
    for (meshing::EntityMesh& entity : content.m_entities) {
        move.number(entity.m_entity);
    }
    return std::make_shared<MeshStore const>(std::move(content));
}

}  // namespace vrn::orlo::host::modelfile
