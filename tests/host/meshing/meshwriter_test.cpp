#include "host/meshing/meshwriter.h"

#include "host/meshing/meshbuilder.h"
#include "host/meshing/meshreading.h"
#include "host/meshing/meshtesting.h"
#include "host/study/atomicfile.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RealMeshes : public RealMesh {
protected:
    test::TemporaryFolder m_folder;
};

TEST_F(RealMeshes, AreTheSameWhenWrittenAndReadAgain)
{
    for (char const* const name :
         {"constraint_tie.inp", "ccx_cantilever_faceload.bdf", "ccx_cantilever_ele_hexa20.inp",
          "ccx_cantilever_ele_quad8.inp", "ccx_cantilever_ele_seg3.inp",
          "ccx_cantilever_ele_tria3.bdf", "tetra10_mesh.inp", "beamptied1.inp", "distcoup.inp",
          "b8_g.nas", "msh_tetra.msh"}) {
        SCOPED_TRACE(name);
        MeshFile const first = readMeshFile(meshFile(name));
        MeshStore const& mesh = *first.m_parts.at(0);
        writeAbaqusMesh(mesh, m_folder.path() / "mesh.inp");
        static_cast<void>(writeGmshMesh(mesh, m_folder.path() / "mesh.msh"));

        MeshFile const abaqus = readMeshFile(m_folder.path() / "mesh.inp");
        expectSameMesh(mesh, *abaqus.m_parts.at(0));
        expectSameSets(mesh.nodeSets(), abaqus.m_parts.at(0)->nodeSets());
        EXPECT_THAT(abaqus.m_warnings, IsEmpty());
        MeshFile const gmsh = readMeshFile(m_folder.path() / "mesh.msh");
        expectSameMesh(mesh, *gmsh.m_parts.at(0));
        EXPECT_THAT(gmsh.m_warnings, IsEmpty());
    }
}

/// An element of each type, on ids with gaps and nodes of its own.
MeshStore everyType()
{
    MeshBuilder builder("every");
    ExternalId node = 4000000000;
    for (ElementTraits const& traits : kElementTraits) {
        auto const type = static_cast<ExternalId>(traits.m_type);
        builder.addElement(
            1000 - 7 * type, traits.m_type, builder.typeName("X"), MeshBuilder::kNoSet, 1,
            builder.group(traits.m_dimension, traits.m_order == 2 ? "second 5" : "surface 3"));
        for (int i = 0; i < traits.m_nodeCount; ++i) {
            node += 3;
            builder.addElementNode(node);
            double const x = static_cast<double>(node % 1000);
            builder.addNode(node, {x / 3, -1e-30 * x / 7, x}, MeshBuilder::kNoSet, 1);
        }
    }
    std::vector<std::string> warnings;
    SourceLines lines;
    lines.begin(1, lines.addFile("every.mesh"), 1);
    return builder.finish(lines, warnings);
}

TEST(MeshesOfEveryType, AreTheSameWhenWrittenAndReadAgain)
{
    test::TemporaryFolder const folder;
    MeshStore const mesh = everyType();
    writeAbaqusMesh(mesh, folder.path() / "mesh.inp");
    static_cast<void>(writeGmshMesh(mesh, folder.path() / "mesh.msh"));
    std::string const text = test::contentOf(folder.path() / "mesh.inp");
    for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1) {
        std::string const line = text.substr(start, text.find('\n', start) - start);
        EXPECT_LE(std::count(line.begin(), line.end(), ','), 16) << line;
    }
    std::istringstream fields(text);
    for (std::string field; fields >> field;) {
        EXPECT_LE(field.size(), std::string("-1.234567890123e-123,").size()) << field;
    }
    for (char const* const name : {"mesh.inp", "mesh.msh"}) {
        SCOPED_TRACE(name);
        MeshFile const read = readMeshFile(folder.path() / name);
        MeshStore const& again = *read.m_parts.at(0);
        ASSERT_EQ(again.elements().ids(), mesh.elements().ids());
        ASSERT_EQ(again.nodes().ids(), mesh.nodes().ids());
        for (LocalNumber element = 1; element <= mesh.elements().size(); ++element) {
            EXPECT_EQ(again.typeOf(element), mesh.typeOf(element));
            EXPECT_EQ(nodeIdsOf(again, again.elements().idOf(element)),
                      nodeIdsOf(mesh, mesh.elements().idOf(element)));
        }
        for (LocalNumber node = 1; node <= mesh.nodes().size(); ++node) {
            EXPECT_EQ(again.position(node)[0], mesh.position(node)[0]);
            EXPECT_NEAR(again.position(node)[1], mesh.position(node)[1], 1e-40);
        }
    }
}

