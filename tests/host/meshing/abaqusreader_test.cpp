#include "host/meshing/meshtesting.h"

#include "host/meshing/abaquselements.h"
#include "host/meshing/meshreading.h"

#include <gmock/gmock.h>

#include <map>
#include <optional>
#include <vector>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

using RealAbaqusFiles = RealMesh;

TEST_F(RealAbaqusFiles, HaveTheNodesAndElementsThatAreKnownOfThem)
{
    struct Row {
        char const* m_file;
        LocalNumber m_nodes;
        LocalNumber m_elements;
        std::uint8_t m_dimension;
        char const* m_type;
        MeshBox m_box;
        ::testing::Matcher<std::vector<std::string> const&> m_warnings;
    };
    auto const tellsOf = [](char const* keywords) {
        return ElementsAre(HasSubstr(": the steps are not used, nor what they hold"),
                           EndsWith(std::string(keywords) + " not used"));
    };
    for (Row const& row : {
             Row{"constraint_tie.inp",
                 12470,
                 6044,
                 3,
                 "C3D10",
                 {{-1235, -1235, 0}, {1235, 1235, 1005}},
                 tellsOf(".inp: 1 *ELASTIC, 1 *MATERIAL, 1 *SOLID SECTION, 2 *SURFACE, 1 *TIE")},
             Row{"ccx_cantilever_ele_hexa20.inp",
                 261,
                 32,
                 3,
                 "C3D20",
                 {{}, {8000, 1000, 1000}},
                 tellsOf(", 1 *SOLID SECTION")},
             Row{"ccx_cantilever_ele_quad8.inp",
                 25,
                 4,
                 2,
                 "S8",
                 {{0, 500, 0}, {8000, 500, 1000}},
                 tellsOf(", 1 *SHELL SECTION")},
             Row{"ccx_cantilever_ele_seg3.inp",
                 11,
                 5,
                 1,
                 "B32",
                 {{0, 500, 500}, {8000, 500, 500}},
                 tellsOf(".inp: 1 *BEAM SECTION, 1 *ELASTIC, 1 *MATERIAL")},
             Row{"tetra10_mesh.inp", 10, 1, 3, "C3D10", {{}, {12, 12, 18}}, ElementsAre()},
             Row{"beamptied1.inp",
                 282,
                 32,
                 3,
                 "C3D20R",
                 {{}, {1, 1, 8}},
                 tellsOf(", 3 *SURFACE, 1 *TIE")},
         }) {
        SCOPED_TRACE(row.m_file);
        MeshFile const file = readAbaqusMesh(meshFile(row.m_file));
        ASSERT_EQ(file.m_parts.size(), 1U);
        MeshStore const& store = *file.m_parts[0];
        EXPECT_EQ(store.name() + ".inp", row.m_file);
        EXPECT_EQ(store.nodes().size(), row.m_nodes);
        EXPECT_EQ(store.elements().size(), row.m_elements);
        EXPECT_EQ(store.countOf(row.m_dimension), row.m_elements);
        EXPECT_EQ(store.typeNameOf(row.m_elements), row.m_type);
        EXPECT_EQ(findSet(store.elementSets(), "EALL")->m_numbers.size(), row.m_elements);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(store.box().m_low[axis], row.m_box.m_low[axis], 1e-9);
            EXPECT_NEAR(store.box().m_high[axis], row.m_box.m_high[axis], 1e-9);
        }
        EXPECT_THAT(file.m_warnings, row.m_warnings);
        expectNodesInTheMiddleOfSides(store, row.m_elements, 5e-3 * row.m_box.m_high[2]);
    }
}

