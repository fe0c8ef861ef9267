#include "host/meshing/gmshelements.h"
#include "host/meshing/meshwriter.h"
#include "host/meshing/nodeorder.h"
#include "host/meshing/textout.h"
#include "host/study/atomicfile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <set>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

/// The tag that "volume 3" or "property 7" ends in; 0 for other names.
std::int64_t tagIn(std::string_view name)
{
    std::size_t const blank = name.find_last_of(' ');
    std::int32_t tag = 0;
    if (blank != name.npos) {
        char const* const end = name.data() + name.size();
        auto const [stop, error] = std::from_chars(name.data() + blank + 1, end, tag);
        tag = error == std::errc() && stop == end ? tag : 0;
    }
    return std::max(tag, std::int32_t{0});
}

/// Gives each tag once.
class Tags {
public:
    /// The wanted one if it is above 0 and free, otherwise one that nobody wants.
    std::int64_t give(std::int64_t wanted)
    {
        if (wanted > 0 && m_taken.insert(wanted).second) {
            return wanted;
        }
        while (m_wanted.contains(m_next) || m_taken.contains(m_next)) {
            ++m_next;
        }
        m_taken.insert(m_next);
        return m_next;
    }
    void want(std::int64_t tag) { m_wanted.insert(tag); }

private:
    std::set<std::int64_t> m_wanted;
    std::set<std::int64_t> m_taken;
    std::int64_t m_next = 1;
};

class Writer {
public:
    explicit Writer(MeshStore const& mesh) : m_mesh(mesh), m_entities(mesh.groups().size()) {}

    [[nodiscard]] std::string const& text()
    {
        gatherEntities();
        gatherPhysicals();
        m_out << "$MeshFormat\n4.1 0 8\n$EndMeshFormat\n";
        writePhysicalNames();
        writeEntities();
        writeNodes();
        writeElements();
        return m_out.text();
    }

    [[nodiscard]] std::vector<std::string> leftOut(std::filesystem::path const& file) const
    {
        std::vector<std::string> lines;
        auto const tell = [&](std::size_t count, char const* what) {
            if (count > 0) {
                lines.push_back(file.string() + ": " + std::to_string(count) + " " + what +
                                " not written: the format has no place for them");
            }
        };
        tell(m_mesh.nodeSets().size(), "node sets");
        tell(m_setsLeftOut, "element sets that are empty or take a part of a group");
        return lines;
    }

private:
    struct Entity {
        std::int64_t m_tag = 0;
        std::size_t m_count = 0;  // elements
        MeshBox m_box;
        std::vector<std::int64_t> m_physicals;
    };
    struct PhysicalName {
        std::uint8_t m_dimension;
        std::int64_t m_tag;
        std::string m_name;
    };

    [[nodiscard]] std::uint8_t dimensionOf(std::size_t group) const
    {
        return m_mesh.groups()[group].m_dimension;
    }

    void gatherEntities()
    {
        std::array<Tags, 4> tags;
        for (MeshGroup const& group : m_mesh.groups()) {
            tags[group.m_dimension].want(tagIn(group.m_name));
        }
        for (std::size_t group = 0; group < m_entities.size(); ++group) {
            m_entities[group].m_tag =
                tags[dimensionOf(group)].give(tagIn(m_mesh.groups()[group].m_name));
        }
        for (LocalNumber element = 1; element <= m_mesh.elements().size(); ++element) {
            Entity& entity = m_entities[m_mesh.groupOf(element)];
            if (entity.m_count++ == 0) {
                Point const& first = m_mesh.position(m_mesh.nodesOf(element)[0]);
                entity.m_box = {first, first};
            }
            for (LocalNumber const node : m_mesh.nodesOf(element)) {
                Point const& point = m_mesh.position(node);
                for (std::size_t axis = 0; axis < point.size(); ++axis) {
                    entity.m_box.m_low[axis] = std::min(entity.m_box.m_low[axis], point[axis]);
                    entity.m_box.m_high[axis] = std::max(entity.m_box.m_high[axis], point[axis]);
                }
            }
        }
    }

    // --- physical groups -----------------------------------------------------------------------

    /// Nothing for a set that takes a part of a group.
    [[nodiscard]] std::vector<std::size_t> groupsOf(MeshSet const& set) const
    {
        std::vector<std::size_t> counts(m_entities.size());
        for (LocalNumber const element : set.m_numbers) {
            ++counts[m_mesh.groupOf(element)];
        }
        std::vector<std::size_t> groups;
        for (std::size_t group = 0; group < counts.size(); ++group) {
            if (counts[group] != 0 && counts[group] != m_entities[group].m_count) {
                return {};
            }
            if (counts[group] != 0) {
                groups.push_back(group);
            }
        }
        return groups;
    }

