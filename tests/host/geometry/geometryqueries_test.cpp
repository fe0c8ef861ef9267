#include "host/geometry/geometryqueries.h"

#include "host/geometry/geometrypicker.h"
#include "host/geometry/modelbuilder.h"
#include "host/geometry/queriestesting.h"
#include "host/geometry/shapestore.h"
#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <Geom_BezierCurve.hxx>
#include <gp_Circ.hxx>
#include <gp_Elips.hxx>
#include <TColgp_Array1OfPnt.hxx>

#include <cmath>
#include <limits>
#include <numbers>
#include <ostream>
#include <thread>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pointwise;
using ::testing::SizeIs;

using Make = TopoDS_Shape (*)();

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = std::numbers::pi;
double const kHalf = std::sqrt(0.5);

GeometryModel modelOf(TopoDS_Shape const& shape)
{
    GeometryModel model;
    addPart(model, "part", shape, bodiesOf(shape));
    model.m_roots.emplace_back().m_part = 0;
    sumOverInstances(model);
    return model;
}

/// The first entity of a class at a place.
unsigned entityAt(GeometryModel const& model, EntityClass entityClass, Vector const& place)
{
    auto const picks = GeometryPicker(model).nearest(place, std::array{entityClass}, 1e-6);
    EXPECT_FALSE(picks.empty());
    return picks.empty() ? 0 : picks.front().m_pick.m_number;
}

TopoDS_Shape cylinder()
{
    return BRepPrimAPI_MakeCylinder(4, 30).Shape();
}

TopoDS_Shape sphere()
{
    return BRepPrimAPI_MakeSphere(3).Shape();
}

TopoDS_Shape freeFormSphere()
{
    return BRepBuilderAPI_NurbsConvert(sphere()).Shape();
}

TopoDS_Shape cone()
{
    return BRepPrimAPI_MakeCone(4, 0, 4).Shape();
}

TopoDS_Shape plateWithHole()
{
    TopoDS_Shape const hole =
        BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(10, 10, -1), gp::DZ()), 4, 5).Shape();
    return BRepAlgoAPI_Cut(BRepPrimAPI_MakeBox(20, 20, 2).Shape(), hole).Shape();
}

/// With its hole at x = -10 to the middle.
TopoDS_Shape mirroredPlate()
{
    gp_Trsf mirror;
    mirror.SetMirror(gp_Ax2(gp_Pnt(), gp::DX()));
    return BRepBuilderAPI_Transform(plateWithHole(), mirror).Shape();
}

TopoDS_Shape hollowBlock()
{
    return BRepAlgoAPI_Cut(BRepPrimAPI_MakeBox(gp_Pnt(-5, -5, -5), 10, 10, 10).Shape(), sphere())
        .Shape();
}

struct FaceRow {
    char const* m_name;
    Make m_make;
    Vector m_onFace;
    Vector m_point;
    Vector m_nearest;
    Vector m_normal;
};

