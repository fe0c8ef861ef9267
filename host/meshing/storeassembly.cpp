#include "host/meshing/storeassembly.h"

#include "host/meshing/elementfaces.h"
#include "host/meshing/gmshsession.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <utility>

namespace vrn::orlo::host::meshing {

using geometry::TopologyLevel;

namespace {

// The names that the solver knows them by.
constexpr std::array<std::array<char const*, 2>, 3> kTypeNames{
    {{"B31", "B32"}, {"S3", "S6"}, {"C3D4", "C3D10"}}};
constexpr std::array kNames{"vertex ", "edge ", "face ", "volume "};

/// A triangle of the surface by its corners, ascending.
struct Triangle {
    std::array<LocalNumber, 3> m_corners;
    std::size_t m_piece;
    std::size_t m_place;  // of its nodes in the piece
    bool m_isFound = false;
};

template <class Nodes>
std::array<LocalNumber, 3> cornersOf(Nodes const& nodes)
{
    std::array<LocalNumber, 3> corners{nodes[0], nodes[1], nodes[2]};
    std::sort(corners.begin(), corners.end());
    return corners;
}

std::size_t nodesPerElement(BodyMesh const& mesh, EntityPiece const& piece)
{
    return traitsOf(meshedType(piece.m_dimension, mesh.m_order)).m_nodeCount;
}

/// The triangles on the faces of a solid body, to be found by their corners.
class Surface {
public:
    explicit Surface(BodyMesh const& mesh)
    {
        for (std::size_t i = 0; i < mesh.m_pieces.size(); ++i) {
            EntityPiece const& piece = mesh.m_pieces[i];
            if (piece.m_dimension == 3) {
                m_firstNode += piece.m_nodeCount;  // nodes of volumes come first
            } else if (piece.m_dimension == 2) {
                std::size_t const step = nodesPerElement(mesh, piece);
                for (std::size_t at = 0; at < piece.m_connectivity.size(); at += step) {
                    m_triangles.push_back(
                        {cornersOf(std::span(piece.m_connectivity).subspan(at)), i, at});
                }
            }
        }
        std::sort(m_triangles.begin(), m_triangles.end(),
                  [](Triangle const& a, Triangle const& b) { return a.m_corners < b.m_corners; });
    }

    /// Null for corners of no triangle.
    Triangle* find(std::array<LocalNumber, 3> const& corners)
    {
        if (corners[0] < m_firstNode) {
            return nullptr;
        }
        auto const found = std::lower_bound(
            m_triangles.begin(), m_triangles.end(), corners,
            [](Triangle const& row, auto const& wanted) { return row.m_corners < wanted; });
        return found != m_triangles.end() && found->m_corners == corners ? &*found : nullptr;
    }

