#include "host/meshing/gmshreader.h"

#include "host/meshing/meshreading.h"
#include "host/meshing/meshtesting.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using RealGmshFiles = RealMesh;

TEST_F(RealGmshFiles, HaveTheNodesElementsAndGroupsThatAreKnownOfThem)
{
    MeshFile const file = readMeshFile(meshFile("msh_tetra.msh"));
    MeshStore const& store = *file.m_parts.at(0);
    EXPECT_EQ(store.nodes().size(), 66U);
    EXPECT_EQ(store.countOf(3), 127U);
    EXPECT_EQ(store.typeOf(127), ElementType::tetra4);
    ASSERT_EQ(store.elementSets().size(), 1U);
    EXPECT_EQ(store.elementSets()[0].m_numbers.size(), 127U);
    EXPECT_THAT(file.m_warnings, IsEmpty());
}

class GmshReader : public WithMeshFolder {
protected:
    MeshFile read(std::string const& content) const
    {
        return readGmshMesh(write("mesh.msh", content));
    }
    std::string error(std::string const& content) const
    {
        return errorOf(readGmshMesh, write("mesh.msh", content));
    }
};

std::string const kFormat22 = "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n";
std::string const kFormat41 = "$MeshFormat\n4.1 0 8\n$EndMeshFormat\n";
std::string const kNodes22 =
    "$Nodes\n5\n1 0 0 0\n2 1 0 0\n3 0 1 0\n4 0 0 1\n9223372036854775807 1 1 1e0\n$EndNodes\n";

/// One mesh in every form of the format: two tetrahedra, a triangle and a point, of which all but
/// the point are in physical groups.
class Forms {
public:
    Forms(char const* version, bool isBinary, bool isSwapped)
        : m_version(version), m_isBinary(isBinary), m_isSwapped(isSwapped)
    {
        std::string const names = "$PhysicalNames\n2\n2 7 \"the wall\"\n3 8 \"Body\"\n";
        m_text = "$MeshFormat\n" + m_version + (isBinary ? " 1 8\n" : " 0 8\n");
        if (isBinary) {
            number<std::int32_t>(1);
            end();
        }
        m_text += "$EndMeshFormat\n" + names + "$EndPhysicalNames\n";
        m_version == "2.2" ? plain() : blocks();
    }
    [[nodiscard]] std::string const& text() const { return m_text; }

private:
    template <class Number>
    void number(Number value)
    {
        if (!m_isBinary) {
            std::ostringstream text;
            text << value << " ";
            m_text += text.str();
            return;
        }
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        if (m_isSwapped) {
            std::reverse(bytes, bytes + sizeof value);
        }
        m_text.append(bytes, sizeof value);
    }
    void ints(std::initializer_list<std::int32_t> values)
    {
        for (std::int32_t const value : values) {
            number(value);
        }
    }
    /// Counts, and ids where those have eight bytes.
    void longs(std::initializer_list<std::int64_t> values)
    {
        for (std::int64_t const value : values) {
            number(value);
        }
    }
    void reals(std::initializer_list<double> values)
    {
        for (double const value : values) {
            number(value);
        }
    }
    void ids(std::initializer_list<std::int32_t> values)
    {
        for (std::int32_t const value : values) {
            m_version == "4.1" ? number<std::int64_t>(value) : number(value);
        }
    }
    /// Of a line, or of a section's bytes.
    void end() { m_text += "\n"; }
    void endLine() { m_text += m_isBinary ? "" : "\n"; }

    void plain()
    {
        m_text += "$Nodes\n5\n";
        for (std::int32_t node = 1; node <= 5; ++node) {
            ids({node});
            place(node);
        }
        m_text += "\n$EndNodes\n$Elements\n4\n";
        element(15, 0, 11, 21, {1});
        element(2, 7, 12, 22, {1, 2, 3});
        element(4, 8, 13, 23, {1, 2, 3, 4});
        element(4, 8, 13, 24, {2, 3, 4, 5});
        m_text += "\n$EndElements\n";
    }
    void element(std::int32_t type, std::int32_t physical, std::int32_t entity, std::int32_t id,
                 std::initializer_list<std::int32_t> nodes)
    {
        m_isBinary ? ints({type, 1, 2, id, physical, entity})
                   : ints({id, type, 2, physical, entity});
        ints(nodes);
        endLine();
    }

