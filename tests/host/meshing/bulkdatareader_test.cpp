#include "host/meshing/bulkdatareader.h"

#include "host/meshing/bulkdatascanner.h"
#include "host/meshing/meshreading.h"
#include "host/meshing/meshtesting.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using RealBulkDataFiles = RealMesh;

TEST_F(RealBulkDataFiles, HaveTheNodesElementsAndLeftOutCardsThatAreKnownOfThem)
{
    struct Row {
        char const* m_file;
        LocalNumber m_nodes;
        LocalNumber m_elements;
        ElementType m_type;
        char const* m_warning;
    };
    for (Row const& row : {
             Row{"ccx_cantilever_faceload.bdf", 228, 79, ElementType::tetra10,
                 ": 13 FORCE, 1 LOAD, 1 MAT1, 1 PARAM, 1 PSOLID, 1 SPC1, 1 SPCADD not used"},
             Row{"ccx_cantilever_ele_tria3.bdf", 546, 968, ElementType::triangle3, ": 8 FORCE, "},
             Row{"b8_g.nas", 3211, 12489, ElementType::tetra4,
                 ", 210 PLOAD4, 1 PSOLID, 342 SPC not used"},
         }) {
        SCOPED_TRACE(row.m_file);
        MeshFile const file = readMeshFile(meshFile(row.m_file));
        MeshStore const& store = *file.m_parts.at(0);
        EXPECT_EQ(store.nodes().size(), row.m_nodes);
        EXPECT_EQ(store.elements().size(), row.m_elements);
        EXPECT_EQ(store.typeOf(row.m_elements), row.m_type);
        EXPECT_EQ(store.groups().at(0).m_name, "property 1");
        EXPECT_THAT(file.m_warnings, ElementsAre(HasSubstr(row.m_warning)));
    }
}

TEST_F(RealBulkDataFiles, HaveTheElementsOfTheInputFileOfTheSameModel)
{
    auto const bulk = readMeshFile(meshFile("ccx_cantilever_faceload.bdf"));
    auto const input = readMeshFile(meshFile("ccx_cantilever_faceload.inp"));
    // One of the two writers begins at another corner.
    std::vector<std::vector<ExternalId>> elements[2];
    for (std::size_t side = 0; side < 2; ++side) {
        MeshStore const& store = *(side == 0 ? bulk : input).m_parts.at(0);
        for (ExternalId const element : store.elements().ids()) {
            elements[side].push_back(nodeIdsOf(store, element));
            std::sort(elements[side].back().begin(), elements[side].back().end());
        }
    }
    EXPECT_EQ(elements[0], elements[1]);
}

class BulkDataReader : public WithMeshFolder {
protected:
    MeshFile read(std::string const& content) const
    {
        return readBulkDataMesh(write("mesh.bdf", content));
    }
    MeshStore storeOf(std::string const& content) const { return *read(content).m_parts.at(0); }
    std::string error(std::string const& content) const
    {
        return errorOf(readBulkDataMesh, write("mesh.bdf", content));
    }
};

/// Ten nodes on a line.
std::string tenNodes()
{
    std::string text;
    for (int i = 1; i <= 10; ++i) {
        text += "GRID," + std::to_string(i) + ",," + std::to_string(i) + ".,0.,0.\n";
    }
    return text;
}

