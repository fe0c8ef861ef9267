#include "host/geometry/testfiles.h"

#include "host/geometry/modelbuilder.h"
#include "host/geometry/shapestore.h"

#include <gmock/gmock.h>

#include <BRep_Builder.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <TopExp.hxx>
#include <TopoDS_CompSolid.hxx>
#include <TopTools_IndexedMapOfShape.hxx>

#include <thread>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

GeometryModel modelOf(TopoDS_Shape const& shape)
{
    GeometryModel model;
    addPart(model, "part", shape, bodiesOf(shape));
    Instance root;
    root.m_part = 0;
    model.m_roots.push_back(root);
    sumOverInstances(model);
    return model;
}

TEST(Topology, ChildrenAndParentsOfACubeMirrorEachOther)
{
    GeometryModel const model = modelOf(cube(2.0));
    for (unsigned const face : numbersOf(model, EntityClass::face)) {
        EXPECT_THAT(model.children(face, EntityClass::edge), SizeIs(4));
        EXPECT_THAT(model.children(face, EntityClass::vertex), SizeIs(4));
        EXPECT_THAT(model.parents(face, EntityClass::solidBody), ElementsAre(1));
        for (unsigned const edge : model.children(face, EntityClass::edge)) {
            EXPECT_THAT(model.parents(edge, EntityClass::face), ::testing::Contains(face));
        }
    }
    for (unsigned const edge : numbersOf(model, EntityClass::edge)) {
        EXPECT_THAT(model.parents(edge, EntityClass::face), SizeIs(2));
    }
    for (unsigned const vertex : numbersOf(model, EntityClass::vertex)) {
        EXPECT_THAT(model.parents(vertex, EntityClass::edge), SizeIs(3));
        EXPECT_THAT(model.parents(vertex, EntityClass::face), SizeIs(3));
    }
}

TEST(Topology, NothingIsItsOwnChildOrParent)
{
    GeometryModel const model = modelOf(cube(2.0));
    EXPECT_THAT(model.children(1, EntityClass::solidBody), IsEmpty());
    EXPECT_THAT(model.children(2, EntityClass::volume), IsEmpty());
    EXPECT_THAT(model.parents(3, EntityClass::face), IsEmpty());
    EXPECT_THAT(model.children(999, EntityClass::face), IsEmpty());
    EXPECT_THAT(model.parents(0, EntityClass::face), IsEmpty());
    EXPECT_EQ(model.measure(999), 0.0);
}

TEST(Topology, AsksOfSeveralThreadsGetOneAnswer)
{
    GeometryModel const model = modelOf(compoundOf({cube(1.0), cube(1.0, 2.0), cube(1.0, 4.0)}));
    std::vector<std::size_t> parents(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < parents.size(); ++i) {
        threads.emplace_back([&, i] {
            for (unsigned const vertex : numbersOf(model, EntityClass::vertex)) {
                parents[i] += model.parents(vertex, EntityClass::face).size();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(parents, Each(72u));
}

TEST(Topology, FindsNumbersOfShapesAndShapesOfNumbers)
{
    GeometryModel const model = modelOf(compoundOf({cube(1.0), cube(1.0, 2.0)}));
    PartTopology const& topology = model.shapes().part(0);
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(topology.shape(), TopAbs_FACE, faces);
    for (int i = 1; i <= faces.Extent(); ++i) {
        unsigned const number = 4 + static_cast<unsigned>(i);  // after two bodies, two volumes
        EXPECT_EQ(topology.numberOf(faces(i).Reversed(), TopologyLevel::face), number);
        EXPECT_TRUE(topology.shapeOf(number).IsSame(faces(i)));
    }
    EXPECT_TRUE(topology.shapeOf(0).IsNull());
    EXPECT_EQ(topology.numberOf(cube(3.0), TopologyLevel::body), 0u);
}

TEST(Topology, SolidsOfACompSolidAreVolumesOfOneGeneralBody)
{
    BRep_Builder builder;
    TopoDS_CompSolid both;
    builder.MakeCompSolid(both);
    builder.Add(both, cube(1.0));
    builder.Add(both, cube(1.0, 1.0));
    GeometryModel const model = modelOf(compoundOf({both}));
    EXPECT_THAT(numbersOf(model, EntityClass::generalBody), ElementsAre(1));
    EXPECT_THAT(model.children(1, EntityClass::volume), ElementsAre(2, 3));
    EXPECT_NEAR(model.volume(), 2.0, 1e-9);
}

TEST(Topology, TakesAFreeVertexAsAPointBody)
{
    GeometryModel const model = modelOf(
        compoundOf({BRepBuilderAPI_MakeVertex(gp_Pnt(1, 2, 3)).Shape(), compoundOf({cube(1.0)})}));
    EXPECT_THAT(numbersOf(model, EntityClass::pointBody), ElementsAre(1));
    EXPECT_EQ(model.m_totals.m_points, 1u);
    EXPECT_EQ(model.m_box.m_max, (std::array{1.0, 2.0, 3.0}));
}

TEST(Topology, ASolidThatStandsTwiceAtOnePlaceIsOneBody)
{
    TopoDS_Shape const solid = cube(1.0);
    EXPECT_EQ(modelOf(compoundOf({solid, compoundOf({solid})})).m_totals.m_solids, 1u);
}

TEST(Topology, AMirroredInstanceHasTheVolumeOfItsPart)
{
    GeometryModel model = modelOf(cube(2.0, 1.0));
    model.m_roots[0].m_placement.m_rows[0] = -1.0;
    model.m_box = Box{};
    sumOverInstances(model);
    EXPECT_NEAR(model.volume(), 8.0, 1e-9);
    EXPECT_NEAR(model.m_box.m_min[0], -3.0, 1e-9);
    EXPECT_NEAR(model.m_box.m_max[0], -1.0, 1e-9);
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