    void place(std::int32_t node)
    {
        reals({node * 0.5, node == 2 ? 2.0 : 0.25, -1.0 * node * node});
        endLine();
    }

    void blocks()
    {
        m_text += "$Entities\n";
        longs({1, 0, 1, 1});
        endLine();
        entity(11, m_version == "4.1" ? 3 : 6, 0);
        entity(12, 6, -7);
        entity(13, 6, 8);
        m_text += "\n$EndEntities\n$Nodes\n";
        longs({2, 5});
        counts(1, 5);
        nodeBlock(2, 12, true, 1, 3);
        nodeBlock(3, 13, false, 4, 5);
        m_text += "\n$EndNodes\n$Elements\n";
        longs({3, 4});
        counts(21, 24);
        head(0, 11, 15, 1);
        row({21, 1});
        head(2, 12, 2, 1);
        row({22, 1, 2, 3});
        head(3, 13, 4, 2);
        row({23, 1, 2, 3, 4});
        row({24, 2, 3, 4, 5});
        m_text += "\n$EndElements\n";
    }
    void counts(std::int64_t smallest, std::int64_t largest)
    {
        if (m_version == "4.1") {
            longs({smallest, largest});
        }
        endLine();
    }
    void entity(std::int32_t tag, int box, std::int32_t physical)
    {
        ints({tag});
        for (int i = 0; i < box; ++i) {
            reals({0.0});
        }
        longs({physical != 0 ? 1 : 0});
        if (physical != 0) {
            ints({physical});
        }
        if (tag != 11) {
            longs({1});
            ints({-11});
        }
        endLine();
    }
    void head(std::int32_t dimension, std::int32_t tag, std::int32_t kind, std::int64_t count)
    {
        m_version == "4.1" ? ints({dimension, tag, kind}) : ints({tag, dimension, kind});
        longs({count});
        endLine();
    }
    void row(std::initializer_list<std::int32_t> values)
    {
        ids(values);
        endLine();
    }
    void nodeBlock(std::int32_t dimension, std::int32_t tag, bool hasParameters, std::int32_t first,
                   std::int32_t last)
    {
        head(dimension, tag, hasParameters ? 1 : 0, last - first + 1);
        for (std::int32_t node = first; m_version == "4.1" && node <= last; ++node) {
            row({node});
        }
        for (std::int32_t node = first; node <= last; ++node) {
            if (m_version == "4.0") {
                ids({node});
            }
            reals({node * 0.5, node == 2 ? 2.0 : 0.25, -1.0 * node * node});
            if (hasParameters) {
                reals({0.5, 0.75});
            }
            endLine();
        }
    }

    std::string m_version;
    bool m_isBinary;
    bool m_isSwapped;
    std::string m_text;
};

TEST_F(GmshReader, TakesTheSameMeshFromEveryForm)
{
    for (char const* const version : {"2.2", "4.0", "4.1"}) {
        for (auto const& [isBinary, isSwapped] :
             {std::pair(false, false), {true, false}, {true, true}}) {
            SCOPED_TRACE(std::string(version) + (isBinary ? " binary" : "") +
                         (isSwapped ? " swapped" : ""));
            MeshFile const file = read(Forms(version, isBinary, isSwapped).text());
            MeshStore const& store = *file.m_parts.at(0);
            EXPECT_EQ(store.name(), "mesh");
            EXPECT_THAT(store.nodes().ids(), ElementsAre(1, 2, 3, 4, 5));
            EXPECT_EQ(store.position(2), (Point{1.0, 2.0, -4.0}));
            EXPECT_EQ(store.position(5), (Point{2.5, 0.25, -25.0}));
            EXPECT_THAT(store.elements().ids(), ElementsAre(21, 22, 23, 24));
            EXPECT_THAT(nodeIdsOf(store, 24), ElementsAre(2, 3, 4, 5));
            EXPECT_EQ(store.groups().at(store.groupOf(1)).m_name, "point 11");
            EXPECT_EQ(store.groups().at(store.groupOf(2)).m_name, "surface 12");
            EXPECT_EQ(store.groups().at(store.groupOf(4)).m_name, "volume 13");
            ASSERT_EQ(store.elementSets().size(), 2U);
            EXPECT_THAT(idsOf(store.elements(), store.elementSets(), "the wall"), ElementsAre(22));
            EXPECT_THAT(idsOf(store.elements(), store.elementSets(), "Body"), ElementsAre(23, 24));
            EXPECT_THAT(file.m_warnings, IsEmpty());
        }
    }
}

