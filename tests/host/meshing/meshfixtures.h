/// \file
/// Meshes for tests, made in place.

#pragma once

#include "host/meshing/meshstore.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Gathers a store. Ids run downwards from above 32 bits, so that they order otherwise than the
/// numbers do.
class StoreMaker {
public:
    static constexpr ExternalId kLastNode = (ExternalId{1} << 40) + 1000;
    static constexpr ExternalId kLastElement = (ExternalId{1} << 33) + 1000;

    [[nodiscard]] static ExternalId nodeId(LocalNumber number) { return kLastNode - number; }
    [[nodiscard]] static ExternalId elementId(LocalNumber number) { return kLastElement - number; }

    LocalNumber node(Point const& position)
    {
        m_content.m_positions.push_back(position);
        return static_cast<LocalNumber>(m_content.m_positions.size());
    }
    LocalNumber element(ElementType type, std::vector<LocalNumber> const& nodes,
                        std::uint16_t group = 0)
    {
        std::vector<LocalNumber>& all = m_content.m_connectivity;
        m_content.m_rows.push_back({static_cast<std::uint32_t>(all.size()), 0, type, group});
        all.insert(all.end(), nodes.begin(), nodes.end());
        return static_cast<LocalNumber>(m_content.m_rows.size());
    }
    [[nodiscard]] MeshStore::Content& content() { return m_content; }

    [[nodiscard]] std::shared_ptr<MeshStore const> make()
    {
        m_content.m_name = "bolt";
        m_content.m_typeNames = {"ANY"};
        std::vector<ExternalId> ids;
        for (LocalNumber node = 1; node <= m_content.m_positions.size(); ++node) {
            ids.push_back(nodeId(node));
        }
        m_content.m_nodes = Numbering(std::exchange(ids, {}));
        for (LocalNumber element = 1; element <= m_content.m_rows.size(); ++element) {
            ids.push_back(elementId(element));
        }
        m_content.m_elements = Numbering(std::move(ids));
        return std::make_shared<MeshStore const>(std::move(m_content));
    }

private:
    MeshStore::Content m_content;
};

/// Two cubes side by side along x, with four nodes in common.
/// \param bodies  one body for both, or one for each, on the geometry bodies 100 and 200 with the
///                volumes 101 and 201
[[nodiscard]] inline std::shared_ptr<MeshStore const> twoCubes(unsigned bodies)
{
    StoreMaker maker;
    for (double const x : {0.0, 1.0, 2.0}) {
        for (Point const& yz : {Point{x, 0, 0}, Point{x, 1, 0}, Point{x, 1, 1}, Point{x, 0, 1}}) {
            maker.node(yz);
        }
    }
    auto const second = static_cast<std::uint16_t>(bodies - 1);
    maker.content().m_bodies = {{"left", 100}};
    maker.content().m_groups = {{0, 3, 101, "volume 101"}};
    if (bodies == 2) {
        maker.content().m_bodies.push_back({"right", 200});
        maker.content().m_groups.push_back({1, 3, 201, "volume 201"});
    }
    maker.element(ElementType::hexa8, {5, 6, 7, 8, 9, 10, 11, 12}, second);
    maker.element(ElementType::hexa8, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
    return maker.make();
}

}  // namespace vrn::orlo::host::meshing