TEST_F(RealAbaqusFiles, KeepIdsApartFromNumbersAndPointsApartFromMeshes)
{
    MeshFile const tieFile = readAbaqusMesh(meshFile("constraint_tie.inp"));
    MeshStore const& tie = *tieFile.m_parts[0];
    EXPECT_EQ(tie.elements().idOf(1), 4623);
    EXPECT_EQ(tie.elements().numberOf(4623), 1U);
    EXPECT_EQ(tie.elements().numberOf(1), 0U);

    // The coupling's point element names a node that stands behind it in the file.
    MeshFile const couplingFile = readAbaqusMesh(meshFile("distcoup.inp"));
    MeshStore const& coupling = *couplingFile.m_parts[0];
    EXPECT_EQ(coupling.countOf(3), 32U);
    EXPECT_THAT(coupling.elementsOf(0), ElementsAre(33));
    EXPECT_THAT(nodeIdsOf(coupling, 33), ElementsAre(262));
    EXPECT_EQ(findSet(coupling.nodeSets(), "nall")->m_numbers.size(), 261U);
}

TEST(AbaqusElementTypes, AreKnownWithAndWithoutTheirFormulation)
{
    std::map<std::string, std::optional<ElementType>> const expected{
        {"C3D4", ElementType::tetra4},
        {"C3D10", ElementType::tetra10},
        {"C3D10MH", ElementType::tetra10},
        {"C3D8", ElementType::hexa8},
        {"C3D8R", ElementType::hexa8},
        {"C3D8I", ElementType::hexa8},
        {"C3D20RI", ElementType::hexa20},
        {"C3D6", ElementType::wedge6},
        {"C3D15", ElementType::wedge15},
        {"S3", ElementType::triangle3},
        {"STRI65", ElementType::triangle6},
        {"S4R", ElementType::quad4},
        {"S8R5", ElementType::quad8},
        {"CPS6", ElementType::triangle6},
        {"CPE4R", ElementType::quad4},
        {"CAX8R", ElementType::quad8},
        {"B31R", ElementType::line2},
        {"B32", ElementType::line3},
        {"T3D2", ElementType::line2},
        {"SPRINGA", ElementType::line2},
        {"MASS", ElementType::point1},
        {"C3D9", std::nullopt},
        {"C3D8X", std::nullopt},
        {"C3D", std::nullopt},
        {"", std::nullopt},
        {"S45", std::nullopt},
        {"R5", std::nullopt},
        {"U1", std::nullopt},
        {"8", std::nullopt},
    };
    for (auto const& [name, type] : expected) {
        EXPECT_EQ(abaqusElementType(name), type) << name;
    }
}

constexpr char const* kQuadNodes = "*NODE\n1,0,0\n2,1,0\n3,1,1\n4,0,1\n5,2,0\n6,2,1\n";

class AbaqusReader : public WithMeshFolder {
protected:
    MeshFile read(std::string const& content) const
    {
        return readAbaqusMesh(write("mesh.inp", content));
    }
    std::string errorOf(std::filesystem::path const& file) const
    {
        try {
            static_cast<void>(readAbaqusMesh(file));
        } catch (MeshFileError const& error) {
            return error.what();
        }
        ADD_FAILURE() << file << " was read";
        return {};
    }
};

TEST_F(AbaqusReader, TakesWhatWritersOfSuchFilesWrite)
{
    MeshFile const file = read(
        "** a comment\r\n*Heading\r\n1, 2, no node\r\n\r\n* node , nset = \"All Nodes\"\r\n"
        " 1000000, +1., 2.5D+01 , -3e-1\r\n7,,1\r\n** in between\r\n9\r\n40, 1,2,3, 0,0,1\r\n"
        "*ELEMENT,\r\n TYPE=s4r, ELSET=Skin\r\n5, 1000000, 7,\r\n 9, 40,\r\n"
        "*Element Output\r\n1\r\n*ELEMENT, type=T3D2,\r\n*Element, type=T3D2\r\n3, 7, 9");
    MeshStore const& store = *file.m_parts[0];
    EXPECT_EQ(store.name(), "mesh");
    EXPECT_THAT(store.nodes().ids(), ElementsAre(1000000, 7, 9, 40));
    EXPECT_EQ(store.position(1), (Point{1.0, 25.0, -0.3}));
    EXPECT_EQ(store.position(2), (Point{0.0, 1.0, 0.0}));
    EXPECT_EQ(store.nodes().numberOf(40), 4U);
    EXPECT_EQ(store.nodes().numberOf(1000001), 0U);
    EXPECT_THAT(nodeIdsOf(store, 5), ElementsAre(1000000, 7, 9, 40));
    EXPECT_EQ(store.typeNameOf(1), "S4R");
    EXPECT_THAT(store.elementsOf(1), ElementsAre(2));
    EXPECT_THAT(idsOf(store.nodes(), store.nodeSets(), "all nodes"),
                ElementsAre(1000000, 7, 9, 40));
    EXPECT_THROW(static_cast<void>(store.nodesOf(3)), std::out_of_range);
    EXPECT_THROW(static_cast<void>(store.position(0)), std::out_of_range);
}

