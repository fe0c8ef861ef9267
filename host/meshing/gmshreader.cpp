#include "host/meshing/gmshreader.h"

#include "host/meshing/gmshelements.h"
#include "host/meshing/gmshhead.h"
#include "host/meshing/gmshsource.h"
#include "host/meshing/meshbuilder.h"
#include "host/meshing/meshfileerror.h"
#include "host/meshing/meshtext.h"
#include "host/meshing/notused.h"
#include "host/meshing/numberedgroups.h"

#include <array>
#include <cstdlib>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

namespace {

constexpr char const* kNodeNumber = "number of a node";
constexpr char const* kElementNumber = "number of an element";
constexpr char const* kTag = "tag of an entity";
constexpr char const* kCount = "count";

class Reader {
public:
    explicit Reader(std::filesystem::path const& file)
        : m_source(file), m_file(file), m_builder(file.stem().string())
    {
    }

    MeshFile read()
    {
        while (auto const name = m_source.beginSection()) {
            section(*name);
        }
        if (m_builder.elementCount() == 0) {
            throw MeshFileError(m_file, 0, "holds no elements",
                                "mesh the model before it is written");
        }
        MeshFile file{m_file.stem().string(), {}, {}, {}};
        file.m_parts.push_back(
            std::make_shared<MeshStore>(m_builder.finish(m_source.lines(), file.m_warnings)));
        file.m_instances.push_back({m_builder.name(), 0, {}});
        m_notUsed.report(m_file, file.m_warnings);
        return file;
    }

private:
    void section(std::string_view name)
    {
        if (m_head.majorVersion() == 0 && name != "MeshFormat" && name != "Comments") {
            m_source.refuse("$" + shown(name) + " comes where $MeshFormat should stand",
                            "write the mesh in format 4.1 or 2.2");
        }
        if (name == "MeshFormat") {
            m_head.readFormat(m_source);
        } else if (name == "PhysicalNames") {
            m_head.readPhysicalNames(m_source);
        } else if (name == "Entities") {
            m_head.readEntities(m_source);
        } else if (name == "Nodes") {
            m_head.majorVersion() == 2 ? plainNodes() : nodeBlocks();
        } else if (name == "Elements") {
            if (m_head.majorVersion() == 4) {
                elementBlocks();
            } else {
                m_source.isBinary() ? plainElementBlocks() : plainElements();
            }
        } else if (name == "ParametricNodes") {
            m_source.refuse("nodes with parameters of format 2 are not read",
                            "write the mesh without parameters, or in format 4.1");
        } else {
            if (name != "Comments") {
                m_notUsed.add("$" + shown(name));
            }
            m_source.skipSection();
            return;
        }
        m_source.endSection();
    }

    // --- nodes ---------------------------------------------------------------------------------

    [[nodiscard]] ExternalId checked(std::int64_t id, char const* what) const
    {
        if (id <= 0) {
            m_source.refuse("\"" + std::to_string(id) + "\" is no " + what,
                            "write a whole number above 0");
        }
        return id;
    }

    /// Of a node or an element.
    [[nodiscard]] ExternalId idIn(char const* what)
    {
        return checked(m_head.is41() ? m_source.int64(what) : m_source.int32(what), what);
    }

    [[nodiscard]] Point pointIn()
    {
        Point point;
        for (double& coordinate : point) {
            coordinate = m_source.real("coordinate");
        }
        return point;
    }

    void plainNodes()
    {
        std::int64_t const count = m_source.textCount(kCount);
        m_builder.reserveNodes(m_source.possible(count, 8));
        for (std::int64_t i = 0; i < count; ++i) {
            m_source.beginRecord();
            ExternalId const id = idIn(kNodeNumber);
            m_builder.addNode(id, pointIn(), MeshBuilder::kNoSet, m_source.line());
            m_source.endRecord();
        }
    }

    /// Blocks of both sections begin alike; format 4.0 has tag and dimension the other way round.
    struct Block {
        std::int64_t m_dimension;
        std::int64_t m_tag;
        std::int64_t m_kind;  ///< Whether nodes have parameters; the type of elements.
        std::int64_t m_count;
    };
    [[nodiscard]] Block blockIn(char const* kind)
    {
        m_source.beginRecord();
        Block block{};
        block.m_dimension = m_source.int32(m_head.is41() ? "dimension" : kTag);
        block.m_tag = m_source.int32(m_head.is41() ? kTag : "dimension");
        if (!m_head.is41()) {
            std::swap(block.m_dimension, block.m_tag);
        }
        if (block.m_dimension < 0 || block.m_dimension > 3) {
            m_source.refuse("\"" + std::to_string(block.m_dimension) + "\" is no dimension",
                            "write 0 to 3, or write the file again");
        }
        block.m_kind = m_source.int32(kind);
        block.m_count = m_source.int64(kCount);
        m_source.endRecord();
        return block;
    }

