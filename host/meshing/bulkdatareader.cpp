#include "host/meshing/bulkdatareader.h"

#include "host/meshing/abaqusscanner.h"
#include "host/meshing/bulkdataelements.h"
#include "host/meshing/bulkdatascanner.h"
#include "host/meshing/bulkdatasystems.h"
#include "host/meshing/meshbuilder.h"
#include "host/meshing/meshfileerror.h"
#include "host/meshing/meshtext.h"
#include "host/meshing/names.h"
#include "host/meshing/notused.h"
#include "host/meshing/numberedgroups.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

namespace {

class Reader {
public:
    explicit Reader(std::filesystem::path const& file)
        : m_scanner(file), m_file(file), m_builder(file.stem().string())
    {
    }

    MeshFile read()
    {
        while (m_scanner.next()) {
            card();
        }
        if (m_builder.elementCount() == 0) {
            throw MeshFileError(m_file, 0, "holds no elements", "is it the file with the mesh?");
        }
        placeNodes();
        MeshFile file{m_file.stem().string(), {}, {}, {}};
        file.m_parts.push_back(
            std::make_shared<MeshStore>(m_builder.finish(m_scanner.lines(), file.m_warnings)));
        file.m_instances.push_back({m_builder.name(), 0, {}});
        m_notUsed.report(m_file, file.m_warnings);
        return file;
    }

private:
    static constexpr ExternalId kInherited = -1;

    [[noreturn]] void refuse(std::string const& wrong, std::string const& mend) const
    {
        m_scanner.refuse(wrong, mend);
    }

    void card()
    {
        std::string_view const name = m_scanner.name();
        if (name == "GRID") {
            node();
        } else if (name == "GRDSET") {
            m_scanner.checkLines();
            m_defaultSystem = systemIn(1, 0);
        } else if (auto const* const element = elementOf(name); element != nullptr) {
            this->element(*element);
        } else if (name.starts_with("CORD1") || name.starts_with("CORD2")) {
            system(name);
        } else if (auto const refused = refusedBulkDataElement(name); refused.has_value()) {
            refuse("element " + shown(m_scanner.field(0)) + " (" + std::string(name) + ") " +
                       std::string(refused->m_wrong),
                   std::string(refused->m_mend));
        } else if (name != "BEGIN") {
            m_notUsed.add(name);
        }
    }

    /// Most cards are of the kind of the one before.
    [[nodiscard]] BulkDataElement const* elementOf(std::string_view name)
    {
        if (m_kind == nullptr || m_kind->m_name != name) {
            auto const* const kind = bulkDataElement(name);
            if (kind == nullptr) {
                return nullptr;
            }
            m_kind = kind;
            m_typeName = m_builder.typeName(std::string(name));
        }
        return m_kind;
    }

    // --- fields --------------------------------------------------------------------------------

    [[nodiscard]] ExternalId idIn(std::size_t field, char const* what) const
    {
        std::string_view const text = m_scanner.field(field);
        auto const id = meshing::idIn(text);
        if (!id.has_value()) {
            refuse("\"" + shown(text) + "\" is no number of " + what,
                   "write a whole number above 0");
        }
        return *id;
    }

    /// Blank and 0 say that there is none.
    [[nodiscard]] ExternalId idOrNone(std::size_t field, char const* what) const
    {
        std::string_view const text = m_scanner.field(field);
        return text.empty() || text == "0" ? 0 : idIn(field, what);
    }

    [[nodiscard]] ExternalId systemIn(std::size_t field, ExternalId blank) const
    {
        return m_scanner.field(field).empty() ? blank : idOrNone(field, "a coordinate system");
    }

    [[nodiscard]] Point pointIn(std::size_t field) const
    {
        Point point{};
        for (double& coordinate : point) {
            std::string_view const text = m_scanner.field(field++);
            if (text.empty()) {
                continue;
            }
            auto const number = bulkDataNumber(text);
            if (!number.has_value()) {
                refuse("\"" + shown(text) + "\" is no coordinate", "write a number");
            }
            coordinate = *number;
        }
        return point;
    }

