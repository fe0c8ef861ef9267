#include "host/meshing/abaqusreader.h"

#include "host/meshing/abaquselements.h"
#include "host/meshing/abaqusscanner.h"
#include "host/meshing/meshbuilder.h"
#include "host/meshing/names.h"

#include <algorithm>
#include <array>
#include <deque>
#include <optional>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

/// Keywords that make or move nodes and elements. Without them the mesh would be another one.
constexpr std::array<std::string_view, 7> kRefused{"NGEN",  "NFILL",  "NCOPY", "NMAP",
                                                   "ELGEN", "ELCOPY", "SYSTEM"};

class Reader {
public:
    explicit Reader(std::filesystem::path const& file)
        : m_scanner(file), m_file(file), m_stem(file.stem().string())
    {
    }

    MeshFile read()
    {
        for (;;) {
            AbaqusScanner::Kind const kind = m_scanner.next();
            if (kind == AbaqusScanner::Kind::data) {
                dataLine();
                continue;
            }
            checkElementIsWhole();
            if (kind == AbaqusScanner::Kind::end) {
                return finish();
            }
            keywordLine();
        }
    }

private:
    enum class Block { skipped, nodes, elements, set, instance };

    [[noreturn]] void refuse(std::string const& wrong, std::string const& mend) const
    {
        m_scanner.refuse(wrong, mend);
    }

    // --- structure -----------------------------------------------------------------------------

    void keywordLine()
    {
        Keyword const& keyword = m_scanner.keyword();
        std::string_view const name = keyword.m_name;
        m_block = Block::skipped;
        if (name == "NODE" || name == "ELEMENT" || name == "NSET" || name == "ELSET") {
            beginBlock(name);
        } else if (name == "PART") {
            beginPart();
        } else if (name == "ENDPART") {
            m_part = kNone;
        } else if (name == "ASSEMBLY") {
            m_inAssembly = m_hasAssembly = true;
        } else if (name == "ENDASSEMBLY") {
            m_inAssembly = false;
        } else if (name == "INSTANCE") {
            beginInstance();
        } else if (std::find(kRefused.begin(), kRefused.end(), name) != kRefused.end()) {
            refuse("*" + keyword.m_name + " makes or moves parts of the mesh, and is not read",
                   "write the nodes and elements out");
        }
    }

    void beginBlock(std::string_view name)
    {
        Keyword const& keyword = m_scanner.keyword();
        bool const isSet = name.ends_with("SET");
        std::size_t part = m_part;
        bool const isStraySet =
            isSet && m_part == kNone && m_flatPart == kNone && !m_builders.empty();
        if (m_inAssembly || isStraySet) {
            part = isSet ? partOfInstance() : kNone;
            if (part == kNone) {
                m_warnings.push_back(m_scanner.lines().place(keyword.m_line) + ": *" +
                                     std::string(name) + " belongs to no part and is left out");
                return;
            }
        }
        m_builder = &builderOf(part);
        if (isSet) {
            beginSet(name == "NSET" ? SetKind::nodes : SetKind::elements);
        } else if (name == "NODE") {
            beginNodes();
        } else {
            beginElements();
        }
        if (auto const input = keyword.value("INPUT"); input.has_value()) {
            m_scanner.include(*input);
        }
    }

    /// The part's builder; what stands outside of parts comes into one named after the file.
    MeshBuilder& builderOf(std::size_t part)
    {
        if (part == kNone && m_flatPart == kNone) {
            m_flatPart = addPart(m_stem);
        }
        return m_builders[part != kNone ? part : m_flatPart];
    }

    std::size_t addPart(std::string const& name)
    {
        if (partOf(name) != kNone) {
            refuse("there are two parts with the name \"" + name + "\"", "rename one of them");
        }
        m_builders.emplace_back(name);
        return m_builders.size() - 1;
    }

    [[nodiscard]] std::size_t partOf(std::string_view name) const
    {
        for (std::size_t i = 0; i < m_builders.size(); ++i) {
            if (isSameName(m_builders[i].name(), name)) {
                return i;
            }
        }
        return kNone;
    }

    /// The part of the instance that the keyword names.
    [[nodiscard]] std::size_t partOfInstance() const
    {
        auto const name = m_scanner.keyword().value("INSTANCE");
        for (MeshInstance const& instance : m_instances) {
            if (name.has_value() && isSameName(instance.m_name, *name)) {
                return instance.m_part;
            }
        }
        return kNone;
    }