// clang-format off
FaceRow const kFaceRows[] = {
    // name             shape           on the face        point            nearest          normal
    {"Cylinder",       cylinder,       {0, 4, 15},        {0, 9, 20},      {0, 4, 20},      {0, 1, 0}},
    {"CylinderSeam",   cylinder,       {0, 4, 15},        {7, 0, 3},       {4, 0, 3},       {1, 0, 0}},
    {"CylinderAxis",   cylinder,       {0, 4, 15},        {0, 0, 15},      {4, 0, 15},      {1, 0, 0}},
    {"BeyondItsEnd",   cylinder,       {0, 4, 15},        {0, -7, 34},     {0, -4, 30},     {0, -1, 0}},
    {"Bore",           plateWithHole,  {14, 10, 1},       {11, 10, 1},     {14, 10, 1},     {-1, 0, 0}},
    {"OverHole",       plateWithHole,  {1, 1, 2},         {10, 11, 5},     {10, 14, 2},     {0, 0, 1}},
    {"UnderPlate",     plateWithHole,  {1, 1, 0},         {2, 3, 9},       {2, 3, 0},       {0, 0, -1}},
    {"BesidePlate",    plateWithHole,  {1, 1, 2},         {23, 24, 2},     {20, 20, 2},     {0, 0, 1}},
    {"MirroredBore",   mirroredPlate,  {-6, 10, 1},       {-7, 10, 1},     {-6, 10, 1},     {-1, 0, 0}},
    {"MirroredSide",   mirroredPlate,  {-20, 1, 1},       {-30, 1, 1},     {-20, 1, 1},     {-1, 0, 0}},
    {"Sphere",         sphere,         {0, 3, 0},         {-5, 0, 5},      {-3 * kHalf, 0, 3 * kHalf}, {-kHalf, 0, kHalf}},
    {"Pole",           sphere,         {0, 3, 0},         {0, 0, 8},       {0, 0, 3},       {0, 0, 1}},
    {"FreeFormPole",   freeFormSphere, {0, 3, 0},         {0, 0, -8},      {0, 0, -3},      {0, 0, -1}},
    {"FreeForm",       freeFormSphere, {0, 3, 0},         {1, -7, 0},      {3 / std::sqrt(50), -21 / std::sqrt(50), 0}, {1 / std::sqrt(50), -7 / std::sqrt(50), 0}},
    {"Cavity",         hollowBlock,    {0, 3, 0},         {0, 1, 0},       {0, 3, 0},       {0, -1, 0}},
    {"CavityPole",     hollowBlock,    {0, 3, 0},         {0, 0, 1},       {0, 0, 3},       {0, 0, -1}},
    {"Cone",           cone,           {0, 4, 0},         {0, -6, 6},      {0, -2, 2},      {0, -kHalf, kHalf}},
};
// clang-format on

TEST(NearestOnFace, HasItsOutwardNormalAndFrame)
{
    for (FaceRow const& row : kFaceRows) {
        SCOPED_TRACE(row.m_name);
        GeometryModel const model = modelOf(row.m_make());
        GeometryQueries const queries(model);
        unsigned const face = entityAt(model, EntityClass::face, row.m_onFace);
        EXPECT_THAT(queries.projection(face, row.m_point), isNear(row.m_nearest));
        EXPECT_THAT(queries.normalAt(face, row.m_point), isNear(row.m_normal));
        auto const parameters = queries.closestParameters(face, row.m_point);
        ASSERT_TRUE(parameters.has_value());
        auto const frame = queries.surfaceFrame(face, *parameters);
        ASSERT_TRUE(frame.has_value());
        EXPECT_THAT(std::optional(frame->m_normal), isNear(row.m_normal));
        for (Vector const& along : {frame->m_u, frame->m_v}) {
            EXPECT_NEAR(distance(along, {}), 1.0, 1e-9);
            EXPECT_NEAR(distance(along, row.m_normal), std::sqrt(2.0), 1e-6);
        }
    }
}

struct LineRow {
    char const* m_name;
    Make m_make;
    Vector m_onFace;
    GeometryQueries::Line m_line;
    std::vector<Vector> m_expected;
};