TEST_F(AbaqusReader, GathersSetsFromListsRangesAndOtherSets)
{
    MeshFile const file =
        read(kQuadNodes + std::string("*NSET, NSET=A\n6, 3,\n1\n*NSET, NSET=a\n3, 2\n"
                                      "*NSET, NSET=odd, GENERATE\n1, 999999999999, 2\n"
                                      "*NSET, NSET=few, GENERATE\n2, 4,\n5\n"
                                      "*NSET, NSET=both\nODD, 6, 98, 99\n"
                                      "*NSET, NSET=ofskin, ELSET=skin\n"
                                      "*ELEMENT, TYPE=S4, ELSET=Skin\n20, 1,2,3,4\n"
                                      "*ELEMENT, TYPE=S4\n10, 2,5,6,3\n"
                                      "*ELSET, ELSET=Everything\nskin, 10, 20\n"));
    MeshStore const& store = *file.m_parts[0];
    auto const nodes = [&](char const* set) {
        return idsOf(store.nodes(), store.nodeSets(), set);
    };
    EXPECT_THAT(nodes("A"), ElementsAre(1, 2, 3, 6));
    EXPECT_THAT(nodes("odd"), ElementsAre(1, 3, 5));
    EXPECT_THAT(nodes("few"), ElementsAre(2, 3, 4, 5));
    EXPECT_THAT(nodes("both"), ElementsAre(1, 3, 5, 6));
    EXPECT_THAT(nodes("ofskin"), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(idsOf(store.elements(), store.elementSets(), "EVERYTHING"), ElementsAre(20, 10));
    EXPECT_EQ(findSet(store.nodeSets(), "skin"), nullptr);
    EXPECT_THAT(file.m_warnings, ElementsAre(AllOf(HasSubstr("mesh.inp:19: set both"),
                                                   HasSubstr("node 98 and 1 more"))));
}

TEST_F(AbaqusReader, ReadsPartsWithNumbersOfTheirOwnAndTheirPlaces)
{
    std::string const part = "*NODE\n1,0,0\n2,1,0\n*ELEMENT, TYPE=B31\n1,1,2\n*END PART\n";
    MeshFile const file =
        read("*PART, NAME=Left\n" + part + "*PART, NAME=right\n" + part +
             "*ASSEMBLY, NAME=all\n*INSTANCE, NAME=L-1, PART=left\n*END INSTANCE\n"
             "*INSTANCE, NAME=R-1, PART=Right\n1., 2., 3.\n0,0,0, 0,0,1, 90\n*END INSTANCE\n"
             "*NSET, NSET=tip, INSTANCE=r-1\n2,\n*NODE\n77, 0,0,0\n*END ASSEMBLY\n*NSET, "
             "NSET=stray\n1\n");
    ASSERT_EQ(file.m_parts.size(), 2U);
    ASSERT_EQ(file.m_instances.size(), 2U);
    EXPECT_EQ(file.m_parts[0]->name(), "Left");
    EXPECT_EQ(file.m_instances[1].m_name, "R-1");
    EXPECT_EQ(file.m_instances[1].m_part, 1U);
    EXPECT_EQ(file.m_instances[1].m_placement.m_translation, (Point{1.0, 2.0, 3.0}));
    EXPECT_EQ(file.m_instances[1].m_placement.m_axis[1], (Point{0.0, 0.0, 1.0}));
    EXPECT_EQ(file.m_instances[1].m_placement.m_degrees, 90.0);
    EXPECT_EQ(findSet(file.m_parts[0]->nodeSets(), "tip"), nullptr);
    EXPECT_THAT(findSet(file.m_parts[1]->nodeSets(), "tip")->m_numbers, ElementsAre(2));
    EXPECT_THAT(file.m_warnings,
                ElementsAre(HasSubstr(":24: *NODE belongs to no part"), HasSubstr(":27: *NSET")));
}

TEST_F(AbaqusReader, TakesTheMiddleNodeOfALineFromBetweenItsEnds)
{
    MeshFile const file = read("*NODE\n1,0\n2,1\n3,2\n*ELEMENT, TYPE=B32\n7,1,2,\n3\n");
    EXPECT_THAT(nodeIdsOf(*file.m_parts[0], 7), ElementsAre(1, 3, 2));
}

TEST_F(AbaqusReader, CountsKeywordsThatItDoesNotUseAndNamesStepsOnce)
{
    MeshFile const file =
        read("*HEADING\nmodel\n" + std::string(kQuadNodes) +
             "*ELEMENT,TYPE=S4\n1,1,2,3,4\n*Solid  Section\n*TIE\n*tie\n*STEP\n*CLOAD\n"
             "*END STEP\n*AMPLITUDE\n*STEP\n*CLOAD\n*END STEP\n");
    EXPECT_THAT(
        file.m_warnings,
        ElementsAre(HasSubstr("mesh.inp:15: the steps are not used, nor what they hold"),
                    EndsWith("mesh.inp: 1 *AMPLITUDE, 1 *SOLID  SECTION, 2 *TIE not used")));
}

TEST_F(AbaqusReader, FollowsIncludesAndPlacesErrorsInThem)
{
    std::filesystem::create_directory(folder() / "sub");
    write("sub/nodes.inp", "1,0,0\n2,1,0\n*INCLUDE, INPUT=more.inp\n");
    write("sub/more.inp", "** one more\n3,2,0\n");
    std::string const main = "*NODE\n*INCLUDE, INPUT=sub/nodes.inp\n4,3,0\n*ELEMENT, TYPE=B31, ";
    write("elements.inp", "1,1,2\n2,3,4\n");
    EXPECT_EQ(read(main + "INPUT=elements.inp\n").m_parts[0]->elements().size(), 2U);

    write("sub/more.inp", "** one more\n3,2,0\n2,2,0\n");
    EXPECT_THAT(errorOf(folder() / "mesh.inp"), HasSubstr("sub/more.inp:3: node 2 is given twice, "
                                                          "first in line 2 of "));
    write("sub/more.inp", "*INCLUDE, INPUT=nodes.inp\n");
    EXPECT_THAT(errorOf(folder() / "mesh.inp"), HasSubstr("more.inp:1: includes \"nodes.inp\""));
    std::filesystem::remove(folder() / "sub/more.inp");
    EXPECT_THAT(errorOf(folder() / "mesh.inp"), HasSubstr("nodes.inp:3: includes "));
}

TEST_F(AbaqusReader, RefusesWithOneLineThatNamesPlaceAndMend)
{
    struct Row {
        char const* m_content;  // behind six nodes in seven lines
        char const* m_says;
    };
    for (Row const& row : {
             Row{"*ELEMENT,TYPE=S4\n7,1,2,3,8\n",
                 ":9: element 7 names node 8, which does not exist; add"},
             Row{"*NODE\n3,0,0\n", ":9: node 3 is given twice, first in line 4; "},
             Row{"*NODE\n900000,0\n900000,0\n7,0\n7,0\n*ELEMENT,TYPE=B31\n1,1,2\n",
                 ":10: node 900000 is given twice, first in line 9; "},
             Row{"*ELEMENT,TYPE=B31\n7,1,2\n7,2,3\n",
                 ":10: element 7 is given twice, first in line 9; "},
             Row{"*ELEMENT,TYPE=C3D9\n", ":8: element type C3D9 is not known; convert"},
             Row{"*ELEMENT,TYPE=C3D5\n",
                 ":8: element type C3D5 is a pyramid, which a mesh here does not take; remesh"},
             Row{"*ELEMENT,TYPE=M3D9R\n",
                 ":8: element type M3D9R has nodes in the middle of faces or cells, which"},
             Row{"*ELEMENT,TYPE=C3D27\n", ":8: element type C3D27 has nodes in the middle of"},
             Row{"*ELEMENT\n1,1,2\n", ":8: *ELEMENT has no TYPE; add TYPE="},
             Row{"*ELEMENT,TYPE=S4\n7,1,2,3\n8,1,2,3,4\n",
                 ":9: element 7 has 3 nodes, and type S4 has 4; "},
             Row{"*ELEMENT,TYPE=S4\n7,1,2,\n3,\n*STEP\n",
                 ":9: element 7 has 3 nodes, and type S4 has 4; "},
             Row{"*ELEMENT,TYPE=S4\n7,1,2,3,4,5,6\n",
                 ":9: element 7 has 6 nodes, and type S4 has 4; "},
             Row{"*ELEMENT,TYPE=S4\n7,1,2,x,4\n", ":9: \"x\" is no number of a node; write"},
             Row{"*ELEMENT,TYPE=S4\n7,1,,3,4\n", ":9: \"\" is no number of a node; write"},
             Row{"*NODE\n7,0,1..5\n", ":9: \"1..5\" is no coordinate; write a number"},
             Row{"*NODE\n7,nan\n", ":9: \"nan\" is no coordinate; write a number"},
             Row{"*NODE\n0,1\n", ":9: \"0\" is no number of a node; write a whole number above 0"},
             Row{"*NODE, SYSTEM=C\n7,1,90\n", ":8: the nodes are given in system C"},
             Row{"*ELEMENT,TYPE=B31\n1,1,2\n*ELGEN\n1,5\n", ":10: *ELGEN makes or moves"},
             Row{"*ELEMENT,TYPE=B31\n1,1,2\n*NSET,NSET=A\nB\n",
                 ":11: set A names \"B\", which is neither"},
             Row{"*INSTANCE,NAME=I,PART=P\n", ":8: the instance is one of part \"P\""},
             Row{"*PART,NAME=Mesh\n", ":8: there are two parts with the name \"Mesh\"; rename"},
             Row{"*INCLUDE\n", ":8: *INCLUDE names no file; write"},
             Row{"*STEP\n", ": holds no elements; is it"},
         }) {
        SCOPED_TRACE(row.m_content);
        std::filesystem::path const file =
            write("mesh.inp", std::string(kQuadNodes) + row.m_content);
        EXPECT_THAT(errorOf(file),
                    AllOf(HasSubstr("mesh.inp" + std::string(row.m_says)), Not(HasSubstr("\n"))));
    }
    EXPECT_THAT(errorOf(write("empty.inp", " \n")), EndsWith("empty.inp: is empty"));
    EXPECT_THAT(errorOf(folder()), HasSubstr("is a folder"));
    EXPECT_THAT(errorOf(folder() / "nowhere.inp"), EndsWith("nowhere.inp: there is no such file"));
}

TEST_F(AbaqusReader, TellsFileLineAndMendOfAnErrorApart)
{
    std::filesystem::path const file = write("mesh.inp", "*NODE\nx\n");
    try {
        static_cast<void>(readAbaqusMesh(file));
        FAIL() << "was read";
    } catch (MeshFileError const& error) {
        EXPECT_EQ(error.file(), file);
        EXPECT_EQ(error.line(), 2U);
        EXPECT_EQ(error.mend(), "write a whole number above 0");
    }
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