    /// How many blocks a section has, and how many nodes or elements in all.
    [[nodiscard]] std::pair<std::int64_t, std::int64_t> countsIn()
    {
        m_source.beginRecord();
        std::int64_t const blocks = m_source.int64(kCount);
        std::int64_t const all = m_source.int64(kCount);
        for (int i = 0; m_head.is41() && i < 2; ++i) {
            static_cast<void>(m_source.int64("smallest or largest number"));
        }
        m_source.endRecord();
        return {blocks, all};
    }

    void nodeBlocks()
    {
        auto const [blocks, all] = countsIn();
        m_builder.reserveNodes(m_source.possible(all, 8));
        for (std::int64_t b = 0; b < blocks; ++b) {
            Block const block = blockIn("0 or 1");
            std::int64_t const parameters = block.m_kind != 0 ? block.m_dimension : 0;
            m_nodeIds.clear();
            for (std::int64_t i = 0; m_head.is41() && i < block.m_count; ++i) {
                m_source.beginRecord();
                m_nodeIds.emplace_back(idIn(kNodeNumber), m_source.line());
                m_source.endRecord();
            }
            for (std::int64_t i = 0; i < block.m_count; ++i) {
                m_source.beginRecord();
                auto const [id, line] = m_head.is41()
                                            ? m_nodeIds[static_cast<std::size_t>(i)]
                                            : std::pair(idIn(kNodeNumber), m_source.line());
                m_builder.addNode(id, pointIn(), MeshBuilder::kNoSet, line);
                for (std::int64_t p = 0; p < parameters; ++p) {
                    static_cast<void>(m_source.real("parameter"));
                }
                m_source.endRecord();
            }
        }
    }

    // --- elements ------------------------------------------------------------------------------

    /// Makes the type the one of the elements to come.
    void beginType(std::int64_t number, ExternalId element)
    {
        if (number == m_typeNumber) {
            return;
        }
        auto const type = gmshElementType(number);
        if (!type.has_value()) {
            auto const refused = refusedGmshElement(number);
            std::string const name =
                "element " + std::to_string(element) + " (type " + std::to_string(number) + ") ";
            m_source.refuse(
                name + (refused ? std::string(refused->m_wrong) : "is of a type that is not known"),
                refused ? std::string(refused->m_mend)
                        : "write the file again, with elements of known types");
        }
        m_typeNumber = number;
        m_type = *type;
        m_typeName =
            m_builder.typeName(std::string(kGmshElements[static_cast<std::size_t>(m_type)].m_name));
    }

    [[nodiscard]] std::uint16_t groupOf(std::int64_t tag)
    {
        std::uint8_t const dimension = traitsOf(m_type).m_dimension;
        std::uint16_t const group =
            m_groups.of(m_builder, dimension, tag, kGmshEntities[dimension]);
        if (group == NumberedGroups::kNone) {
            m_source.refuse("the mesh has elements on more than " +
                                std::to_string(MeshBuilder::kMostGroups) + " entities",
                            "write it in several files");
        }
        return group;
    }

    [[nodiscard]] MeshBuilder::SetIndex setOf(std::int64_t physical)
    {
        std::int64_t const dimension = traitsOf(m_type).m_dimension;
        auto found = m_sets.find({dimension, physical});
        if (found == m_sets.end()) {
            auto const set = m_builder.set(SetKind::elements, m_head.nameOf(dimension, physical));
            found = m_sets.emplace(std::pair(dimension, physical), set).first;
        }
        return found->second;
    }

    void addElement(ExternalId id, std::uint16_t group, MeshBuilder::SetIndex set)
    {
        m_builder.addElement(id, m_type, m_typeName, set, m_source.line(), group);
        std::array<ExternalId, kMostElementNodes> nodes;
        std::size_t const count = traitsOf(m_type).m_nodeCount;
        for (std::size_t i = 0; i < count; ++i) {
            nodes[i] = idIn(kNodeNumber);
        }
        m_builder.addElementNodes(std::span(nodes).first(count), orderOf(kGmshOrders, m_type));
        m_source.endRecord();
    }