class MeshWriters : public WithMeshFolder {
protected:
    [[nodiscard]] MeshStore read(char const* name, std::string const& content) const
    {
        return *readMeshFile(write(name, content)).m_parts.at(0);
    }
};

constexpr char const* kTwoGroups =
    "BEGIN BULK\nGRID,1\nGRID,2,,1.\nGRID,3,,2.\nCROD,1,7,1,2\nCROD,2,9,2,3\nCONM2,3,1,0,1.\n";

TEST_F(MeshWriters, MakeGroupsOfOneFormatThoseOfAnother)
{
    MeshStore const mesh = read("mesh.bdf", kTwoGroups);
    EXPECT_THAT(writeGmshMesh(mesh, folder() / "out.msh"), IsEmpty());
    MeshStore const gmsh = *readMeshFile(folder() / "out.msh").m_parts.at(0);
    EXPECT_EQ(gmsh.groups().at(gmsh.groupOf(1)).m_name, "curve 7");
    EXPECT_EQ(gmsh.groups().at(gmsh.groupOf(2)).m_name, "curve 9");
    EXPECT_EQ(gmsh.groups().at(gmsh.groupOf(3)).m_name, "point 1");
    EXPECT_THAT(findSet(gmsh.elementSets(), "property 9")->m_numbers, ElementsAre(2));
    EXPECT_THAT(findSet(gmsh.elementSets(), "CONM2")->m_numbers, ElementsAre(3));

    writeAbaqusMesh(gmsh, folder() / "out.inp");
    MeshStore const abaqus = *readMeshFile(folder() / "out.inp").m_parts.at(0);
    EXPECT_THAT(findSet(abaqus.elementSets(), "property 9")->m_numbers, ElementsAre(2));
    EXPECT_THAT(findSet(abaqus.elementSets(), "curve 7")->m_numbers, ElementsAre(1));
    EXPECT_EQ(abaqus.typeNameOf(1), "B31");
}

TEST_F(MeshWriters, TellOfSetsThatTheFormatHasNoPlaceFor)
{
    MeshStore const mesh =
        read("mesh.inp",
             "*NODE, NSET=N\n1,0\n2,1\n3,2\n*ELEMENT, TYPE=T3D2\n1,1,2\n2,2,3\n*ELSET, ELSET=all\n"
             "1,2\n*ELSET, ELSET=part\n2\n*ELSET, ELSET=none\n");
    EXPECT_THAT(writeGmshMesh(mesh, folder() / "out.msh"),
                ElementsAre(HasSubstr("out.msh: 1 node sets not written"),
                            HasSubstr("out.msh: 2 element sets that are empty or take a part")));
    MeshStore const again = *readMeshFile(folder() / "out.msh").m_parts.at(0);
    ASSERT_EQ(again.elementSets().size(), 1U);
    EXPECT_EQ(again.elementSets()[0].m_name, "all");
}

TEST_F(MeshWriters, KeepNamesApartThatTheFormatCannotWrite)
{
    MeshStore const mesh =
        read("mesh.msh",
             "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$PhysicalNames\n3\n0 1 \"a,b\"\n0 2 \"a_b\"\n"
             "0 3 \"c d\"\n$EndPhysicalNames\n$Nodes\n1\n1 0 0 0\n$EndNodes\n$Elements\n3\n"
             "1 15 2 1 1 1\n2 15 2 2 1 1\n3 15 2 3 1 1\n$EndElements\n");
    writeAbaqusMesh(mesh, folder() / "out.inp");
    MeshStore const again = *readMeshFile(folder() / "out.inp").m_parts.at(0);
    EXPECT_THAT(findSet(again.elementSets(), "a_b")->m_numbers, ElementsAre(1));
    EXPECT_THAT(findSet(again.elementSets(), "a_b_2")->m_numbers, ElementsAre(2));
    EXPECT_THAT(findSet(again.elementSets(), "c d")->m_numbers, ElementsAre(3));
}

TEST_F(MeshWriters, LeaveAFileAsItWasWhereTheyCannotWrite)
{
    MeshStore const mesh = read("mesh.bdf", kTwoGroups);
    EXPECT_THROW(writeAbaqusMesh(mesh, folder()), study::WriteError);
    EXPECT_THROW(static_cast<void>(writeGmshMesh(mesh, folder() / "mesh.bdf" / "out.msh")),
                 study::WriteError);
    EXPECT_EQ(test::contentOf(folder() / "mesh.bdf"), kTwoGroups);
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