// clang-format off
LineRow const kLineRows[] = {
    // name            shape           on the face  line                            points
    {"Through",       sphere,         {0, 3, 0},   {{1, 0, 0}, {0, 0, 2}},         {{1, 0, -std::sqrt(8)}, {1, 0, std::sqrt(8)}}},
    {"Backwards",     sphere,         {0, 3, 0},   {{1, 0, 900}, {0, 0, -2}},      {{1, 0, std::sqrt(8)}, {1, 0, -std::sqrt(8)}}},
    {"Poles",         sphere,         {0, 3, 0},   {{0, 0, 0}, {0, 0, 1}},         {{0, 0, -3}, {0, 0, 3}}},
    {"FreeForm",      freeFormSphere, {0, 3, 0},   {{0, 1, 50}, {0, 0, 1}},        {{0, 1, -std::sqrt(8)}, {0, 1, std::sqrt(8)}}},
    {"Seam",          cylinder,       {0, 4, 15},  {{9, 0, 5}, {-1, 0, 0}},        {{4, 0, 5}, {-4, 0, 5}}},
    {"Touches",       cylinder,       {0, 4, 15},  {{9, 4, 5}, {-1, 0, 0}},        {{0, 4, 5}}},
    {"AboveTheEnd",   cylinder,       {0, 4, 15},  {{9, 0, 31}, {-1, 0, 0}},       {}},
    {"HoleMisses",    plateWithHole,  {1, 1, 2},   {{10, 12, 9}, {0, 0, -1}},      {}},
    {"BesideHole",    plateWithHole,  {1, 1, 2},   {{10, 14.5, 9}, {0, 0, -1}},    {{10, 14.5, 2}}},
    {"AtTheEdge",     plateWithHole,  {1, 1, 2},   {{20, 3, 9}, {0, 0, -1e-200}},  {{20, 3, 2}}},
    {"InThePlane",    plateWithHole,  {1, 1, 2},   {{0, 3, 2}, {1, 0, 0}},         {}},
    {"NoDirection",   plateWithHole,  {1, 1, 2},   {{1, 3, 2}, {0, 0, 0}},         {}},
    {"NoNumber",      plateWithHole,  {1, 1, 2},   {{1, kNaN, 2}, {0, 0, 1}},      {}},
};
// clang-format on

TEST(LineAndFace, MeetInOrderAndOnceAtEachPlace)
{
    for (LineRow const& row : kLineRows) {
        SCOPED_TRACE(row.m_name);
        GeometryModel const model = modelOf(row.m_make());
        GeometryQueries const queries(model);
        auto const found =
            queries.intersections(entityAt(model, EntityClass::face, row.m_onFace), row.m_line);
        ASSERT_THAT(found, SizeIs(row.m_expected.size()));
        for (std::size_t i = 0; i < found.size(); ++i) {
            EXPECT_THAT(std::optional(found[i]), isNear(row.m_expected[i]));
        }
    }
}

TopoDS_Shape circle()
{
    return BRepBuilderAPI_MakeEdge(gp_Circ(gp::XOY(), 5)).Shape();
}

TopoDS_Shape quarterEllipse()
{
    return BRepBuilderAPI_MakeEdge(gp_Elips(gp::XOY(), 8, 2), 0, kPi / 2).Shape();
}

TopoDS_Shape line()
{
    return BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 1), gp_Pnt(0, 10, 1)).Shape();
}

TopoDS_Shape cubic(double bend)
{
    TColgp_Array1OfPnt poles(1, 4);
    poles(1) = gp_Pnt(0, 0, 1);
    poles(2) = gp_Pnt(0, 3, 1 + bend);
    poles(3) = gp_Pnt(0, 7, 1 - bend);
    poles(4) = gp_Pnt(0, 10, 1);
    return BRepBuilderAPI_MakeEdge(new Geom_BezierCurve(poles)).Shape();
}

struct EdgeRow {
    char const* m_name;
    Make m_make;
    bool m_isClosed;
    bool m_isStraight;
    Vector m_point;
    Vector m_nearest;
    Vector m_tangent;
    Vector m_normal;
};