    /// The first tag of an element in format 2 is its physical group, the second its entity.
    struct PlainTags {
        std::int64_t m_physical = 0;
        std::int64_t m_entity = 0;
    };
    [[nodiscard]] PlainTags plainTagsIn(std::int64_t count)
    {
        PlainTags tags;
        for (std::int64_t i = 0; i < count; ++i) {
            std::int64_t const tag = m_source.int32("tag");
            if (i == 0) {
                tags.m_physical = std::abs(tag);
            } else if (i == 1) {
                tags.m_entity = tag;
            }
        }
        return tags;
    }

    void addPlainElement(ExternalId id, PlainTags const& tags)
    {
        auto const set = tags.m_physical != 0 ? setOf(tags.m_physical) : MeshBuilder::kNoSet;
        addElement(id, groupOf(tags.m_entity), set);
    }

    void plainElements()
    {
        std::int64_t const count = m_source.textCount(kCount);
        m_builder.reserveElements(m_source.possible(count, 6), ElementType::tetra4);
        for (std::int64_t i = 0; i < count; ++i) {
            m_source.beginRecord();
            ExternalId const id = idIn(kElementNumber);
            beginType(m_source.int32("type of an element"), id);
            std::int64_t const tags = m_source.int32(kCount);
            addPlainElement(id, plainTagsIn(tags));
        }
    }

    /// A block has as many elements as its head says; in all they are as many as the section does.
    void plainElementBlocks()
    {
        std::int64_t const count = m_source.textCount(kCount);
        m_builder.reserveElements(m_source.possible(count, 8), ElementType::tetra4);
        for (std::int64_t done = 0; done < count;) {
            m_source.beginRecord();
            std::int64_t const type = m_source.int32("type of an element");
            std::int64_t const inBlock = m_source.int32(kCount);
            std::int64_t const tags = m_source.int32(kCount);
            if (inBlock <= 0 || inBlock > count - done || tags < 0) {
                m_source.refuse("a block of " + std::to_string(inBlock) + " elements with " +
                                    std::to_string(tags) + " tags cannot stand here",
                                "write the file again");
            }
            for (std::int64_t i = 0; i < inBlock; ++i, ++done) {
                m_source.beginRecord();
                ExternalId const id = idIn(kElementNumber);
                beginType(type, id);
                addPlainElement(id, plainTagsIn(tags));
            }
        }
    }

    void elementBlocks()
    {
        auto const [blocks, all] = countsIn();
        m_builder.reserveElements(m_source.possible(all, 4), ElementType::tetra4);
        for (std::int64_t b = 0; b < blocks; ++b) {
            Block const block = blockIn("type of an element");
            for (std::int64_t i = 0; i < block.m_count; ++i) {
                m_source.beginRecord();
                ExternalId const id = idIn(kElementNumber);
                beginType(block.m_kind, id);
                if (i == 0) {
                    beginBlock(block);
                }
                addElement(id, m_blockGroup, MeshBuilder::kNoSet);
                for (MeshBuilder::SetIndex const set : m_blockSets) {
                    m_builder.addElementTo(set);
                }
            }
        }
    }

    void beginBlock(Block const& block)
    {
        m_blockGroup = groupOf(block.m_tag);
        m_blockSets.clear();
        for (std::int64_t const physical : m_head.physicalsOf(block.m_dimension, block.m_tag)) {
            m_blockSets.push_back(setOf(physical));
        }
    }

    GmshSource m_source;
    std::filesystem::path m_file;
    GmshHead m_head;
    MeshBuilder m_builder;
    NumberedGroups m_groups;
    NotUsed m_notUsed;

    // By dimension and tag of the physical group.
    std::map<std::pair<std::int64_t, std::int64_t>, MeshBuilder::SetIndex> m_sets;
    std::vector<std::pair<ExternalId, SourceLine>> m_nodeIds;  // of a block

    // The elements that are being read.
    std::int64_t m_typeNumber = -1;
    ElementType m_type{};
    std::uint16_t m_typeName = 0;
    std::uint16_t m_blockGroup = 0;
    std::vector<MeshBuilder::SetIndex> m_blockSets;
};

}  // namespace

MeshFile readGmshMesh(std::filesystem::path const& file)
{
    return Reader(file).read();
}

}  // namespace vrn::orlo::host::meshing