TEST_F(GmshReader, RefusesAFileThatIsCutAnywhere)
{
    for (char const* const version : {"2.2", "4.1"}) {
        for (bool const isBinary : {false, true}) {
            std::string const whole = Forms(version, isBinary, false).text();
            // Behind the end's name only the end of the line is missing.
            for (std::size_t size = 1; size + 1 < whole.size(); size += 7) {
                EXPECT_THAT(error(whole.substr(0, size)), HasSubstr("mesh.msh:"))
                    << version << " " << isBinary << " " << size;
            }
        }
    }
    std::string const binary = Forms("4.1", true, false).text();
    EXPECT_THAT(
        error(binary.substr(0, binary.find("$EndNodes") - 9)),
        AllOf(HasSubstr("mesh.msh: at byte "), HasSubstr(": the file ends inside $Nodes; ")));
}

TEST_F(GmshReader, PutsTheNodesInTheMiddleOfSidesWhereTheyBelong)
{
    using enum ElementType;
    for (ElementInFile const& row : {
             ElementInFile{"8", line3, {{1, 2}}},
             ElementInFile{"9", triangle6, {{1, 2}, {2, 3}, {1, 3}}},
             ElementInFile{"16", quad8, {{1, 2}, {2, 3}, {3, 4}, {1, 4}}},
             ElementInFile{"11", tetra10, {{1, 2}, {2, 3}, {1, 3}, {1, 4}, {3, 4}, {2, 4}}},
             ElementInFile{
                 "18",
                 wedge15,
                 {{1, 2}, {1, 3}, {1, 4}, {2, 3}, {2, 5}, {3, 6}, {4, 5}, {4, 6}, {5, 6}}},
             ElementInFile{"17",
                           hexa20,
                           {{1, 2},
                            {1, 4},
                            {1, 5},
                            {2, 3},
                            {2, 6},
                            {3, 4},
                            {3, 7},
                            {4, 8},
                            {5, 6},
                            {5, 8},
                            {6, 7},
                            {7, 8}}},
         }) {
        SCOPED_TRACE(row.m_name);
        std::ostringstream text;
        text << kFormat22 << "$Nodes\n" << row.points().size() << "\n";
        std::string nodes;
        int id = 0;
        for (Point const& point : row.points()) {
            nodes += " " + std::to_string(++id);
            text << id << " " << point[0] << " " << point[1] << " " << point[2] << "\n";
        }
        text << "$EndNodes\n$Elements\n1\n7 " << row.m_name << " 0" << nodes << "\n$EndElements\n";
        MeshStore const store = *read(text.str()).m_parts.at(0);
        ASSERT_EQ(store.typeOf(1), row.m_type);
        expectNodesInTheMiddleOfSides(store, 1);
    }
}

TEST_F(GmshReader, TakesLargeIdsUnnamedGroupsAndOlderNamesAndTellsOfOtherSections)
{
    MeshFile const file = read(
        "$Comments\nfree\n$EndComments\r\n$MeshFormat\r\n2.0 0 8\r\n$EndMeshFormat\n"
        "$PhysicalNames\n1\n4 \"old\"\n$EndPhysicalNames\n" +
        kNodes22 +
        "$Elements\n2\n\n 6 1 2 4 1 1 2\n9223372036854775807 1 3 5 0 9 2 "
        "9223372036854775807\n$EndElements\n"
        "$NodeData\n1\n$EndNodeData\n$Periodic\n0\n$EndPeriodic\n$NodeData\n$EndNodeData");
    MeshStore const& store = *file.m_parts.at(0);
    constexpr ExternalId kLargest = 9223372036854775807;
    EXPECT_THAT(nodeIdsOf(store, kLargest), ElementsAre(2, kLargest));
    EXPECT_EQ(store.groups().at(1).m_name, "curve 0");
    EXPECT_THAT(idsOf(store.elements(), store.elementSets(), "old"), ElementsAre(6));
    EXPECT_THAT(idsOf(store.elements(), store.elementSets(), "physical 5"), ElementsAre(kLargest));
    EXPECT_THAT(file.m_warnings, ElementsAre(HasSubstr(": 2 $NodeData, 1 $Periodic not used")));
}

