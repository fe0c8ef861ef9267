#include "host/modelfile/meshcheck.h"

#include "host/meshing/elementtype.h"
#include "host/modelfile/meshblob.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace vrn::orlo::host::modelfile {

namespace {

using meshing::LocalNumber;
using meshing::MeshStore;

void require(bool holds, char const* otherwise)
{
    if (!holds) {
        throw MeshBlobError(otherwise);
    }
}

bool areIn(std::vector<LocalNumber> const& numbers, std::size_t count)
{
    return std::all_of(numbers.begin(), numbers.end(),
                       [count](LocalNumber number) { return number >= 1 && number <= count; });
}

bool areIn(std::vector<meshing::MeshSet> const& sets, std::size_t count)
{
    return std::all_of(sets.begin(), sets.end(), [count](meshing::MeshSet const& set) {
        return areIn(set.m_numbers, count);
    });
}

void checkElements(MeshStore::Content const& mesh)
{
    for (MeshStore::Row const& row : mesh.m_rows) {
        require(static_cast<std::size_t>(row.m_type) < meshing::kElementTraits.size(),
                "an element is of no known type");
        require(row.m_typeName < mesh.m_typeNames.size(), "an element's type has no name");
        require(row.m_group < mesh.m_groups.size(), "an element is in a group that is not there");
        require(std::size_t{row.m_firstNode} + traitsOf(row.m_type).m_nodeCount <=
                    mesh.m_connectivity.size(),
                "an element has fewer nodes than its type");
    }
}

void checkEntities(MeshStore::Content const& mesh)
{
    for (meshing::EntityMesh const& entity : mesh.m_entities) {
        require(areIn(entity.m_nodes, mesh.m_positions.size()),
                "an entity has a node that is not there");
        for (meshing::ElementFace const& face : entity.m_faces) {
            require(face.m_element >= 1 && face.m_element <= mesh.m_rows.size() &&
                        face.m_face < traitsOf(mesh.m_rows[face.m_element - 1].m_type).m_faceCount,
                    "an entity has the face of an element that is not there");
        }
    }
}

}  // namespace

void checkMesh(MeshStore::Content const& mesh)
{
    constexpr std::size_t kMost = std::numeric_limits<LocalNumber>::max();
    require(mesh.m_positions.size() <= kMost && mesh.m_rows.size() <= kMost,
            "it has more nodes or elements than can be counted");
    require(mesh.m_nodes.ids().size() == mesh.m_positions.size(),
            "ids and positions of nodes are not equally many");
    require(mesh.m_elements.ids().size() == mesh.m_rows.size(),
            "ids and types of elements are not equally many");
    require(areIn(mesh.m_connectivity, mesh.m_positions.size()),
            "an element has a node that is not there");
    require(areIn(mesh.m_nodeSets, mesh.m_positions.size()),
            "a node set has a node that is not there");
    require(areIn(mesh.m_elementSets, mesh.m_rows.size()),
            "an element set has an element that is not there");
    for (meshing::MeshGroup const& group : mesh.m_groups) {
        require(group.m_body < mesh.m_bodies.size() && group.m_dimension <= 3,
                "a group is in a body that is not there");
    }
    checkElements(mesh);
    checkEntities(mesh);
}

}  // namespace vrn::orlo::host::modelfile
