#include "host/meshing/meshtables.h"

#include "host/meshing/meshfixtures.h"

#include <gmock/gmock.h>

#include <set>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<LocalNumber> listOf(std::span<LocalNumber const> numbers)
{
    return {numbers.begin(), numbers.end()};
}

TEST(MeshTables, SkinLosesTheFaceBetweenElementsButNotBetweenBodies)
{
    MeshTables const one(twoCubes(1));
    EXPECT_EQ(one.skinOfBody(0).size(), 10U);
    EXPECT_TRUE(std::ranges::is_sorted(one.skinOfBody(0)));
    EXPECT_THAT(one.skinOfBody(1), IsEmpty());
    MeshTables const two(twoCubes(2));
    EXPECT_EQ(two.skinOfBody(0).size(), 6U);
    EXPECT_EQ(two.skinOfBody(1).size(), 6U);
    EXPECT_EQ(two.skinOfBody(1).front().m_element, 1U);
}

TEST(MeshTables, SkinCountsCollapsedFacesForWhatTheyLookLike)
{
    // A hexahedron whose top has become an edge, with a tetrahedron on one of the two triangles.
    StoreMaker maker;
    for (Point const& at : {Point{0, 0, 0}, Point{1, 0, 0}, Point{1, 1, 0}, Point{0, 1, 0},
                            Point{0, 0, 1}, Point{1, 0, 1}, Point{0, -1, 0}}) {
        maker.node(at);
    }
    maker.element(ElementType::hexa8, {1, 2, 3, 4, 5, 6, 6, 5});
    maker.element(ElementType::tetra4, {1, 4, 5, 7});
    MeshTables const tables(maker.make());
    std::multiset<LocalNumber> owners;
    for (ElementFace const& face : tables.skinOfBody(0)) {
        owners.insert(face.m_element);
    }
    EXPECT_EQ(owners.count(1), 4U) << "six, less the collapsed one and the one beneath the other";
    EXPECT_EQ(owners.count(2), 3U);
}

TEST(MeshTables, LeadBackFromNodesGroupsBodiesAndGeometry)
{
    MeshTables const tables(twoCubes(2));
    EXPECT_THAT(listOf(tables.elementsAt(1)), ElementsAre(2));
    EXPECT_THAT(listOf(tables.elementsAt(5)), ElementsAre(1, 2));
    EXPECT_THAT(listOf(tables.elementsAt(12)), ElementsAre(1));
    EXPECT_THAT(tables.elementsAt(0), IsEmpty());
    EXPECT_THAT(tables.elementsAt(13), IsEmpty());
    EXPECT_THAT(listOf(tables.elementsOfGroup(0)), ElementsAre(2));
    EXPECT_THAT(tables.elementsOfGroups(std::vector<MeshIndex>{0, 1}), ElementsAre(1, 2));
    EXPECT_THAT(tables.elementsOfGroup(2), IsEmpty());
    EXPECT_THAT(listOf(tables.nodesOfBody(0)), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_EQ(tables.nodesOfBody(1).front(), 5U) << "nodes in common are both bodies'";
    EXPECT_EQ(tables.bodyOf(1), 1U);
    EXPECT_THAT(tables.groupsOn(201), ElementsAre(1));
    EXPECT_THAT(tables.groupsOn(0), IsEmpty());
    EXPECT_THAT(tables.groupsOf(0), ElementsAre(0));
}

TEST(MeshTables, OnlyBodyHasTheNodesWithoutElementsToo)
{
    StoreMaker maker;
    maker.node({0, 0, 0});
    maker.node({1, 0, 0});
    maker.element(ElementType::point1, {2});
    MeshTables const tables(maker.make());
    EXPECT_THAT(listOf(tables.nodesOfBody(0)), ElementsAre(1, 2));
    EXPECT_THAT(tables.elementsAt(1), IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