    /// "physical 3" is the name of a physical group that has none.
    [[nodiscard]] static bool isPlainPhysical(std::string_view name)
    {
        return tagIn(name) > 0 && name == "physical " + std::to_string(tagIn(name));
    }

    /// "volume 3" needs no name, as its tag says it.
    [[nodiscard]] bool isPlainGroup(std::size_t group) const
    {
        return m_mesh.groups()[group].m_name ==
               kGmshEntities[dimensionOf(group)] + (" " + std::to_string(m_entities[group].m_tag));
    }

    void gatherPhysicals()
    {
        Tags tags;
        for (MeshSet const& set : m_mesh.elementSets()) {
            tags.want(isPlainPhysical(set.m_name) ? tagIn(set.m_name) : 0);
        }
        for (MeshSet const& set : m_mesh.elementSets()) {
            std::vector<std::size_t> const groups = groupsOf(set);
            if (groups.empty()) {
                ++m_setsLeftOut;
            } else {
                bool const isPlain = isPlainPhysical(set.m_name);
                addPhysical(tags.give(isPlain ? tagIn(set.m_name) : 0),
                            isPlain ? std::string() : set.m_name, groups);
            }
        }
        for (std::size_t group = 0; group < m_entities.size(); ++group) {
            std::string const& name = m_mesh.groups()[group].m_name;
            if (!name.empty() && !isPlainGroup(group) &&
                findSet(m_mesh.elementSets(), name) == nullptr) {
                addPhysical(tags.give(0), name, {group});
            }
        }
    }

    void addPhysical(std::int64_t tag, std::string name, std::vector<std::size_t> const& groups)
    {
        std::replace(name.begin(), name.end(), '"', '\'');
        std::replace(name.begin(), name.end(), '\n', ' ');
        std::array<bool, 4> isNamed{};
        for (std::size_t const group : groups) {
            m_entities[group].m_physicals.push_back(tag);
            std::uint8_t const dimension = dimensionOf(group);
            if (!name.empty() && !std::exchange(isNamed[dimension], true)) {
                m_names.push_back({dimension, tag, name});
            }
        }
    }

    void writePhysicalNames()
    {
        if (m_names.empty()) {
            return;
        }
        m_out << "$PhysicalNames\n" << static_cast<std::int64_t>(m_names.size()) << "\n";
        for (PhysicalName const& row : m_names) {
            m_out << std::int64_t{row.m_dimension} << " " << row.m_tag << " \"" << row.m_name
                  << "\"\n";
        }
        m_out << "$EndPhysicalNames\n";
    }

    // --- sections ------------------------------------------------------------------------------

    void writePoint(Point const& point)
    {
        m_out << " " << point[0] << " " << point[1] << " " << point[2];
    }

    void writeEntities()
    {
        std::array<std::int64_t, 4> counts{};
        for (MeshGroup const& group : m_mesh.groups()) {
            ++counts[group.m_dimension];
        }
        m_out << "$Entities\n"
              << counts[0] << " " << counts[1] << " " << counts[2] << " " << counts[3] << "\n";
        for (std::uint8_t dimension = 0; dimension < counts.size(); ++dimension) {
            for (std::size_t group = 0; group < m_entities.size(); ++group) {
                if (dimensionOf(group) == dimension) {
                    writeEntity(dimension, m_entities[group]);
                }
            }
        }
        m_out << "$EndEntities\n";
    }

    void writeEntity(std::uint8_t dimension, Entity const& entity)
    {
        m_out << entity.m_tag;
        writePoint(entity.m_box.m_low);
        if (dimension > 0) {
            writePoint(entity.m_box.m_high);
        }
        m_out << " " << static_cast<std::int64_t>(entity.m_physicals.size());
        for (std::int64_t const physical : entity.m_physicals) {
            m_out << " " << physical;
        }
        m_out << (dimension > 0 ? " 0\n" : "\n");  // of what bounds it nothing is known
    }

    void writeCounts(char const* section, std::size_t blocks, Numbering const& numbering)
    {
        std::int64_t smallest = numbering.size() > 0 ? std::numeric_limits<std::int64_t>::max() : 0;
        std::int64_t largest = 0;
        for (ExternalId const id : numbering.ids()) {
            smallest = std::min(smallest, id);
            largest = std::max(largest, id);
        }
        m_out << section << static_cast<std::int64_t>(blocks) << " "
              << std::int64_t{numbering.size()} << " " << smallest << " " << largest << "\n";
    }