// clang-format off
EdgeRow const kEdgeRows[] = {
    // name            edge            closed straight point        nearest      tangent     normal
    {"Circle",        circle,         true,  false,   {0, 9, 3},   {0, 5, 0},   {-1, 0, 0}, {0, -1, 0}},
    {"CircleStart",   circle,         true,  false,   {9, 0, 0},   {5, 0, 0},   {0, 1, 0},  {-1, 0, 0}},
    {"CircleCentre",  circle,         true,  false,   {0, 0, 3},   {5, 0, 0},   {0, 1, 0},  {-1, 0, 0}},
    {"Ellipse",       quarterEllipse, false, false,   {0, 7, 0},   {0, 2, 0},   {-1, 0, 0}, {0, -1, 0}},
    {"EllipseIsCut",  quarterEllipse, false, false,   {9, -4, 0},  {8, 0, 0},   {0, 1, 0},  {-1, 0, 0}},
    {"Line",          line,           false, true,    {3, 4, 1},   {0, 4, 1},   {0, 1, 0},  {0, 0, 0}},
    {"BeyondLine",    line,           false, true,    {0, 14, 4},  {0, 10, 1},  {0, 1, 0},  {0, 0, 0}},
    {"StraightCubic", [] { return cubic(0); }, false, true, {3, 4, 1}, {0, 4, 1}, {0, 1, 0}, {0, 0, 0}},
    {"BentCubic",     [] { return cubic(3); }, false, false, {0, -3, -2}, {0, 0, 1}, {0, kHalf, kHalf}, {0, kHalf, -kHalf}},
};
// clang-format on

TEST(NearestOnEdge, HasTheFrameOfTheCurve)
{
    for (EdgeRow const& row : kEdgeRows) {
        SCOPED_TRACE(row.m_name);
        GeometryModel const model = modelOf(row.m_make());
        GeometryQueries const queries(model);
        unsigned const edge = numbersOf(model, EntityClass::edge).at(0);
        EXPECT_EQ(queries.isPeriodic(edge), row.m_isClosed);
        EXPECT_EQ(queries.isStraight(edge), row.m_isStraight);
        EXPECT_THAT(queries.projection(edge, row.m_point), isNear(row.m_nearest));
        double const away = distance(row.m_point, row.m_nearest);
        EXPECT_TRUE(queries.contains(edge, row.m_point, away + 1e-6));
        EXPECT_FALSE(queries.contains(edge, row.m_point, away - 1e-6));
        auto const frame =
            queries.curveFrame(edge, queries.closestParameter(edge, row.m_point).value());
        ASSERT_TRUE(frame.has_value());
        EXPECT_THAT(std::optional(frame->m_tangent), isNear(row.m_tangent));
        EXPECT_THAT(std::optional(frame->m_normal), isNear(row.m_normal));
        Vector const& t = row.m_tangent;
        Vector const& n = row.m_normal;
        EXPECT_THAT(std::optional(frame->m_binormal),
                    isNear({t[1] * n[2] - t[2] * n[1], t[2] * n[0] - t[0] * n[2],
                            t[0] * n[1] - t[1] * n[0]}));
        auto const ends = queries.endPoints(edge).value();
        EXPECT_EQ(distance(ends[0], ends[1]) < 1e-9, row.m_isClosed);
    }
}

TEST(LeastDistance, IsExactToCurvesAndTakesTheFirstAlongTheLine)
{
    struct Row {
        Make m_make;
        GeometryQueries::Line m_line;
        Vector m_onEdge;
        double m_distance;
    };
    // clang-format off
    Row const rows[] = {
        {circle,         {{0, 7, 3}, {9, 0, 0}},      {0, 5, 0},             std::sqrt(13)},
        {circle,         {{3, -50, 0}, {0, 2, 0}},    {3, -4, 0},            0.0},
        {circle,         {{3, 50, 0}, {0, -2, 0}},    {3, 4, 0},             0.0},
        {circle,         {{0, 0, -70}, {0, 0, 1}},    {5, 0, 0},             5.0},
        {line,           {{-3, 0, 1}, {0, 1e-180, 0}}, {0, 0, 1},           3.0},
        {line,           {{4, 6, 0}, {0, 0, 1e200}},  {0, 6, 1},             4.0},
        {quarterEllipse, {{4, -9, 4}, {-1, 0, 0}},    {8, 0, 0},             std::hypot(9, 4)},
        {[] { return cubic(3); }, {{5, 5, 0}, {0, 0, 1}}, {0, 5, 1.0},       5.0},
    };
    // clang-format on
    for (Row const& row : rows) {
        GeometryModel const model = modelOf(row.m_make());
        GeometryQueries const queries(model);
        auto const close =
            queries.leastDistance(numbersOf(model, EntityClass::edge).at(0), row.m_line);
        ASSERT_TRUE(close.has_value());
        EXPECT_NEAR(close->m_distance, row.m_distance, 1e-6);
        EXPECT_NEAR(distance(close->m_onEntity, close->m_onLine), row.m_distance, 1e-6);
        EXPECT_THAT(std::optional(close->m_onEntity), isNear(row.m_onEdge));
    }
}