TEST_F(BulkDataReader, TakesTheSameElementFromFieldsOfEveryForm)
{
    for (char const* const card : {
             "CTETRA         7       3       1       2       3       4       5       6\n"
             "               7       8       9      10\n",
             "CTETRA         7       3       1       2       3       4       5       6+A1\n"
             "+A1            7       8       9      10\n",
             "CTETRA*                7               3               1               2*B\n"
             "*B                     3               4               5               6\n"
             "$ in between\n\n"
             "*                      7               8               9              10\n",
             "CTETRA*,7,3,1,2\n*,3,4,5,6\n+,7,8,9,10\n",
             "ctetra,7,3,1,2,3,4,5,6,+\r\n+,7,8,9,10 $ and a comment, with commas\r\n",
             "CTETRA, 7, 3, 1, 2, 3, 4, 5, 6\n, 7, 8, 9, 10\n",
             "CTETRA\t7\t3\t1\t2\t3\t4\t5\t6\n\t7\t8\t9\t10\n",
             "CTETRA         7       3       1       2       3       4       5       "
             "6\n+,7,8,9,10\n",
         }) {
        SCOPED_TRACE(card);
        MeshStore const store = storeOf(tenNodes() + card);
        EXPECT_EQ(store.typeOf(1), ElementType::tetra10);
        EXPECT_EQ(store.typeNameOf(1), "CTETRA");
        EXPECT_EQ(store.groups().at(0).m_name, "property 3");
        EXPECT_THAT(nodeIdsOf(store, 7), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
    }
}

TEST_F(BulkDataReader, TakesEveryCardOfAnElement)
{
    struct Row {
        char const* m_card;
        ElementType m_type;
        char const* m_group;
        std::vector<ExternalId> m_nodes;
    };
    for (Row const& row : {
             Row{"CTETRA,1,2,1,2,3,4", ElementType::tetra4, "property 2", {1, 2, 3, 4}},
             Row{"CTETRA,1,2,1,2,3,4,0,0\n,0", ElementType::tetra4, "property 2", {1, 2, 3, 4}},
             Row{"CPENTA,1,2,1,2,3,4,5,6", ElementType::wedge6, "property 2", {1, 2, 3, 4, 5, 6}},
             Row{"CTRIA3,1,2,1,2,3,30.", ElementType::triangle3, "property 2", {1, 2, 3}},
             Row{"CTRIAR,1,,1,2,3", ElementType::triangle3, "property 1", {1, 2, 3}},
             Row{"CTRIA6,1,2,1,2,3", ElementType::triangle3, "property 2", {1, 2, 3}},
             Row{"CQUAD4,1,2,1,2,3,4,,.5", ElementType::quad4, "property 2", {1, 2, 3, 4}},
             Row{"CQUADR,1,2,1,2,3,4", ElementType::quad4, "property 2", {1, 2, 3, 4}},
             Row{"CQUAD8,1,2,1,2,3,4,5,6\n,7,8,.1",
                 ElementType::quad8,
                 "property 2",
                 {1, 2, 3, 4, 5, 6, 7, 8}},
             Row{"CBAR,1,2,3,4,0.,0.,1.", ElementType::line2, "property 2", {3, 4}},
             Row{"CBEAM,1,2,3,4,9", ElementType::line2, "property 2", {3, 4}},
             Row{"CROD,1,2,3,4", ElementType::line2, "property 2", {3, 4}},
             Row{"CTUBE,1,2,3,4", ElementType::line2, "property 2", {3, 4}},
             Row{"CONROD,1,3,4,9,1.5", ElementType::line2, "CONROD", {3, 4}},
             Row{"CBUSH,1,2,3,4", ElementType::line2, "property 2", {3, 4}},
             Row{"CBUSH,1,2,3", ElementType::point1, "property 2", {3}},
             Row{"CELAS1,1,2,3,1,4,1", ElementType::line2, "property 2", {3, 4}},
             Row{"CELAS2,1,5.+3,0,,4,1", ElementType::point1, "CELAS2", {4}},
             Row{"CONM2,1,3,0,2.5", ElementType::point1, "CONM2", {3}},
         }) {
        SCOPED_TRACE(row.m_card);
        MeshFile const file = read(tenNodes() + row.m_card);
        MeshStore const& store = *file.m_parts.at(0);
        EXPECT_EQ(store.typeOf(1), row.m_type);
        EXPECT_EQ(store.groups().at(0).m_name, row.m_group);
        EXPECT_EQ(nodeIdsOf(store, 1), row.m_nodes);
        EXPECT_THAT(file.m_warnings, IsEmpty());
    }
}

TEST_F(BulkDataReader, PutsTheNodesInTheMiddleOfSidesWhereTheyBelong)
{
    using enum ElementType;
    for (ElementInFile const& row : {
             ElementInFile{"CTETRA", tetra10, {{1, 2}, {2, 3}, {1, 3}, {1, 4}, {2, 4}, {3, 4}}},
             ElementInFile{
                 "CPENTA",
                 wedge15,
                 {{1, 2}, {2, 3}, {1, 3}, {1, 4}, {2, 5}, {3, 6}, {4, 5}, {5, 6}, {4, 6}}},
             ElementInFile{"CHEXA",
                           hexa20,
                           {{1, 2},
                            {2, 3},
                            {3, 4},
                            {1, 4},
                            {1, 5},
                            {2, 6},
                            {3, 7},
                            {4, 8},
                            {5, 6},
                            {6, 7},
                            {7, 8},
                            {5, 8}}},
             ElementInFile{"CTRIA6", triangle6, {{1, 2}, {2, 3}, {1, 3}}},
             ElementInFile{"CQUAD8", quad8, {{1, 2}, {2, 3}, {3, 4}, {1, 4}}},
         }) {
        SCOPED_TRACE(row.m_name);
        std::ostringstream text;
        int id = 0;
        for (Point const& point : row.points()) {
            text << "GRID*," << ++id << ",," << point[0] << "," << point[1] << "\n*," << point[2]
                 << "\n";
        }
        text << row.m_name << ",1,1";
        for (int node = 1; node <= id; ++node) {
            text << (node % 8 == 7 ? "\n," : ",") << node;
        }
        MeshStore const store = storeOf(text.str());
        ASSERT_EQ(store.typeOf(1), row.m_type);
        expectNodesInTheMiddleOfSides(store, 1);
    }
}

TEST(BulkDataNumbers, AreReadInEveryWayThatTheyAreWritten)
{
    struct Row {
        char const* m_text;
        std::optional<double> m_number;
    };
    for (Row const& row : {
             Row{"1.5-3", 1.5e-3},
             Row{"-.5+2", -50.0},
             Row{"1.0D+2", 100.0},
             Row{"1.d-2", 0.01},
             Row{"+7.", 7.0},
             Row{"7", 7.0},
             Row{"1.E3", 1000.0},
             Row{"0.25", 0.25},
             Row{"", std::nullopt},
             Row{"1.5-", std::nullopt},
             Row{"1..5", std::nullopt},
             Row{"-", std::nullopt},
             Row{"1.5-3-3", std::nullopt},
             Row{"inf", std::nullopt},
             Row{"1.+999", std::nullopt},
             Row{"x", std::nullopt},
             Row{"1. 5", std::nullopt},
         }) {
        EXPECT_EQ(bulkDataNumber(row.m_text), row.m_number) << row.m_text;
    }
}

TEST_F(BulkDataReader, PlacesNodesByTheirCoordinateSystems)
{
    // System 1 is at (10, 0, 0) with its z axis along x; 2 stands on it as a cylinder, 3 as a
    // sphere; 4 stands on nodes, of which one is given in 2, and comes behind them.
    MeshStore const store = storeOf(
        "GRDSET,,2,,,,5\n"
        "CORD2C,2,1,0.,0.,0.,0.,0.,1.,\n,1.,0.,0.\n"
        "CORD2S,3,1,0.,0.,0.,0.,0.,1.,\n,1.,0.,0.\n"
        "CORD2R,1,0,10.,0.,0.,11.,0.,0.,\n,10.,1.,0.\n"
        "GRID,1,0,1.,2.,3.\n"
        "GRID,2,1,1.,2.,3.\n"
        "GRID,3,,2.,90.,5.\n"
        "GRID,4,3,2.,90.,90.\n"
        "GRID,5,4,0.,0.,1.\n"
        "GRID,6,0,0.,0.,0.\nGRID,7,0,0.,4.,0.\n"
        "CORD1R,4,6,7,3\n"
        "CROD,1,1,1,2\n");
    std::vector<Point> const expected{{1, 2, 3}, {13, 1, 2}, {15, 0, 2}, {10, 0, 2}, {0, 1, 0}};
    for (LocalNumber node = 1; node <= expected.size(); ++node) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(store.position(node)[axis], expected[node - 1][axis], 1e-12)
                << "node " << node << ", axis " << axis;
        }
    }
}

