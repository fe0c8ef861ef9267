#include "host/meshing/abaquselements.h"
#include "host/meshing/meshwriter.h"
#include "host/meshing/names.h"
#include "host/meshing/nodeorder.h"
#include "host/meshing/textout.h"
#include "host/study/atomicfile.h"

#include <array>
#include <set>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

namespace {

constexpr std::size_t kMostOnLine = 16;
constexpr std::size_t kMostOfNumber = 20;

/// A name may hold neither commas nor quotation marks, and stays between the latter where it has
/// blanks.
std::string nameFor(std::string_view name, std::set<std::string>& taken)
{
    std::string clean(name);
    for (char& c : clean) {
        bool const isKept = c != ',' && c != '"' && c != '\'' && (c < '\0' || c >= ' ');
        c = isKept ? c : '_';
    }
    std::string const stem = clean;
    for (int copy = 2; !taken.insert(inCapitals(clean)).second; ++copy) {
        clean = stem + "_" + std::to_string(copy);
    }
    return clean.find(' ') != clean.npos ? "\"" + clean + "\"" : clean;
}

/// Writes one part.
class Writer {
public:
    Writer(MeshStore const& mesh, TextOut& out) : m_mesh(mesh), m_out(out) {}

    void write()
    {
        writeNodes();
        writeElements();
        for (MeshSet const& set : m_mesh.nodeSets()) {
            m_out << "*NSET, NSET=" << nameFor(set.m_name, m_nodeSetNames) << "\n";
            writeMembers(m_mesh.nodes(), set.m_numbers);
        }
        for (MeshSet const& set : m_mesh.elementSets()) {
            writeElementSet(set.m_name, set.m_numbers);
        }
        writeGroups();
    }

private:
    void writeNodes()
    {
        m_out << "*NODE\n";
        for (LocalNumber node = 1; node <= m_mesh.nodes().size(); ++node) {
            m_out << m_mesh.nodes().idOf(node);
            for (double const coordinate : m_mesh.position(node)) {
                m_out << ", ";
                m_out.real(coordinate, kMostOfNumber);
            }
            m_out << "\n";
        }
    }

    void writeElements()
    {
        std::string_view last;
        for (LocalNumber element = 1; element <= m_mesh.elements().size(); ++element) {
            ElementType const type = m_mesh.typeOf(element);
            std::string_view const own = m_mesh.typeNameOf(element);
            std::string_view const name =
                abaqusElementType(own) == type ? own : plainAbaqusName(type);
            if (name != last) {
                m_out << "*ELEMENT, TYPE=" << name << "\n";
                last = name;
            }
            m_out << m_mesh.elements().idOf(element);
            writeElementNodes(m_mesh.nodesOf(element), orderOf(kAbaqusOrders, type));
        }
    }

    void writeElementNodes(std::span<LocalNumber const> nodes, NodeOrder const& order)
    {
        std::array<LocalNumber, kMostElementNodes> inFile;
        for (std::size_t place = 0; place < nodes.size(); ++place) {
            inFile[order[place]] = nodes[place];
        }
        for (std::size_t place = 0; place < nodes.size(); ++place) {
            m_out << ((place + 1) % kMostOnLine == 0 ? ",\n" : ", ")
                  << m_mesh.nodes().idOf(inFile[place]);
        }
        m_out << "\n";
    }

    void writeElementSet(std::string_view name, std::span<LocalNumber const> numbers)
    {
        m_out << "*ELSET, ELSET=" << nameFor(name, m_elementSetNames) << "\n";
        writeMembers(m_mesh.elements(), numbers);
    }

    void writeMembers(Numbering const& numbering, std::span<LocalNumber const> numbers)
    {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            bool const endsLine = (i + 1) % kMostOnLine == 0 || i + 1 == numbers.size();
            m_out << numbering.idOf(numbers[i]) << (endsLine ? "\n" : ", ");
        }
    }

    void writeGroups()
    {
        std::vector<std::vector<LocalNumber>> members(m_mesh.groups().size());
        for (LocalNumber element = 1; element <= m_mesh.elements().size(); ++element) {
            members[m_mesh.groupOf(element)].push_back(element);
        }
        for (std::size_t group = 0; group < members.size(); ++group) {
            std::string const& name = m_mesh.groups()[group].m_name;
            if (!name.empty() && findSet(m_mesh.elementSets(), name) == nullptr) {
                writeElementSet(name, members[group]);
            }
        }
    }

    MeshStore const& m_mesh;
    TextOut& m_out;
    std::set<std::string> m_nodeSetNames;
    std::set<std::string> m_elementSetNames;
};

void writePlacement(MeshPlacement const& placement, TextOut& out)
{
    bool isFirst = true;
    auto const write = [&](Point const& point) {
        for (double const coordinate : point) {
            out << (std::exchange(isFirst, false) ? "" : ", ");
            out.real(coordinate, kMostOfNumber);
        }
    };
    bool const isTurned = placement.m_degrees != 0.0;
    if (isTurned || placement.m_translation != Point{}) {
        write(placement.m_translation);
        out << "\n";
    }
    if (isTurned) {
        isFirst = true;
        write(placement.m_axis[0]);
        write(placement.m_axis[1]);
        out << ", ";
        out.real(placement.m_degrees, kMostOfNumber);
        out << "\n";
    }
}

}  // namespace

void writeAbaqusMesh(MeshStore const& mesh, std::filesystem::path const& file)
{
    TextOut out;
    Writer(mesh, out).write();
    study::writeFileAtomically(file, out.text());
}

void writeAbaqusAssembly(MeshFile const& mesh, std::filesystem::path const& file)
{
    TextOut out;
    std::set<std::string> takenParts;
    std::vector<std::string> parts;
    for (auto const& part : mesh.m_parts) {
        parts.push_back(nameFor(part->name(), takenParts));
        out << "*PART, NAME=" << parts.back() << "\n";
        Writer(*part, out).write();
        out << "*END PART\n";
    }
    out << "*ASSEMBLY, NAME=ASSEMBLY\n";
    std::set<std::string> takenInstances;
    for (MeshInstance const& instance : mesh.m_instances) {
        out << "*INSTANCE, NAME=" << nameFor(instance.m_name, takenInstances)
            << ", PART=" << parts.at(instance.m_part) << "\n";
        writePlacement(instance.m_placement, out);
        out << "*END INSTANCE\n";
    }
    out << "*END ASSEMBLY\n";
    study::writeFileAtomically(file, out.text());
}

}  // namespace vrn::orlo::host::meshing
