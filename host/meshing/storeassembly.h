/// \file
/// Puts the meshes of bodies together into the store of their part.

#pragma once

#include "host/geometry/shapestore.h"
#include "host/meshing/bodymesh.h"
#include "host/meshing/mesher.h"
#include "host/meshing/meshstore.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Takes the bodies of a part in their order. Numbers and ids are as meshPart() says.
class StoreAssembly {
public:
    /// \param topology  of the part; must live as long as this
    StoreAssembly(std::string name, geometry::PartTopology const& topology,
                  MeshOptions const& options);

    /// A body without elements.
    void addEmpty(MeshBodyRow body);

    /// Failure    MesherError for a mesh that does not fit into the store, or whose surface and
    ///            volume do not fit together; the assembly is as it was before.
    void add(MeshBodyRow body, BodyMesh const& mesh);

    /// Null when no body has a mesh. Ends the assembly.
    [[nodiscard]] std::shared_ptr<MeshStore const> finish();

private:
    /// Where tetrahedra meet the faces of the body.
    struct Facets {
        std::vector<std::vector<ElementFace>> m_byPiece;
        /// Connectivity by piece. Triangles on a solid are as the face of its tetrahedron, which
        /// looks outwards.
        std::vector<std::vector<LocalNumber>> m_nodes;
        std::vector<bool> m_isAtBoundary;  ///< By tetrahedron.
    };

    [[nodiscard]] Facets matchFacets(BodyMesh const& mesh) const;
    [[nodiscard]] bool isMeshed(BodyMesh const& mesh, EntityPiece const& piece) const;
    void checkRoom(BodyMesh const& mesh) const;
    void addNodes(BodyMesh const& mesh);
    void addElements(BodyMesh const& mesh, Facets const& facets);
    std::uint16_t typeNameOf(std::uint8_t dimension, int order);
    std::uint16_t addGroup(EntityPiece const& piece, bool isOnly);
    void numberElements(std::size_t first, std::vector<bool> const& isAtBoundary);
    void addEntities(BodyMesh const& mesh, Facets const& facets, LocalNumber firstNode);

    geometry::PartTopology const& m_topology;
    MeshOptions const& m_options;
    MeshStore::Content m_content;
    std::vector<ExternalId> m_nodeIds;
    std::vector<ExternalId> m_elementIds;
    std::map<unsigned, EntityMesh> m_entities;  // two bodies may have a face in common
};

}  // namespace vrn::orlo::host::meshing