TEST_F(BulkDataReader, SkipsWhatIsNoBulkDataAndFollowsIncludes)
{
    write("nodes.bdf", "GRID,1\nGRID,2,,1.\n");
    write("more.bdf", "CROD,9223372036854775807,1,1,2\nENDDATA\nCROD,2,1,1,99\n");
    MeshFile const file = read(
        "SOL 101\nCEND\nGRID,1,,x\nbegin  bulk $ here\nINCLUDE 'nodes.bdf'\nSPC1,1,1,1\n"
        "SPC1,1,1,2,\n,3\nFORCE\ninclude more.bdf\n");
    EXPECT_THAT(file.m_parts.at(0)->elements().ids(), ElementsAre(9223372036854775807));
    EXPECT_THAT(file.m_warnings, ElementsAre(HasSubstr("mesh.bdf: 1 FORCE, 2 SPC1 not used")));

    write("nodes.bdf", "GRID,1\nGRID,1\nINCLUDE 'mesh.bdf'\n");
    EXPECT_THAT(errorOf(readBulkDataMesh, folder() / "mesh.bdf"),
                HasSubstr("nodes.bdf:3: includes \"mesh.bdf\", in which it stands itself; take"));
    write("nodes.bdf", "GRID,1\nGRID,1\n");
    EXPECT_THAT(errorOf(readBulkDataMesh, folder() / "mesh.bdf"),
                HasSubstr("nodes.bdf:2: node 1 is given twice, first in line 1; "));
}