    [[nodiscard]] std::string needed(std::string_view parameter) const
    {
        Keyword const& keyword = m_scanner.keyword();
        auto const value = keyword.value(parameter);
        if (!value.has_value() || value->empty()) {
            m_scanner.lines().refuse(keyword.m_line,
                                     "*" + keyword.m_name + " has no " + std::string(parameter),
                                     "add " + std::string(parameter) + "=...");
        }
        return *value;
    }

    void beginPart() { m_part = addPart(needed("NAME")); }

    void beginInstance()
    {
        std::string const part = needed("PART");
        std::size_t const index = partOf(part);
        if (index == kNone) {
            refuse("the instance is one of part \"" + part + "\", which does not exist above",
                   "correct the name, or write the part in front of the assembly");
        }
        m_instances.push_back({needed("NAME"), index, {}});
        m_instanceLines = 0;
        m_block = Block::instance;
    }

    // --- blocks --------------------------------------------------------------------------------

    [[nodiscard]] MeshBuilder::SetIndex setOfBlock(SetKind kind, std::string_view parameter)
    {
        auto const name = m_scanner.keyword().value(parameter);
        return name.has_value() ? m_builder->set(kind, *name) : MeshBuilder::kNoSet;
    }

    void beginNodes()
    {
        if (auto const system = m_scanner.keyword().value("SYSTEM");
            system.has_value() && !isSameName(*system, "R")) {
            refuse("the nodes are given in system " + *system + ", which is not read",
                   "give them as x, y and z");
        }
        m_set = setOfBlock(SetKind::nodes, "NSET");
        m_block = Block::nodes;
    }

    void beginElements()
    {
        m_typeText = inCapitals(needed("TYPE"));
        auto const type = abaqusElementType(m_typeText);
        if (!type.has_value()) {
            refuse("element type " + m_typeText + " is not known",
                   "convert its elements to a known type, such as C3D10, C3D8, S8 or B32");
        }
        m_type = *type;
        m_typeName = m_builder->typeName(m_typeText);
        m_set = setOfBlock(SetKind::elements, "ELSET");
        m_block = Block::elements;
    }

    void beginSet(SetKind kind)
    {
        m_setKind = kind;
        m_set = m_builder->set(kind, needed(kind == SetKind::nodes ? "NSET" : "ELSET"));
        m_isGenerated = m_scanner.keyword().value("GENERATE").has_value();
        auto const elements = m_scanner.keyword().value("ELSET");
        if (kind == SetKind::nodes && elements.has_value()) {
            m_builder->addSet(kind, m_set, *elements, SetKind::elements, m_scanner.line());
        }
        m_block = Block::set;
    }

    void dataLine()
    {
        Fields fields(m_scanner.data());
        switch (m_block) {
            case Block::skipped:
                break;
            case Block::nodes:
                nodeLine(fields);
                break;
            case Block::elements:
                elementLine(fields);
                break;
            case Block::set:
                m_isGenerated ? rangeLine(fields) : memberLine(fields);
                break;
            case Block::instance:
                instanceLine(fields);
                break;
        }
    }

    [[nodiscard]] ExternalId id(Fields& fields, char const* what) const
    {
        std::string_view const field = fields.next();
        auto const number = idIn(field);
        if (!number.has_value()) {
            refuse("\"" + std::string(field) + "\" is no number of " + what,
                   "write a whole number above 0");
        }
        return *number;
    }

    [[nodiscard]] double number(Fields& fields, char const* what) const
    {
        std::string_view const field = fields.next();
        auto const number = numberIn(field);
        if (!number.has_value()) {
            refuse("\"" + std::string(field) + "\" is no " + what, "write a number");
        }
        return *number;
    }

    void nodeLine(Fields& fields)
    {
        ExternalId const node = id(fields, "a node");
        Point position{};
        for (double& coordinate : position) {  // what is left out is 0; a normal may follow
            if (!fields.atEnd()) {
                coordinate = number(fields, "coordinate");
            }
        }
        m_builder->addNode(node, position, m_set, m_scanner.line());
    }

    void elementLine(Fields& fields)
    {
        if (m_nodesToCome == 0) {
            m_element = id(fields, "an element");
            m_elementLine = m_scanner.line();
            m_builder->addElement(m_element, m_type, m_typeName, m_set, m_elementLine);
            m_nodesToCome = traitsOf(m_type).m_nodeCount;
        }
        unsigned tooMany = 0;
        while (!fields.atEnd()) {
            ExternalId const node = id(fields, "a node");
            if (m_nodesToCome == 0) {
                ++tooMany;
            } else {
                m_builder->addElementNode(node);
                --m_nodesToCome;
            }
        }
        if (tooMany > 0) {
            refuseNodeCount(traitsOf(m_type).m_nodeCount + tooMany);
        }
        if (!fields.afterComma()) {
            checkElementIsWhole();
        }
    }