    // --- cards ---------------------------------------------------------------------------------

    void node()
    {
        m_scanner.checkLines();
        m_builder.addNode(idIn(0, "a node"), pointIn(2), MeshBuilder::kNoSet, m_scanner.line());
        m_systemOfNode.push_back(systemIn(1, kInherited));
        m_nodeLines.push_back(m_scanner.line());
        if (!m_scanner.field(5).empty() && m_scanner.field(5) != "0") {
            m_notUsed.add("CD of GRID");
        }
        if (!m_scanner.field(6).empty() && m_scanner.field(6) != "0") {
            m_notUsed.add("PS of GRID");
        }
    }

    /// CORD1R, CORD1C and CORD1S may give two systems on a card.
    void system(std::string_view name)
    {
        using Kind = BulkDataSystems::Kind;
        m_scanner.checkLines();
        BulkDataSystems::Definition definition;
        definition.m_line = m_scanner.line();
        switch (name.size() == 6 ? name[5] : ' ') {
            case 'R':
                definition.m_kind = Kind::rectangular;
                break;
            case 'C':
                definition.m_kind = Kind::cylindrical;
                break;
            case 'S':
                definition.m_kind = Kind::spherical;
                break;
            default:
                m_notUsed.add(name);
                return;
        }
        if (name[4] == '2') {
            definition.m_base = idOrNone(1, "a coordinate system");
            definition.m_points = {pointIn(2), pointIn(5), pointIn(8)};
            m_systems.add(idIn(0, "a coordinate system"), definition);
            return;
        }
        for (std::size_t field = 0; field < m_scanner.fieldCount(); field += 4) {
            for (std::size_t i = 0; i < 3; ++i) {
                definition.m_nodes[i] = idIn(field + 1 + i, "a node");
            }
            m_systems.add(idIn(field, "a coordinate system"), definition);
        }
    }

    void element(BulkDataElement const& kind)
    {
        m_scanner.checkLines();
        ExternalId const id = idIn(0, "an element");
        std::array<ExternalId, kMostElementNodes> nodes{};
        ElementType const type = nodesOf(kind, id, nodes);
        ElementTraits const& traits = traitsOf(type);
        m_builder.addElement(id, type, m_typeName, MeshBuilder::kNoSet, m_scanner.line(),
                             groupOf(kind, traits.m_dimension, id));
        m_builder.addElementNodes(std::span(nodes).first(traits.m_nodeCount),
                                  orderOf(kBulkDataOrders, type));
    }

    [[nodiscard]] ElementType nodesOf(BulkDataElement const& kind, ExternalId id,
                                      std::array<ExternalId, kMostElementNodes>& nodes) const
    {
        std::size_t const corners = traitsOf(kind.m_first).m_nodeCount;
        std::size_t const all = traitsOf(kind.m_second).m_nodeCount;
        std::size_t field = kind.m_nodeField;
        std::size_t given = 0;
        for (std::size_t i = 0; i < all; ++i, field += kind.m_step) {
            nodes[i] = i < corners && !kind.m_mayBeGrounded ? idIn(field, "a node")
                                                            : idOrNone(field, "a node");
            given += nodes[i] != 0 ? 1 : 0;
        }
        if (kind.m_mayBeGrounded && (given == 1 || nodes[0] == nodes[1])) {
            nodes[0] = nodes[0] != 0 ? nodes[0] : nodes[1];
            if (nodes[0] == 0) {
                refuse(labelOf(kind, id) + " has no node", "give it one");
            }
            return ElementType::point1;
        }
        if (given != all && given != corners) {
            refuse(labelOf(kind, id) + " has " + std::to_string(given - corners) + " of the " +
                       std::to_string(all - corners) + " nodes in the middle of its sides",
                   "give all of them, or none");
        }
        bool const isSolid = traitsOf(kind.m_first).m_dimension == 3;
        if (isSolid && m_scanner.fieldCount() > field) {
            refuse(labelOf(kind, id) + " has more than " + std::to_string(all) + " nodes",
                   "take the fields behind its last node out");
        }
        return given == all ? kind.m_second : kind.m_first;
    }