TEST_F(BulkDataReader, RefusesWithOneLineThatNamesPlaceAndMend)
{
    struct Row {
        char const* m_content;  // behind ten lines of nodes
        char const* m_says;
    };
    for (Row const& row : {
             Row{"CPYRAM,7,1,1,2,3,4,5\n",
                 ":11: element 7 (CPYRAM) is a pyramid, which a mesh here does not take; remesh"},
             Row{"CTETRA,7,1,1,2,3,4,5,6\n,7,8\n",
                 ":11: element 7 (CTETRA) has 4 of the 6 nodes in the middle of its sides; give"},
             Row{"CTETRA,7,1,1,2,3\n", ":11: \"\" is no number of a node; write a whole"},
             Row{"CTETRA,7,1,1,2,3,4,5,6\n,7,8,9,10,11\n", ":11: element 7 (CTETRA) has more than"},
             Row{"CROD,7,1,1,99\n", ":11: element 7 names node 99, which does not exist; add"},
             Row{"CROD,0,1,1,2\n", ":11: \"0\" is no number of an element; write"},
             Row{"CROD,-7,1,1,2\n", ":11: \"-7\" is no number of an element"},
             Row{"CROD,9223372036854775808,1,1,2\n", ":11: \"9223372036854775808\" is no number"},
             Row{"CROD,7,x,1,2\n", ":11: \"x\" is no number of a property"},
             Row{"CROD,7,1,1,2\nCROD,7,1,1,3\n",
                 ":12: element 7 is given twice, first in line 11; take"},
             Row{"CBUSH,7,1\n", ":11: element 7 (CBUSH) has no node; give it one"},
             Row{"GRID,11,,1..5\n", ":11: \"1..5\" is no coordinate; write a number"},
             Row{"GRID,11,6,1.\nCROD,7,1,1,2\n",
                 ":11: names coordinate system 6, which does not exist; add"},
             Row{"CORD2R,6,6,0.,0.,0.,0.,0.,1.,\n,1.,0.,0.\nGRID,11,6,1.\nCROD,7,1,1,2\n",
                 ":11: coordinate system 6 stands on itself; define"},
             Row{"CORD2R,6,0,0.,0.,0.,0.,0.,1.,\n,0.,0.,2.\nGRID,11,6,1.\nCROD,7,1,1,2\n",
                 ":11: coordinate system 6 has its three points on one line; choose"},
             Row{"CORD1R,6,1,2,77\nGRID,11,6,1.\nCROD,7,1,1,2\n",
                 ":11: a coordinate system names node 77, which does not exist; add"},
             Row{"CTETRA         7       1       1       2       3       4       5       6+A\n"
                 "+B             7       8       9      10\n",
                 ":11: CTETRA names a continuation that does not follow; put"},
             Row{"CTETRA         7       1       1       2       3       4                +A\n"
                 "CROD,1,1,1,2\n",
                 ":11: CTETRA names a continuation that does not follow; put"},
             Row{"GRID*                 11                              1.              2.\n"
                 "              3.\n",
                 ":11: GRID goes on from fields of 16 columns without an asterisk; begin"},
             Row{"CTETRA,7,1,1,2,3,4,5,6,7,8,9,10\n", ":11: CTETRA has more than ten fields"},
             Row{"=,*1,==\n", ":11: \"=\" repeats fields of the card above, and is not read"},
             Row{"INCLUDE 'nowhere.bdf'\n", ":11: includes "},
             Row{"INCLUDE 'cut\n", ":11: INCLUDE names no file on its line; write"},
             Row{"ENDDATA\nCROD,7,1,1,2\n", ": holds no elements; is it"},
         }) {
        SCOPED_TRACE(row.m_content);
        EXPECT_THAT(error(tenNodes() + row.m_content),
                    AllOf(HasSubstr("mesh.bdf" + std::string(row.m_says)), Not(HasSubstr("\n"))));
    }
    EXPECT_THAT(error("\n"), HasSubstr("mesh.bdf: is empty"));
    EXPECT_THAT(error(",1,2\n"), HasSubstr(":1: the line continues no card; begin"));
    EXPECT_THAT(errorOf(readBulkDataMesh, folder()), HasSubstr("is a folder"));
}

TEST_F(BulkDataReader, IsChosenByTheEndingOfTheFile)
{
    std::string const content = tenNodes() + "CROD,1,1,1,2\n";
    for (char const* const name : {"mesh.bdf", "mesh.NAS", "mesh.dat"}) {
        EXPECT_EQ(readMeshFile(write(name, content)).m_parts.at(0)->countOf(1), 1U) << name;
    }
    EXPECT_THAT(errorOf(readMeshFile, write("log.dat", "GRIDS of 1 2 3\n")),
                HasSubstr("log.dat: ends in .dat and does not look like bulk data; give"));
    EXPECT_THAT(
        errorOf(readMeshFile, write("mesh.vtk", content)),
        AllOf(HasSubstr("\".vtk\" is no ending of a mesh file"), HasSubstr("(.bdf, .nas, .dat)")));
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