    std::vector<Triangle> const& triangles() const { return m_triangles; }

private:
    std::vector<Triangle> m_triangles;
    LocalNumber m_firstNode = 0;
};

TopologyLevel levelOf(std::uint8_t dimension)
{
    constexpr std::array kLevels{TopologyLevel::vertex, TopologyLevel::edge, TopologyLevel::face,
                                 TopologyLevel::volume};
    return kLevels[dimension];
}

}  // namespace

StoreAssembly::StoreAssembly(std::string name, geometry::PartTopology const& topology,
                             MeshOptions const& options)
    : m_topology(topology), m_options(options)
{
    m_content.m_name = std::move(name);
}

void StoreAssembly::addEmpty(MeshBodyRow body)
{
    m_content.m_bodies.push_back(std::move(body));
}

void StoreAssembly::add(MeshBodyRow body, BodyMesh const& mesh)
{
    checkRoom(mesh);
    Facets const facets = matchFacets(mesh);
    addEmpty(std::move(body));
    auto const firstNode = static_cast<LocalNumber>(m_content.m_positions.size() + 1);
    addEntities(mesh, facets, firstNode);
    addElements(mesh, facets);
    addNodes(mesh);
}

bool StoreAssembly::isMeshed(BodyMesh const& mesh, EntityPiece const& piece) const
{
    return !piece.m_connectivity.empty() &&
           (piece.m_dimension == mesh.m_dimension || m_options.m_meshFaces);
}

void StoreAssembly::checkRoom(BodyMesh const& mesh) const
{
    std::size_t groups = m_content.m_groups.size();
    std::size_t nodes = m_content.m_connectivity.size();
    for (EntityPiece const& piece : mesh.m_pieces) {
        if (isMeshed(mesh, piece)) {
            ++groups;
            nodes += piece.m_connectivity.size();
        }
    }
    if (groups > std::numeric_limits<std::uint16_t>::max()) {
        throw MesherError("its part would get " + std::to_string(groups) +
                          " groups of elements, and 65535 is the most; mesh solids without their "
                          "faces, or split the part");
    }
    if (nodes > std::numeric_limits<std::uint32_t>::max()) {
        throw MesherError("its part would get too many elements; try a larger size");
    }
}

StoreAssembly::Facets StoreAssembly::matchFacets(BodyMesh const& mesh) const
{
    Facets facets;
    facets.m_byPiece.resize(mesh.m_pieces.size());
    for (EntityPiece const& piece : mesh.m_pieces) {
        facets.m_nodes.push_back(piece.m_connectivity);
    }
    if (mesh.m_dimension != 3) {
        return facets;
    }
    Surface surface(mesh);
    auto element = static_cast<LocalNumber>(m_content.m_rows.size());
    auto const matchElement = [&](std::span<LocalNumber const> own) {
        ElementFace elementFace{++element, 0};
        facets.m_isAtBoundary.push_back(false);
        for (ElementFaceRow const& face : facesOf(meshedType(3, mesh.m_order))) {
            auto const places = placesOf(face);
            std::array<LocalNumber, 6> nodes{};
            std::transform(places.begin(), places.end(), nodes.begin(),
                           [own](std::uint8_t place) { return own[place]; });
            if (Triangle* const found = surface.find(cornersOf(nodes))) {
                facets.m_byPiece[found->m_piece].push_back(elementFace);
                facets.m_isAtBoundary.back() = true;
                if (!std::exchange(found->m_isFound, true)) {
                    std::copy_n(nodes.begin(), places.size(),
                                facets.m_nodes[found->m_piece].begin() +
                                    static_cast<std::ptrdiff_t>(found->m_place));
                }
            }
            ++elementFace.m_face;
        }
    };
    for (EntityPiece const& piece : mesh.m_pieces) {
        std::size_t const step = piece.m_dimension == 3 ? nodesPerElement(mesh, piece) : 1;
        for (std::size_t at = 0; piece.m_dimension == 3 && at < piece.m_connectivity.size();
             at += step) {
            matchElement(std::span(piece.m_connectivity).subspan(at, step));
        }
    }
    for (Triangle const& triangle : surface.triangles()) {
        if (!triangle.m_isFound) {
            throw MesherError("the mesher left a gap below its face " +
                              std::to_string(mesh.m_pieces[triangle.m_piece].m_entity) +
                              "; try a smaller size");
        }
    }
    return facets;
}

void StoreAssembly::addEntities(BodyMesh const& mesh, Facets const& facets, LocalNumber firstNode)
{
    std::map<unsigned, EntityPiece const*> pieces;
    for (EntityPiece const& piece : mesh.m_pieces) {
        pieces[piece.m_entity] = &piece;
    }
    for (std::size_t i = 0; i < mesh.m_pieces.size(); ++i) {
        EntityPiece const& piece = mesh.m_pieces[i];
        if (piece.m_dimension == 3) {
            continue;
        }
        EntityMesh& row = m_entities[piece.m_entity];
        row.m_entity = piece.m_entity;
        auto const addNodesOf = [&](EntityPiece const& source) {
            for (LocalNumber node = 0; node < source.m_nodeCount; ++node) {
                row.m_nodes.push_back(firstNode + source.m_firstNode + node);
            }
        };
        addNodesOf(piece);
        for (std::uint8_t lower = 0; lower < piece.m_dimension; ++lower) {
            for (unsigned const bound : m_topology.below(piece.m_entity, levelOf(lower))) {
                addNodesOf(*pieces.at(bound));
            }
        }
        // Nodes and elements of an earlier body have lower numbers: sorting keeps them in front.
        std::sort(row.m_nodes.begin(), row.m_nodes.end());
        row.m_faces.insert(row.m_faces.end(), facets.m_byPiece[i].begin(),
                           facets.m_byPiece[i].end());
    }
}

void StoreAssembly::addElements(BodyMesh const& mesh, Facets const& facets)
{
    auto const firstNode = static_cast<LocalNumber>(m_content.m_positions.size() + 1);
    std::size_t const firstElement = m_content.m_rows.size();
    std::array<std::size_t, 4> groupCounts{};
    for (EntityPiece const& piece : mesh.m_pieces) {
        groupCounts[piece.m_dimension] += isMeshed(mesh, piece) ? 1 : 0;
    }
    for (std::size_t i = 0; i < mesh.m_pieces.size(); ++i) {
        EntityPiece const& piece = mesh.m_pieces[i];
        if (!isMeshed(mesh, piece)) {
            continue;
        }
        MeshStore::Row row{};
        row.m_type = meshedType(piece.m_dimension, mesh.m_order);
        row.m_typeName = typeNameOf(piece.m_dimension, mesh.m_order);
        row.m_group = addGroup(piece, groupCounts[piece.m_dimension] == 1);
        std::size_t const step = nodesPerElement(mesh, piece);
        std::vector<LocalNumber> const& nodes = facets.m_nodes[i];
        for (std::size_t at = 0; at < nodes.size(); ++at) {
            if (at % step == 0) {
                row.m_firstNode = static_cast<std::uint32_t>(m_content.m_connectivity.size());
                m_content.m_rows.push_back(row);
            }
            m_content.m_connectivity.push_back(nodes[at] + firstNode);
        }
    }
    numberElements(firstElement, facets.m_isAtBoundary);
}

std::uint16_t StoreAssembly::typeNameOf(std::uint8_t dimension, int order)
{
    std::string const wanted = kTypeNames[dimension - 1u][static_cast<std::size_t>(order) - 1];
    auto& names = m_content.m_typeNames;
    auto const found = std::find(names.begin(), names.end(), wanted);
    auto const index = static_cast<std::uint16_t>(found - names.begin());
    if (found == names.end()) {
        names.push_back(wanted);
    }
    return index;
}

std::uint16_t StoreAssembly::addGroup(EntityPiece const& piece, bool isOnly)
{
    std::string const name = kNames[piece.m_dimension] + std::to_string(piece.m_entity);
    m_content.m_groups.push_back({static_cast<std::uint16_t>(m_content.m_bodies.size() - 1),
                                  piece.m_dimension, piece.m_entity,
                                  isOnly ? std::string() : name});
    return static_cast<std::uint16_t>(m_content.m_groups.size() - 1);
}

void StoreAssembly::numberElements(std::size_t first, std::vector<bool> const& isAtBoundary)
{
    std::size_t const solidCount = isAtBoundary.size();
    auto next = m_options.m_firstElementId + static_cast<ExternalId>(first);
    m_elementIds.resize(m_content.m_rows.size());
    for (std::size_t i = first + solidCount; i < m_elementIds.size(); ++i) {
        m_elementIds[i] = next++;
    }
    for (bool const wanted : {true, false}) {
        for (std::size_t i = 0; i < solidCount; ++i) {
            if (isAtBoundary[i] == wanted) {
                m_elementIds[first + i] = next++;
            }
        }
    }
}

void StoreAssembly::addNodes(BodyMesh const& mesh)
{
    std::size_t const first = m_content.m_positions.size();
    m_content.m_positions.insert(m_content.m_positions.end(), mesh.m_positions.begin(),
                                 mesh.m_positions.end());
    m_nodeIds.resize(m_content.m_positions.size());
    auto next = m_options.m_firstNodeId + static_cast<ExternalId>(first);
    for (std::uint8_t dimension = 0; dimension <= mesh.m_dimension; ++dimension) {
        for (EntityPiece const& piece : mesh.m_pieces) {
            if (piece.m_dimension != dimension) {
                continue;
            }
            for (LocalNumber node = 0; node < piece.m_nodeCount; ++node) {
                m_nodeIds[first + piece.m_firstNode + node] = next++;
            }
        }
    }
}

std::shared_ptr<MeshStore const> StoreAssembly::finish()
{
    if (m_content.m_rows.empty()) {
        return nullptr;
    }
    m_content.m_nodes = Numbering(std::move(m_nodeIds));
    m_content.m_elements = Numbering(std::move(m_elementIds));
    for (auto& [_, row] : m_entities) {
        m_content.m_entities.push_back(std::move(row));
    }
    return std::make_shared<MeshStore const>(std::move(m_content));
}

}  // namespace vrn::orlo::host::meshing
