// Takes the mesh of a body out of the mesher.

#include "host/meshing/gmshbody.h"
#include "host/meshing/gmshsession.h"

#include <algorithm>
#include <limits>
#include <string>

#include <gmsh.h>

namespace vrn::orlo::host::meshing {

namespace {

constexpr LocalNumber kNoNode = std::numeric_limits<LocalNumber>::max();
constexpr std::array kNames{"vertex ", "edge ", "face ", "volume "};

// The mesher's numbers for lines, triangles and tetrahedra, of first and second order.
constexpr std::array<std::array<int, 2>, 3> kGmshTypes{{{1, 8}, {2, 9}, {4, 11}}};

/// Elements of one entity, whose nodes are the mesher's.
struct RawPiece {
    int m_tag;
    unsigned m_entity;
    std::vector<std::size_t> m_nodes;
};

class Extraction {
public:
    Extraction(std::array<std::vector<unsigned>, 4> const& numbers, std::uint8_t dimension,
               int order)
        : m_numbers(numbers)
    {
        m_mesh.m_dimension = dimension;
        m_mesh.m_order = order;
    }

    BodyMesh run()
    {
        std::size_t const top = m_mesh.m_dimension;
        for (std::size_t dimension = 0; dimension <= top; ++dimension) {
            takeElements(dimension);
        }
        markUsed();
        for (std::size_t left = top + 1; left > 0; --left) {
            for (RawPiece const& raw : m_raw[left - 1]) {
                takeNodes(static_cast<int>(left) - 1, raw);
            }
        }
        for (EntityPiece& piece : m_mesh.m_pieces) {
            connect(piece);
        }
        return std::move(m_mesh);
    }

private:
    /// Ascending by entity. Of edges the lines matter in wires only.
    void takeElements(std::size_t dimension)
    {
        std::vector<RawPiece>& pieces = m_raw[dimension];
        for (std::size_t i = 0; i < m_numbers[dimension].size(); ++i) {
            pieces.push_back({static_cast<int>(i) + 1, m_numbers[dimension][i], {}});
        }
        std::sort(pieces.begin(), pieces.end(),
                  [](RawPiece const& a, RawPiece const& b) { return a.m_entity < b.m_entity; });
        bool const hasElements = dimension == m_mesh.m_dimension || dimension == 2;
        for (RawPiece& raw : pieces) {
            if (!hasElements) {
                continue;
            }
            std::vector<std::size_t> tags;
            gmsh::model::mesh::getElementsByType(
                kGmshTypes[dimension - 1][static_cast<std::size_t>(m_mesh.m_order) - 1], tags,
                raw.m_nodes, raw.m_tag);
            bool const hasToHave = dimension == m_mesh.m_dimension && dimension > 1;
            if (hasToHave && raw.m_nodes.empty()) {
                throw MesherError("the mesher made no elements on its " +
                                  std::string(kNames[dimension]) + std::to_string(raw.m_entity) +
                                  "; try a smaller size");
            }
        }
    }

    void markUsed()
    {
        std::size_t largest = 0;
        for (auto const& pieces : m_raw) {
            for (RawPiece const& raw : pieces) {
                for (std::size_t const node : raw.m_nodes) {
                    largest = std::max(largest, node);
                }
            }
        }
        m_isUsed.resize(largest + 1);
        m_nodeOf.assign(largest + 1, kNoNode);
        for (RawPiece const& raw : m_raw[m_mesh.m_dimension]) {
            for (std::size_t const node : raw.m_nodes) {
                m_isUsed[node] = true;
            }
        }
    }

    void takeNodes(int dimension, RawPiece const& raw)
    {
        std::vector<std::size_t> tags;
        std::vector<double> places;
        std::vector<double> ignored;
        gmsh::model::mesh::getNodes(tags, places, ignored, dimension, raw.m_tag, false, false);
        EntityPiece& piece = m_mesh.m_pieces.emplace_back();
        piece.m_entity = raw.m_entity;
        piece.m_dimension = static_cast<std::uint8_t>(dimension);
        piece.m_firstNode = static_cast<LocalNumber>(m_mesh.m_positions.size());
        for (std::size_t i = 0; i < tags.size(); ++i) {
            if (tags[i] < m_isUsed.size() && m_isUsed[tags[i]]) {
                m_nodeOf[tags[i]] = static_cast<LocalNumber>(m_mesh.m_positions.size());
                m_mesh.m_positions.push_back({places[3 * i], places[3 * i + 1], places[3 * i + 2]});
            }
        }
        piece.m_nodeCount = static_cast<LocalNumber>(m_mesh.m_positions.size()) - piece.m_firstNode;
    }

    void connect(EntityPiece& piece)
    {
        auto& raws = m_raw[piece.m_dimension];
        auto const raw = std::lower_bound(
            raws.begin(), raws.end(), piece.m_entity,
            [](RawPiece const& row, unsigned wanted) { return row.m_entity < wanted; });
        piece.m_connectivity.reserve(raw->m_nodes.size());
        for (std::size_t const node : raw->m_nodes) {
            if (m_nodeOf[node] == kNoNode) {
                throw MesherError("the mesher's " + std::string(kNames[piece.m_dimension]) +
                                  std::to_string(piece.m_entity) +
                                  " has a node that no element of the body has");
            }
            piece.m_connectivity.push_back(m_nodeOf[node]);
        }
        constexpr std::size_t kTetra10Nodes = 10;
        if (piece.m_dimension == 3 && m_mesh.m_order == 2) {
            // The mesher has the last two middle nodes the other way round.
            for (std::size_t end = kTetra10Nodes; end <= piece.m_connectivity.size();
                 end += kTetra10Nodes) {
                std::swap(piece.m_connectivity[end - 2], piece.m_connectivity[end - 1]);
            }
        }
    }

    std::array<std::vector<unsigned>, 4> const& m_numbers;
    std::array<std::vector<RawPiece>, 4> m_raw;
    std::vector<bool> m_isUsed;         // by the mesher's number
    std::vector<LocalNumber> m_nodeOf;  // the same
    BodyMesh m_mesh;
};

}  // namespace

BodyMesh GmshBody::extract(std::uint8_t dimension) const
{
    BodyMesh mesh;
    onGmsh([&] { mesh = Extraction(m_numbers, dimension, m_options.m_order).run(); });
    return mesh;
}

}  // namespace vrn::orlo::host::meshing