    /// Where each run of numbers begins that have the same key, and one behind the last.
    template <class Key>
    [[nodiscard]] static std::vector<LocalNumber> runsOf(LocalNumber count, Key const& key)
    {
        std::vector<LocalNumber> runs;
        for (LocalNumber number = 1; number <= count; ++number) {
            if (number == 1 || key(number) != key(number - 1)) {
                runs.push_back(number);
            }
        }
        runs.push_back(count + 1);
        return runs;
    }

    /// A node is on the entity of the lowest dimension whose elements have it.
    [[nodiscard]] std::vector<std::uint16_t> groupsOfNodes() const
    {
        std::uint16_t highest = 0;
        for (std::uint16_t group = 0; group < m_entities.size(); ++group) {
            highest = dimensionOf(group) > dimensionOf(highest) ? group : highest;
        }
        std::vector<std::uint16_t> groups(m_mesh.nodes().size(), highest);
        std::vector<bool> isSet(m_mesh.nodes().size());
        for (LocalNumber element = 1; element <= m_mesh.elements().size(); ++element) {
            std::uint16_t const group = m_mesh.groupOf(element);
            for (LocalNumber const node : m_mesh.nodesOf(element)) {
                if (!isSet[node - 1] || dimensionOf(group) < dimensionOf(groups[node - 1])) {
                    groups[node - 1] = group;
                    isSet[node - 1] = true;
                }
            }
        }
        return groups;
    }

    void writeNodes()
    {
        std::vector<std::uint16_t> const groups = groupsOfNodes();
        auto const runs =
            runsOf(m_mesh.nodes().size(), [&groups](LocalNumber node) { return groups[node - 1]; });
        writeCounts("$Nodes\n", runs.size() - 1, m_mesh.nodes());
        for (std::size_t run = 0; run + 1 < runs.size(); ++run) {
            std::uint16_t const group = groups[runs[run] - 1];
            m_out << std::int64_t{dimensionOf(group)} << " " << m_entities[group].m_tag << " 0 "
                  << std::int64_t{runs[run + 1] - runs[run]} << "\n";
            for (LocalNumber node = runs[run]; node < runs[run + 1]; ++node) {
                m_out << m_mesh.nodes().idOf(node) << "\n";
            }
            for (LocalNumber node = runs[run]; node < runs[run + 1]; ++node) {
                Point const& point = m_mesh.position(node);
                m_out << point[0] << " " << point[1] << " " << point[2] << "\n";
            }
        }
        m_out << "$EndNodes\n";
    }

    void writeElements()
    {
        auto const runs = runsOf(m_mesh.elements().size(), [this](LocalNumber element) {
            return std::pair(m_mesh.groupOf(element), m_mesh.typeOf(element));
        });
        writeCounts("$Elements\n", runs.size() - 1, m_mesh.elements());
        for (std::size_t run = 0; run + 1 < runs.size(); ++run) {
            std::uint16_t const group = m_mesh.groupOf(runs[run]);
            ElementType const type = m_mesh.typeOf(runs[run]);
            m_out << std::int64_t{dimensionOf(group)} << " " << m_entities[group].m_tag << " "
                  << std::int64_t{kGmshElements[static_cast<std::size_t>(type)].m_number} << " "
                  << std::int64_t{runs[run + 1] - runs[run]} << "\n";
            for (LocalNumber element = runs[run]; element < runs[run + 1]; ++element) {
                writeElement(element, orderOf(kGmshOrders, type));
            }
        }
        m_out << "$EndElements\n";
    }

    void writeElement(LocalNumber element, NodeOrder const& order)
    {
        std::array<LocalNumber, kMostElementNodes> inFile;
        auto const nodes = m_mesh.nodesOf(element);
        for (std::size_t place = 0; place < nodes.size(); ++place) {
            inFile[order[place]] = nodes[place];
        }
        m_out << m_mesh.elements().idOf(element);
        for (std::size_t place = 0; place < nodes.size(); ++place) {
            m_out << " " << m_mesh.nodes().idOf(inFile[place]);
        }
        m_out << "\n";
    }

    MeshStore const& m_mesh;
    TextOut m_out;
    std::vector<Entity> m_entities;  // by group
    std::vector<PhysicalName> m_names;
    std::size_t m_setsLeftOut = 0;
};

}  // namespace

std::vector<std::string> writeGmshMesh(MeshStore const& mesh, std::filesystem::path const& file)
{
    Writer writer(mesh);
    study::writeFileAtomically(file, writer.text());
    return writer.leftOut(file);
}

}  // namespace vrn::orlo::host::meshing