    [[nodiscard]] static std::string labelOf(BulkDataElement const& kind, ExternalId id)
    {
        return "element " + std::to_string(id) + " (" + std::string(kind.m_name) + ")";
    }

    [[nodiscard]] std::uint16_t groupOf(BulkDataElement const& kind, std::uint8_t dimension,
                                        ExternalId id)
    {
        if (!kind.m_hasProperty) {
            return m_builder.group(dimension, std::string(kind.m_name));
        }
        ExternalId const property = m_scanner.field(1).empty() ? id : idIn(1, "a property");
        std::uint16_t const group = m_groups.of(m_builder, dimension, property, "property");
        if (group == NumberedGroups::kNone) {
            refuse(labelOf(kind, id) + " is of one property more than the " +
                       std::to_string(MeshBuilder::kMostGroups) + " that a mesh may have",
                   "let elements share properties");
        }
        return group;
    }

    // --- places --------------------------------------------------------------------------------

    /// Systems may stand on nodes of other systems: first they are all worked out from the places
    /// as they are given, then nodes are moved.
    void placeNodes()
    {
        auto const place = [this](ExternalId node, SourceLine askedBy) {
            return placeOf(node, askedBy);
        };
        for (std::size_t i = 0; i < m_systemOfNode.size(); ++i) {
            if (m_systemOfNode[i] == kInherited) {
                m_systemOfNode[i] = m_defaultSystem;
            }
        }
        ExternalId last = 0;
        for (std::size_t i = 0; i < m_systemOfNode.size(); ++i) {
            if (m_systemOfNode[i] != last) {
                last = m_systemOfNode[i];
                m_systems.resolve(last, place, m_nodeLines[i]);
            }
        }
        for (std::size_t i = 0; i < m_systemOfNode.size(); ++i) {
            Point& position = m_builder.nodePosition(i);
            position = m_systems.inBasic(m_systemOfNode[i], position);
        }
    }

    [[nodiscard]] Point placeOf(ExternalId node, SourceLine askedBy)
    {
        for (std::size_t i = 0; i < m_builder.nodeCount(); ++i) {
            if (m_builder.nodeId(i) == node) {
                m_systems.resolve(
                    m_systemOfNode[i],
                    [this](ExternalId n, SourceLine line) { return placeOf(n, line); },
                    m_nodeLines[i]);
                return m_systems.inBasic(m_systemOfNode[i], m_builder.nodePosition(i));
            }
        }
        m_scanner.lines().refuse(
            askedBy,
            "a coordinate system names node " + std::to_string(node) + ", which does not exist",
            "add the node or correct the system");
    }

    BulkDataScanner m_scanner;
    std::filesystem::path m_file;
    MeshBuilder m_builder;
    NumberedGroups m_groups;
    NotUsed m_notUsed;
    BulkDataElement const* m_kind = nullptr;  // of the last element
    std::uint16_t m_typeName = 0;
    BulkDataSystems m_systems{m_scanner.lines()};
    ExternalId m_defaultSystem = 0;
    std::vector<ExternalId> m_systemOfNode;
    std::vector<SourceLine> m_nodeLines;
};

}  // namespace

MeshFile readBulkDataMesh(std::filesystem::path const& file)
{
    return Reader(file).read();
}

bool looksLikeBulkData(std::filesystem::path const& file)
{
    std::string reason;
    std::string const content = meshTextOf(file, reason);
    if (!reason.empty()) {
        return true;
    }
    std::string_view text = content;
    while (!text.empty()) {
        std::size_t const end = text.find('\n');
        std::string const line = inCapitals(trimmed(text.substr(0, end)).substr(0, 10));
        if (line == "BEGIN BULK" || (line.starts_with("GRID") && line.size() > 4 &&
                                     (isBlank(line[4]) || line[4] == '*' || line[4] == ','))) {
            return true;
        }
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return false;
}

}  // namespace vrn::orlo::host::meshing