    void checkElementIsWhole() const
    {
        if (m_nodesToCome > 0) {
            refuseNodeCount(traitsOf(m_type).m_nodeCount - m_nodesToCome);
        }
    }

    [[noreturn]] void refuseNodeCount(unsigned count) const
    {
        m_scanner.lines().refuse(
            m_elementLine,
            "element " + std::to_string(m_element) + " has " + std::to_string(count) +
                " nodes, and type " + m_typeText + " has " +
                std::to_string(traitsOf(m_type).m_nodeCount),
            "correct the type or the nodes; a line that goes on ends with a comma");
    }

    void memberLine(Fields& fields)
    {
        while (!fields.atEnd()) {
            std::string_view const field = fields.next();
            if (auto const member = idIn(field)) {
                m_builder->addMember(m_setKind, m_set, *member, m_scanner.line());
            } else if (!field.empty()) {
                m_builder->addSet(m_setKind, m_set, std::string(field), m_setKind,
                                  m_scanner.line());
            }
        }
    }

    void rangeLine(Fields& fields)
    {
        char const* const what = m_setKind == SetKind::nodes ? "a node" : "an element";
        ExternalId const first = id(fields, what);
        ExternalId const last = fields.atEnd() ? first : id(fields, what);
        ExternalId const step = fields.atEnd() ? 1 : id(fields, "a step");
        m_builder->addRange(m_setKind, m_set, first, last, step);
    }

    void instanceLine(Fields& fields)
    {
        MeshPlacement& placement = m_instances.back().m_placement;
        auto const read = [&](Point& point) {
            for (double& coordinate : point) {
                coordinate = fields.atEnd() ? 0.0 : number(fields, "coordinate");
            }
        };
        if (m_instanceLines++ == 0) {
            read(placement.m_translation);
        } else {
            read(placement.m_axis[0]);
            read(placement.m_axis[1]);
            placement.m_degrees = fields.atEnd() ? 0.0 : number(fields, "angle");
        }
    }

    MeshFile finish()
    {
        MeshFile file{m_stem, {}, std::move(m_instances), {}};
        bool hasElements = false;
        for (std::size_t part = 0; part < m_builders.size(); ++part) {
            MeshBuilder& builder = m_builders[part];
            hasElements = hasElements || builder.elementCount() > 0;
            file.m_parts.push_back(
                std::make_shared<MeshStore>(builder.finish(m_scanner.lines(), m_warnings)));
            if (!m_hasAssembly || part == m_flatPart) {
                file.m_instances.push_back({builder.name(), part, {}});
            }
        }
        if (!hasElements) {
            throw MeshFileError(m_file, 0, "holds no elements",
                                "is it the input file with the mesh?");
        }
        file.m_warnings = std::move(m_warnings);
        return file;
    }

    static constexpr std::size_t kNone = ~std::size_t{0};

    AbaqusScanner m_scanner;
    std::filesystem::path m_file;
    std::string m_stem;
    std::deque<MeshBuilder> m_builders;  // does not move its elements
    std::vector<MeshInstance> m_instances;
    std::vector<std::string> m_warnings;

    // Where in the structure the scanner is.
    std::size_t m_part = kNone;
    std::size_t m_flatPart = kNone;
    bool m_inAssembly = false;
    bool m_hasAssembly = false;
    unsigned m_instanceLines = 0;

    // The block that is being read.
    Block m_block = Block::skipped;
    MeshBuilder* m_builder = nullptr;
    MeshBuilder::SetIndex m_set = MeshBuilder::kNoSet;
    SetKind m_setKind = SetKind::nodes;
    bool m_isGenerated = false;
    ElementType m_type{};
    std::uint16_t m_typeName = 0;
    std::string m_typeText;
    unsigned m_nodesToCome = 0;  // of the element that is being read
    ExternalId m_element = 0;
    SourceLine m_elementLine = 0;
};

}  // namespace

MeshFile readAbaqusMesh(std::filesystem::path const& file)
{
    return Reader(file).read();
}

}  // namespace vrn::orlo::host::meshing
