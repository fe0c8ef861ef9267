// Geometry queries on files: triangles without a surface, and real assemblies.

#include "host/geometry/distances.h"
#include "host/geometry/queriestesting.h"
#include "host/geometry/shapestore.h"
#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

double const kHalf = std::sqrt(0.5);

class FacetQueries : public WithFolder {};

TEST_F(FacetQueries, WorkOnTrianglesWithoutASurface)
{
    // The pyramid's base is two triangles; the line through the middle meets their common side.
    std::string text = "solid p\n";
    for (char const* const corners :
         {"0 0 0 0 8 0 8 8 0", "0 0 0 8 8 0 8 0 0", "0 0 0 8 0 0 4 4 4", "8 0 0 8 8 0 4 4 4",
          "8 8 0 0 8 0 4 4 4", "0 8 0 0 0 0 4 4 4"}) {
        std::istringstream in(corners);
        text += "facet normal 0 0 0\nouter loop\n";
        for (std::string x, y, z; in >> x >> y >> z;) {
            text += "vertex " + x + " " + y + " " + z + "\n";
        }
        text += "endloop\nendfacet\n";
    }
    GeometryModel const model = importGeometry(write("pyramid.stl", text + "endsolid p\n"));
    GeometryQueries const queries(model);
    unsigned const face = numbersOf(model, EntityClass::face).at(0);
    EXPECT_THAT(queries.projection(face, {2, 5, -3}), isNear({2, 5, 0}));
    EXPECT_THAT(queries.normalAt(face, {2, 5, -3}), isNear({0, 0, -1}));
    EXPECT_THAT(queries.normalAt(face, {9, 4, 5}), isNear({kHalf, 0, kHalf}));
    EXPECT_THAT(queries.projection(face, {-3, 4, -4}), isNear({0, 4, 0}));
    EXPECT_THAT(queries.intersections(face, {{4, 4, 99}, {0, 0, -1}}),
                ElementsAre(ElementsAre(4, 4, 4), ElementsAre(4, 4, 0)));
    EXPECT_THAT(queries.intersections(face, {{9, 4, 99}, {0, 0, -1}}), IsEmpty());
    EXPECT_NEAR(queries.box(face)->diagonal(), 12.0, 1e-9);
    EXPECT_THAT(queries.seedPoints(face), SizeIs(6));
    Vector const middle = queries.middleOf(face).value();
    EXPECT_THAT(queries.projection(face, middle), isNear(middle));
    EXPECT_FALSE(queries.closestParameters(face, {1, 1, 1}).has_value());
    EXPECT_FALSE(queries.surfaceFrame(face, {0, 0}).has_value());
}

class RealQueries : public RealFile, public ::testing::WithParamInterface<char const*> {};

/// How often a line from the point on, on no seam or edge by any chance, goes through a body.
std::size_t wallsFrom(GeometryModel const& model, GeometryQueries const& queries, unsigned body,
                      Vector const& point)
{
    Vector const slanted{0.5171, 0.6223, 0.5873};
    std::size_t count = 0;
    for (unsigned const face : model.children(body, EntityClass::face)) {
        for (Vector const& wall : queries.intersections(face, {point, slanted})) {
            count += wall[0] > point[0] ? 1 : 0;
        }
    }
    return count;
}

TEST_P(RealQueries, LeaveTheBodyAlongTheNormalOfEachSeed)
{
    GeometryModel const model = importGeometry(stepFile(GetParam()));
    GeometryQueries const queries(model);
    for (unsigned const face : numbersOf(model, EntityClass::face)) {
        unsigned const body = model.entity(face)->m_body;
        auto const seeds = queries.seedPoints(face);
        ASSERT_THAT(seeds, ::testing::Not(IsEmpty()));
        for (Vector const& seed : {seeds.front(), seeds.back()}) {
            Vector const normal = queries.normalAt(face, seed).value();
            EXPECT_THAT(queries.projection(face, plus(seed, normal, 0.01)), isNear(seed));
            EXPECT_EQ(wallsFrom(model, queries, body, plus(seed, normal, 0.01)) % 2, 0u) << face;
            EXPECT_EQ(wallsFrom(model, queries, body, plus(seed, normal, -0.01)) % 2, 1u) << face;
        }
    }
}

TEST_P(RealQueries, AreAsFarAsTheSearchOverAllShapesTells)
{
    GeometryModel const model = importGeometry(stepFile(GetParam()));
    GeometryQueries const queries(model);
    for (Entity const& entity : model.m_entities) {
        if (entity.m_class != EntityClass::face && entity.m_class != EntityClass::edge) {
            continue;
        }
        Box const& box = model.m_parts[entity.m_part].m_box;
        TopoDS_Shape const shape = model.shapes().part(entity.m_part).shapeOf(entity.m_number);
        for (Vector const& point : {box.m_min, plus(plus({}, box.m_min, 0.4), box.m_max, 0.6)}) {
            auto const nearest = queries.projection(entity.m_number, point);
            ASSERT_TRUE(nearest.has_value());
            EXPECT_NEAR(distance(*nearest, point),
                        distanceTo(shape, gp_Pnt(point[0], point[1], point[2])).value(), 1e-6)
                << entity.m_number;
        }
    }
}

TEST_P(RealQueries, TagEntitiesByPartLevelAndOrder)
{
    GeometryModel const model = importGeometry(stepFile(GetParam()));
    GeometryQueries const queries(model);
    GeometryQueries::KernelTag last;
    for (Entity const& entity : model.m_entities) {
        auto const tag = queries.kernelTag(entity.m_number).value();
        EXPECT_EQ(tag.m_part, entity.m_part);
        bool const isNext = tag.m_part == last.m_part && tag.m_level == last.m_level;
        EXPECT_EQ(tag.m_index, isNext ? last.m_index + 1 : 1u) << entity.m_number;
        EXPECT_EQ(tag.m_level == 2, entity.m_class == EntityClass::face);
        last = tag;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, RealQueries, ::testing::Values("as1-tu-203.stp", "RLF_12545.stp"),
                         [](auto const& row) { return std::string(row.param, 3); });

}  // namespace
}  // namespace vrn::orlo::host::geometry
