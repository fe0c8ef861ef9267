#include "host/meshing/abaqusreader.h"

#include "host/meshing/abaquselements.h"
#include "host/meshing/abaqusparts.h"
#include "host/meshing/abaqusscanner.h"
#include "host/meshing/meshbuilder.h"
#include "host/meshing/meshtext.h"
#include "host/meshing/names.h"
#include "host/meshing/notused.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

/// Keywords that make or move nodes and elements. Without them the mesh would be another one.
constexpr std::array<std::string_view, 7> kRefused{"NGEN",  "NFILL",  "NCOPY", "NMAP",
                                                   "ELGEN", "ELCOPY", "SYSTEM"};

/// Keywords without a meaning of their own: titles, and ends of what has ended.
constexpr std::array<std::string_view, 2> kIdle{"HEADING", "ENDINSTANCE"};

template <class Names>
bool isOneOf(Names const& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

class Reader {
public:
    explicit Reader(std::filesystem::path const& file)
        : m_scanner(file), m_file(file), m_parts(m_scanner, file.stem().string())
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
        } else if (isOneOf(kRefused, name)) {
            refuse("*" + keyword.m_name + " makes or moves parts of the mesh, and is not read",
                   "write the nodes and elements out");
        } else {
            passOver(keyword);
        }
    }

    /// What a step holds is not worth counting: it is the step that is not used.
    void passOver(Keyword const& keyword)
    {
        if (keyword.m_name == "STEP") {
            if (!m_hasSteps) {
                m_warnings.push_back(m_scanner.lines().place(keyword.m_line) +
                                     ": the steps are not used, nor what they hold");
            }
            m_inStep = m_hasSteps = true;
        } else if (keyword.m_name == "ENDSTEP") {
            m_inStep = false;
        } else if (!m_inStep && !isOneOf(kIdle, keyword.m_name)) {
            m_notUsed.add("*" + keyword.m_title);
        }
    }

    void beginBlock(std::string_view name)
    {
        Keyword const& keyword = m_scanner.keyword();
        bool const isSet = name.ends_with("SET");
        std::size_t part = m_part;
        bool const isStraySet = isSet && m_part == kNone && m_parts.areAll();
        if (m_inAssembly || isStraySet) {
            part = isSet ? partOfInstance() : kNone;
            if (part == kNone) {
                m_warnings.push_back(m_scanner.lines().place(keyword.m_line) + ": *" +
                                     std::string(name) + " belongs to no part and is left out");
                return;
            }
        }
        m_builder = &m_parts.builder(part);
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

    /// The part of the instance that the keyword names.
    [[nodiscard]] std::size_t partOfInstance() const
    {
        auto const name = m_scanner.keyword().value("INSTANCE");
        return name.has_value() ? m_parts.partOfInstance(*name) : kNone;
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

    void beginPart() { m_part = m_parts.add(needed("NAME")); }

    void beginInstance()
    {
        std::string const part = needed("PART");
        std::size_t const index = m_parts.find(part);
        if (index == kNone) {
            refuse("the instance is one of part \"" + part + "\", which does not exist above",
                   "correct the name, or write the part in front of the assembly");
        }
        m_instance = &m_parts.addInstance(needed("NAME"), index);
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
        if (auto const refused = refusedAbaqusElement(m_typeText); refused.has_value()) {
            refuse("element type " + m_typeText + " " + std::string(refused->m_wrong),
                   std::string(refused->m_mend));
        }
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
            refuse("\"" + shown(field) + "\" is no number of " + what,
                   "write a whole number above 0");
        }
        return *number;
    }

    [[nodiscard]] double number(Fields& fields, char const* what) const
    {
        std::string_view const field = fields.next();
        auto const number = numberIn(field);
        if (!number.has_value()) {
            refuse("\"" + shown(field) + "\" is no " + what, "write a number");
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

    [[nodiscard]] unsigned nodeCount() const { return traitsOf(m_type).m_nodeCount; }

    void elementLine(Fields& fields)
    {
        if (m_nodesToCome == 0) {
            m_element = id(fields, "an element");
            m_elementLine = m_scanner.line();
            m_builder->addElement(m_element, m_type, m_typeName, m_set, m_elementLine);
            m_nodesToCome = nodeCount();
        }
        unsigned tooMany = 0;
        while (!fields.atEnd()) {
            ExternalId const node = id(fields, "a node");
            if (m_nodesToCome == 0) {
                ++tooMany;
            } else {
                m_nodes[nodeCount() - m_nodesToCome] = node;
                if (--m_nodesToCome == 0) {
                    m_builder->addElementNodes(std::span(m_nodes).first(nodeCount()),
                                               orderOf(kAbaqusOrders, m_type));
                }
            }
        }
        if (tooMany > 0) {
            refuseNodeCount(nodeCount() + tooMany);
        }
        if (!fields.afterComma()) {
            checkElementIsWhole();
        }
    }

    void checkElementIsWhole() const
    {
        if (m_nodesToCome > 0) {
            refuseNodeCount(nodeCount() - m_nodesToCome);
        }
    }

    [[noreturn]] void refuseNodeCount(unsigned count) const
    {
        m_scanner.lines().refuse(
            m_elementLine,
            "element " + std::to_string(m_element) + " has " + std::to_string(count) +
                " nodes, and type " + m_typeText + " has " + std::to_string(nodeCount()),
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
        MeshPlacement& placement = m_instance->m_placement;
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
        MeshFile file = m_parts.finish(m_hasAssembly, m_warnings);
        if (std::all_of(file.m_parts.begin(), file.m_parts.end(),
                        [](auto const& part) { return part->elements().size() == 0; })) {
            throw MeshFileError(m_file, 0, "holds no elements",
                                "is it the input file with the mesh?");
        }
        m_notUsed.report(m_file, m_warnings);
        file.m_warnings = std::move(m_warnings);
        return file;
    }

    static constexpr std::size_t kNone = AbaqusParts::kNone;

    AbaqusScanner m_scanner;
    std::filesystem::path m_file;
    AbaqusParts m_parts;
    std::vector<std::string> m_warnings;
    NotUsed m_notUsed;

    // Where in the structure the scanner is.
    std::size_t m_part = kNone;
    bool m_inAssembly = false;
    bool m_hasAssembly = false;
    bool m_inStep = false;
    bool m_hasSteps = false;
    MeshInstance* m_instance = nullptr;  // whose lines are read
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
    std::array<ExternalId, kMostElementNodes> m_nodes{};  // of the element that is being read
    unsigned m_nodesToCome = 0;
    ExternalId m_element = 0;
    SourceLine m_elementLine = 0;
};

}  // namespace

MeshFile readAbaqusMesh(std::filesystem::path const& file)
{
    return Reader(file).read();
}

}  // namespace vrn::orlo::host::meshing