TEST(EdgesWithoutLength, LieInTheirVertexAndHaveNoCurve)
{
    GeometryModel const model = modelOf(cone());
    GeometryQueries const queries(model);
    Vector const tip{0, 0, 4};
    std::size_t tips = 0;
    for (unsigned const edge : numbersOf(model, EntityClass::edge)) {
        if (model.measure(edge) > 0.0) {
            continue;
        }
        ++tips;
        EXPECT_THAT(queries.projection(edge, {9, 9, 9}), isNear(tip));
        EXPECT_THAT(std::optional(queries.endPoints(edge)->at(1)), isNear(tip));
        EXPECT_NEAR(queries.leastDistance(edge, {{0, 2, 0}, {1, 0, 0}})->m_distance, std::sqrt(20),
                    1e-9);
        EXPECT_TRUE(queries.contains(edge, tip, 1e-9));
        EXPECT_THAT(queries.seedPoints(edge), SizeIs(1));
        EXPECT_FALSE(queries.closestParameter(edge, tip).has_value());
        EXPECT_FALSE(queries.curveFrame(edge, 0.0).has_value());
        EXPECT_FALSE(queries.isStraight(edge).has_value());
        EXPECT_FALSE(queries.isPeriodic(edge).has_value());
    }
    EXPECT_EQ(tips, 1u);
    unsigned const side = entityAt(model, EntityClass::face, {0, 4, 0});
    EXPECT_THAT(queries.projection(side, {0, 0, 9}), isNear(tip));
    EXPECT_FALSE(queries.normalAt(side, {0, 0, 9}).has_value());
}

TEST(Periodic, IsASurfaceThatClosesWithinTheFace)
{
    TopoDS_Shape const half =
        BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(), gp::DZ()), 4, 30, kPi).Shape();
    GeometryModel const open = modelOf(half);
    GeometryModel const closed = modelOf(cylinder());
    EXPECT_EQ(GeometryQueries(open).isPeriodic(entityAt(open, EntityClass::face, {0, 4, 9})),
              false);
    EXPECT_EQ(GeometryQueries(closed).isPeriodic(entityAt(closed, EntityClass::face, {0, 4, 9})),
              true);
}

TEST(SeedPoints, KeepTheChordErrorOnCurvesAndStayInsideFaces)
{
    for (Make const make : {Make(circle), Make(quarterEllipse), Make([] { return cubic(3); })}) {
        GeometryModel const model = modelOf(make());
        GeometryQueries const queries(model);
        unsigned const edge = numbersOf(model, EntityClass::edge).at(0);
        auto const corners = queries.seedPoints(edge);
        ASSERT_GT(corners.size(), 3u);
        EXPECT_LT(corners.size(), 40u);
        EXPECT_EQ(corners.front(), queries.endPoints(edge)->at(0));
        EXPECT_NEAR(distance(corners.back(), queries.endPoints(edge)->at(1)), 0.0, 1e-9);
        double const limit = GeometryQueries::kSeedChord * queries.box(edge)->diagonal();
        for (std::size_t i = 1; i < corners.size(); ++i) {
            Vector const middle = plus(plus({}, corners[i - 1], 0.5), corners[i], 0.5);
            EXPECT_TRUE(queries.contains(edge, middle, limit));
        }
    }
    GeometryModel const plate = modelOf(plateWithHole());
    GeometryQueries const queries(plate);
    auto const seeds = queries.seedPoints(entityAt(plate, EntityClass::face, {1, 1, 2}));
    EXPECT_THAT(seeds, SizeIs(20));  // but five over the hole or on its edge
    EXPECT_THAT(seeds, ::testing::Each(::testing::Truly([](Vector const& seed) {
                    return std::hypot(seed[0] - 10, seed[1] - 10) > 4 && seed[2] == 2;
                })));
}