TEST_F(GmshReader, RefusesWithOneLineThatNamesPlaceAndMend)
{
    struct Row {
        std::string m_content;
        char const* m_says;
    };
    std::string const head = kFormat22 + kNodes22;  // twelve lines
    auto const elements = [&head](std::string const& rows) {
        return head + "$Elements\n1\n" + rows + "\n$EndElements\n";
    };
    for (Row const& row : {
             Row{elements("7 7 2 0 1 1 2 3 4 5"),
                 ":14: element 7 (type 7) is a pyramid, which a mesh here does not take; remesh"},
             Row{elements("7 10 2 0 1 1 2 3 4 1 2 3 4 1"), ":14: element 7 (type 10) has nodes in"},
             Row{elements("7 26 2 0 1 1 2 3 4"), ":14: element 7 (type 26) is of third or higher"},
             Row{elements("7 99 2 0 1 1 2"), ":14: element 7 (type 99) is of a type that is not k"},
             Row{elements("0 1 2 0 1 1 2"), ":14: \"0\" is no number of an element; write a whole"},
             Row{elements("-7 1 2 0 1 1 2"), ":14: \"-7\" is no number of an element; write"},
             Row{elements("9223372036854775808 1 2 0 1 1 2"),
                 ":14: \"9223372036854775808\" is no number of an element; write"},
             Row{elements("7 1 2 0 1 1 x"), ":14: \"x\" is no number of a node; write"},
             Row{elements("7 1 2 0 1 1 1.5"), ":14: \"1.5\" is no number of a node; write"},
             Row{elements("7 1 2 0 1 1 8"),
                 ":14: element 7 names node 8, which does not exist; add"},
             Row{elements("7 1 2 0 1 1"), ":14: a number of a node is missing on the line; add"},
             Row{elements("7 1 2 0 1 1 2 3"),
                 ":14: \"3\" is one number too many on its line; take"},
             Row{elements("7 1 2 0 1 1 2\n8 1 2 0 1 1 2"), ":15: more follows in $Elements than"},
             Row{head + "$Elements\n2\n7 1 2 0 1 1 2\n$EndElements\n",
                 ":15: $Elements ends before all that it announces; correct"},
             Row{head + "$Elements\n999999999999\n7 1 2 0 1 1 2\n",
                 ":15: the file ends inside $Elements; write"},
             Row{head + "$Elements\n2\n7 1 2 0 1 1 2\n7 1 2 0 1 1 3\n$EndElements\n",
                 ":15: element 7 is given twice, first in line 14; take"},
             Row{kFormat22 + "$Nodes\n2\n1 0 0 0\n1 1 0 0\n$EndNodes\n$Elements\n1\n7 15 0 1\n"
                             "$EndElements\n",
                 ":7: node 1 is given twice, first in line 6; take"},
             Row{kFormat22 + "$Nodes\n1\n1 0 nan 0\n", ":6: a coordinate is not finite; write"},
             Row{kFormat22 + "$ParametricNodes\n", ":4: nodes with parameters of format 2"},
             Row{kFormat41 + "$Nodes\n1 1 1 1\n7 1 0 1\n", ":6: \"7\" is no dimension; write"},
             Row{head, ": holds no elements; mesh"},
             Row{"$MeshFormat\n3.0 0 8\n", ":2: the mesh is of format 3.0, which is not read; w"},
             Row{"$MeshFormat\n4.1 1 4\n", ":2: numbers of 4 bytes are not read; write"},
             Row{"$MeshFormat\n4.1 1 8\nabcd", ": at byte 20: the mark of the order of bytes is"},
             Row{"$NOD\n1\n", ":1: $NOD comes where $MeshFormat should stand; write"},
             Row{"(0 \"another kind of .msh\")\n", ":1: a section should begin here, with a $"},
             Row{" \n", ": is empty"},
         }) {
        SCOPED_TRACE(row.m_content);
        EXPECT_THAT(error(row.m_content),
                    AllOf(HasSubstr("mesh.msh" + std::string(row.m_says)), Not(HasSubstr("\n"))));
    }
    EXPECT_THAT(errorOf(readGmshMesh, folder()), HasSubstr("is a folder"));
    EXPECT_THAT(errorOf(readGmshMesh, folder() / "nowhere.msh"),
                HasSubstr("there is no such file"));
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