TEST(Queries, AnswerNothingForWhatMakesNoSense)
{
    GeometryModel const model = modelOf(plateWithHole());
    GeometryQueries const queries(model);
    unsigned const body = 1;
    unsigned const face = entityAt(model, EntityClass::face, {1, 1, 2});
    unsigned const edge = entityAt(model, EntityClass::edge, {10, 0, 0});
    unsigned const vertex = entityAt(model, EntityClass::vertex, {0, 0, 0});
    EXPECT_THAT(queries.pointOfVertex(vertex), isNear({0, 0, 0}));
    EXPECT_NEAR(queries.box(body)->diagonal(), std::sqrt(804), 1e-9);
    for (unsigned const other : {0u, body, vertex, 99999u}) {
        EXPECT_FALSE(queries.projection(other, {1, 1, 1}).has_value());
        EXPECT_FALSE(queries.endPoints(other).has_value());
        EXPECT_FALSE(queries.isPeriodic(other).has_value());
        EXPECT_FALSE(queries.leastDistance(other, {{0, 0, 0}, {1, 0, 0}}).has_value());
        EXPECT_FALSE(queries.contains(other, {0, 0, 0}, 100.0));
        EXPECT_THAT(queries.intersections(other, {{1, 1, 9}, {0, 0, 1}}), IsEmpty());
    }
    EXPECT_FALSE(queries.pointOfVertex(edge).has_value());
    EXPECT_FALSE(queries.closestParameter(face, {1, 1, 1}).has_value());
    EXPECT_FALSE(queries.closestParameters(edge, {1, 1, 1}).has_value());
    EXPECT_FALSE(queries.normalAt(edge, {1, 1, 1}).has_value());
    EXPECT_FALSE(queries.normalAt(face, {1, kNaN, 1}).has_value());
    EXPECT_FALSE(queries.closestParameter(edge, {1, kNaN, 1}).has_value());
    EXPECT_FALSE(queries.curveFrame(edge, 1e3).has_value());
    EXPECT_FALSE(queries.surfaceFrame(face, {0, 1e3}).has_value());
    EXPECT_FALSE(queries.surfaceFrame(face, {kNaN, 0}).has_value());
    EXPECT_FALSE(queries.contains(edge, {10, 0, 0}, kNaN));
    EXPECT_FALSE(queries.contains(edge, {10, 0, 0}, -1.0));
    EXPECT_FALSE(queries.middleOf(body).has_value());
    EXPECT_THAT(queries.seedPoints(body), IsEmpty());
    EXPECT_FALSE(queries.box(0).has_value());
    EXPECT_FALSE(queries.kernelTag(0).has_value());
    EXPECT_FALSE(queries.projection(face, {1e300, 1e300, 1}).has_value());
}

TEST(Queries, OfSeveralThreadsToOneFaceDoNotMix)
{
    GeometryModel const model = modelOf(freeFormSphere());
    GeometryQueries const queries(model);
    unsigned const face = numbersOf(model, EntityClass::face).at(0);
    auto const work = [&](double side) {
        for (int i = 0; i < 200; ++i) {
            Vector const out{side * std::cos(0.1 * i), std::sin(0.1 * i), 0.5};
            Vector const expected = plus({}, out, 3 / distance(out, {}));
            EXPECT_THAT(queries.projection(face, out), isNear(expected));
            EXPECT_THAT(queries.intersections(face, {{}, out}),
                        ElementsAre(::testing::_, Pointwise(DoubleNear(1e-5), expected)));
        }
    };
    std::thread left(work, -1.0);
    std::thread right(work, 1.0);
    work(0.5);
    left.join();
    right.join();
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
