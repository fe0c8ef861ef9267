#include "host/geometry/geometrypicker.h"

#include "host/geometry/modelbuilder.h"
#include "host/geometry/placement.h"
#include "host/geometry/shapestore.h"
#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

#include <BRep_Builder.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_CompSolid.hxx>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <ostream>
#include <sstream>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Triple = std::array<double, 3>;

constexpr std::array kFaces{EntityClass::face};
constexpr std::array kEdges{EntityClass::edge};
constexpr std::array kSolids{EntityClass::solidBody};
constexpr std::array kAll{EntityClass::solidBody, EntityClass::generalBody, EntityClass::facetSolid,
                          EntityClass::volume,    EntityClass::face,        EntityClass::edge,
                          EntityClass::vertex};
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TopoDS_Shape block()
{
    return BRepPrimAPI_MakeBox(10, 20, 30).Shape();
}

TopoDS_Shape plateWithHole()
{
    TopoDS_Shape const hole =
        BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(10, 10, -1), gp::DZ()), 4, 5).Shape();
    return BRepAlgoAPI_Cut(BRepPrimAPI_MakeBox(20, 20, 2).Shape(), hole).Shape();
}

Instance leafOf(Placement const& placement, std::string const& name = "leaf")
{
    Instance leaf;
    leaf.m_name = name;
    leaf.m_part = 0;
    leaf.m_placement = placement;
    return leaf;
}

GeometryModel modelOf(TopoDS_Shape const& shape, std::vector<Placement> const& placements = {{}})
{
    GeometryModel model;
    addPart(model, "part", shape, bodiesOf(shape));
    for (Placement const& placement : placements) {
        model.m_roots.push_back(leafOf(placement));
    }
    sumOverInstances(model);
    return model;
}

Placement shiftedBy(double x)
{
    return {{1, 0, 0, x, 0, 1, 0, 0, 0, 0, 1, 0}};
}

/// A turn about a slanted axis, after a mirror and a scale, and a shift.
Placement skewed()
{
    Placement const turn{{0.36, 0.48, -0.8, 7, -0.8, 0.6, 0, -3, 0.48, 0.64, 0.6, 11}};
    return composed(turn, {{-2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0}});
}

Triple moved(Triple const& point, Placement const& placement)
{
    Box box;
    box.add(point);
    return movedBox(box, placement).m_min;
}

std::vector<unsigned> numbersOf(std::vector<NearPick> const& picks)
{
    std::vector<unsigned> numbers;
    for (NearPick const& pick : picks) {
        numbers.push_back(pick.m_pick.m_number);
    }
    return numbers;
}

struct ClickRow {
    char const* m_name;
    TopoDS_Shape (*m_make)();
    Triple m_point;
    EntityClass m_class;
    double m_tolerance;
    std::size_t m_count;
    double m_distance;
};

void PrintTo(ClickRow const& row, std::ostream* out)
{
    *out << row.m_name;
}

class Click : public ::testing::TestWithParam<ClickRow> {};

TEST_P(Click, FindsTheNearestAndAllThatTie)
{
    ClickRow const& row = GetParam();
    std::array const classes{row.m_class};
    GeometryModel const plain = modelOf(row.m_make());
    auto const picks = GeometryPicker(plain).nearest(row.m_point, classes, row.m_tolerance);
    ASSERT_THAT(picks, SizeIs(row.m_count));
    for (NearPick const& pick : picks) {
        EXPECT_NEAR(pick.m_distance, row.m_distance, 1e-9);
    }
    // Placing the part and the query alike changes nothing but the scale.
    GeometryModel const placed = modelOf(row.m_make(), {skewed()});
    auto const same = GeometryPicker(placed).nearest(moved(row.m_point, skewed()), classes,
                                                     2.0 * row.m_tolerance);
    EXPECT_EQ(numbersOf(same), numbersOf(picks));
    for (NearPick const& pick : same) {
        EXPECT_NEAR(pick.m_distance, 2.0 * row.m_distance, 1e-7);
    }
}

// clang-format off
ClickRow const kClicks[] = {
    {"FaceAbove",      block,         {5, 5, 31},   EntityClass::face,      1.0, 1, 1.0},
    {"OutOfReach",     block,         {5, 5, 31},   EntityClass::face,      0.99, 0, 0.0},
    {"FacesAtCorner",  block,         {0, 0, 0},    EntityClass::face,      0.0, 3, 0.0},
    {"EdgesBeyond",    block,         {13, 24, 30}, EntityClass::edge,      9.0, 3, 5.0},
    {"BodyAround",     block,         {5, 5, 5},    EntityClass::solidBody, 0.0, 1, 0.0},
    {"BodyBeside",     block,         {12, 5, 5},   EntityClass::volume,    9.0, 1, 2.0},
    {"OverHole",       plateWithHole, {10, 10, 5},  EntityClass::face,      9.0, 2, 5.0},
    {"HoleIsNoBody",   plateWithHole, {10, 10, 1},  EntityClass::solidBody, 9.0, 1, 4.0},
    {"SphereIsTwice",  [] { return compoundOf({BRepPrimAPI_MakeSphere(3).Shape(),
                        BRepPrimAPI_MakeSphere(gp_Pnt(8, 0, 0), 3).Shape()}); },
                                      {4, 0, 0},    EntityClass::face,      9.0, 2, 1.0},
    {"TipIsAnEdge",    [] { return BRepPrimAPI_MakeCone(4, 0, 10).Shape(); },
                                      {0, 0, 12},   EntityClass::edge,      9.0, 2, 2.0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Places, Click, ::testing::ValuesIn(kClicks),
                         [](auto const& row) { return std::string(row.param.m_name); });

TEST(Nearest, TellsInstancesApartAndTakesBothInContact)
{
    GeometryModel const model = modelOf(block(), {shiftedBy(0), shiftedBy(15), shiftedBy(25)});
    GeometryPicker const picker(model);
    EXPECT_THAT(picker.nearest({14, 5, 5}, kSolids, 9),
                ElementsAre(Field(&NearPick::m_pick, Pick{1, 1})));
    EXPECT_THAT(
        picker.nearest({25, 5, 5}, kSolids, 9),
        ElementsAre(Field(&NearPick::m_pick, Pick{1, 1}), Field(&NearPick::m_pick, Pick{1, 2})));
    EXPECT_EQ(picker.instances()[2].m_placement.m_rows[3], 25.0);
}

TEST(Nearest, KnowsTheInsideOfTrianglesAndOfEachSolidInOneBody)
{
    BRep_Builder builder;
    TopoDS_CompSolid both;
    builder.MakeCompSolid(both);
    builder.Add(both, cube(1.0));
    builder.Add(both, cube(1.0, 1.0));
    GeometryModel const general = modelOf(both);
    EXPECT_THAT(numbersOf(GeometryPicker(general).nearest({1.5, 0.5, 0.5}, kAll, 0.1)),
                ElementsAre(1, 3));
}

class FacetPick : public WithFolder {};

TEST_F(FacetPick, WorksOnTrianglesWithoutASurface)
{
    std::string text = "solid t\n";
    for (char const* const corners :
         {"0 0 0 0 9 0 9 0 0", "0 0 0 9 0 0 0 0 9", "0 0 0 0 0 9 0 9 0", "9 0 0 0 9 0 0 0 9"}) {
        std::istringstream in(corners);
        text += "facet normal 0 0 0\nouter loop\n";
        for (std::string x, y, z; in >> x >> y >> z;) {
            text += "vertex " + x + " " + y + " " + z + "\n";
        }
        text += "endloop\nendfacet\n";
    }
    GeometryModel const model = importGeometry(write("tetra.stl", text + "endsolid t\n"));
    GeometryPicker const picker(model);
    EXPECT_THAT(numbersOf(picker.nearest({1, 1, 1}, kAll, 0.5)), ElementsAre(1, 2));
    EXPECT_NEAR(picker.nearest({5, 5, 5}, kAll, 9).at(0).m_distance, 6 / std::sqrt(3.0), 1e-9);
    EXPECT_NEAR(picker.nearest({-3, -4, 4}, kFaces, 9).at(0).m_distance, 5.0, 1e-9);
    EXPECT_EQ(picker.byNormal({1, 1, 1}, 1.0).size() + picker.byNormal({-1, -1, -1}, 60.0).size(),
              1u);
    EXPECT_NEAR(picker.nearest(picker.middleOf(3)->m_point, kFaces, 1).at(0).m_distance, 0, 1e-9);
}

TEST(InBox, TouchesAndContainsByTheTightBoxOfEachInstance)
{
    // Turned by 45 degrees about x, the second cube reaches to y = z = sqrt(2) / 2 only at edges.
    double const s = std::sqrt(0.5);
    GeometryModel const model =
        modelOf(cube(1.0), {shiftedBy(0), {{1, 0, 0, 5, 0, s, -s, 0, 0, s, s, 0}}});
    GeometryPicker const picker(model);
    Box const left{{-1, -1, 0}, {1, 2, 0}};
    EXPECT_THAT(picker.inBox(left, kFaces, BoxRule::contained), SizeIs(1));
    EXPECT_THAT(picker.inBox(left, kFaces, BoxRule::touching), SizeIs(5));
    Box const tight{{5, -s, 0}, {6, s, 2 * s}};
    auto const inside = picker.inBox(tight, kAll, BoxRule::contained);
    EXPECT_THAT(inside, SizeIs(1 + 1 + 6 + 12 + 8));
    EXPECT_THAT(inside, ::testing::Each(Field(&Pick::m_instance, 1u)));
    Box const lower{{5, -s, 0}, {6, s, 2 * s - 0.01}};
    EXPECT_THAT(picker.inBox(lower, kSolids, BoxRule::contained), IsEmpty());
    EXPECT_THAT(picker.inBox(lower, kEdges, BoxRule::touching), SizeIs(11));
}

TEST(ByNormal, FollowsTheTurnOfEachInstanceAndPointsOutwards)
{
    GeometryModel const model = modelOf(block(), {{}, skewed()});
    GeometryPicker const picker(model);
    for (unsigned const face : numbersOf(model, EntityClass::face)) {
        Triple const n = *picker.middleOf(face)->m_normal;
        Triple const m = picker.middleOf(face)->m_point;
        EXPECT_GT(n[0] * (m[0] - 5) + n[1] * (m[1] - 10) + n[2] * (m[2] - 15), 4.9);
        EXPECT_THAT(picker.byNormal(n, 0.0), ElementsAre(Pick{face, 0}));
        Triple const direction = moved(n, skewed());
        Triple const origin = moved({0, 0, 0}, skewed());
        EXPECT_THAT(picker.byNormal({direction[0] - origin[0], direction[1] - origin[1],
                                     direction[2] - origin[2]},
                                    1e-3),
                    ElementsAre(Pick{face, 1}));
    }
    EXPECT_THAT(picker.byNormal({1, 0, 0}, 180.0), SizeIs(12));
}

TEST(ByArea, TakesBothLimits)
{
    GeometryModel const model = modelOf(block());
    GeometryPicker const picker(model);
    EXPECT_THAT(picker.byArea(200, 300), SizeIs(4));
    EXPECT_THAT(picker.byArea(200.001, 300), SizeIs(2));
    EXPECT_THAT(picker.byArea(601, 600), IsEmpty());
}

TEST(Grow, FollowsFilletsAndStopsAtSharpEdges)
{
    TopoDS_Shape const sharp = block();
    BRepFilletAPI_MakeFillet fillet(sharp);
    fillet.Add(2.0, TopoDS::Edge(TopExp_Explorer(sharp, TopAbs_EDGE).Current()));
    GeometryModel const model = modelOf(compoundOf({fillet.Shape(), cube(5.0, 100.0)}));
    GeometryPicker const picker(model);
    unsigned round = 0;
    for (unsigned const face : numbersOf(model, EntityClass::face)) {
        round = std::abs(model.measure(face) - 30 * std::numbers::pi) < 1e-6 ? face : round;
    }
    ASSERT_NE(round, 0u);
    std::array const start{round};
    auto const smooth = picker.grow(start, 1.0);
    EXPECT_THAT(smooth, SizeIs(3));
    for (unsigned const face : smooth) {  // from wherever it starts
        EXPECT_EQ(picker.grow(std::array{face}, 1.0), smooth);
    }
    EXPECT_THAT(picker.grow(start, 89.9), SizeIs(3));
    EXPECT_THAT(picker.grow(start, 90.0), SizeIs(7));  // and not the cube beside it
    EXPECT_EQ(picker.grow(start, -1.0), std::vector(start.begin(), start.end()));
    EXPECT_THAT(picker.grow(std::array{0u, 1u, 9999u}, 180.0), IsEmpty());
}

TEST(Grow, StaysInTheBodyThoughAnotherSharesTheEdge)
{
    TopoDS_Shape const box = block();
    std::vector<TopoDS_Shape> faces;
    for (TopExp_Explorer it(box, TopAbs_FACE); it.More(); it.Next()) {
        faces.push_back(it.Current());
    }
    GeometryModel const model = modelOf(compoundOf(faces));
    std::array const start{numbersOf(model, EntityClass::face).front()};
    EXPECT_THAT(GeometryPicker(model).grow(start, 180.0), ElementsAre(start[0]));
}

TEST(MiddleOf, LiesOnItsEntityAndBesideHoles)
{
    for (TopoDS_Shape const& shape :
         {plateWithHole(), BRepPrimAPI_MakeSphere(3).Shape(), compoundOf({block()}),
          BRepPrimAPI_MakeCone(4, 0, 10).Shape()}) {
        GeometryModel const model = modelOf(shape);
        GeometryPicker const picker(model);
        for (Entity const& entity : model.m_entities) {
            auto const middle = picker.middleOf(entity.m_number);
            ASSERT_TRUE(middle.has_value());
            EXPECT_THAT(numbersOf(picker.nearest(middle->m_point, std::array{entity.m_class}, 0)),
                        ::testing::Contains(entity.m_number));
            EXPECT_EQ(middle->m_normal.has_value(), entity.m_class == EntityClass::face);
        }
    }
}

TEST(ByName, TakesPartsOccurrencesAndAssemblies)
{
    GeometryModel model = modelOf(compoundOf({cube(1.0), cube(1.0, 4.0)}));
    Instance assembly;
    assembly.m_productName = "engine";
    assembly.m_children.push_back(leafOf({}, "left"));
    model.m_roots.push_back(assembly);
    GeometryPicker const picker(model);
    for (char const* const name : {"part", "left", "engine"}) {
        EXPECT_THAT(picker.byName(name), ElementsAre(1, 2)) << name;
    }
    EXPECT_THAT(picker.byName("Part"), IsEmpty());
    EXPECT_THAT(picker.byName(""), IsEmpty());
}

TEST(Picker, FindsNothingForArgumentsWithoutSense)
{
    GeometryModel const model = modelOf(block());
    GeometryPicker const picker(model);
    EXPECT_THAT(picker.nearest({0, 0, kNaN}, kAll, 1), IsEmpty());
    EXPECT_THAT(picker.nearest({0, 0, 0}, kAll, -1), IsEmpty());
    EXPECT_THAT(picker.nearest({0, 0, 0}, kAll, kNaN), IsEmpty());
    EXPECT_THAT(picker.nearest({0, 0, 0}, {}, 1), IsEmpty());
    EXPECT_THAT(picker.inBox({}, kAll, BoxRule::touching), IsEmpty());
    EXPECT_THAT(picker.inBox({{0, 0, kNaN}, {9, 9, 9}}, kAll, BoxRule::touching), IsEmpty());
    EXPECT_THAT(picker.byNormal({0, 0, 0}, 180), IsEmpty());
    EXPECT_THAT(picker.byNormal({1, 0, 0}, -1), IsEmpty());
    EXPECT_THAT(picker.byArea(kNaN, 1), IsEmpty());
    EXPECT_FALSE(picker.middleOf(0).has_value());
    GeometryModel const nothing;
    EXPECT_THAT(GeometryPicker(nothing).nearest({0, 0, 0}, kAll, 1), IsEmpty());
}

class RealPick : public RealFile {};

TEST_F(RealPick, SeesABracketAssemblyAsAUserDoes)
{
    GeometryModel const model = importGeometry(stepFile("as1-oc-214.stp"));
    GeometryPicker const picker(model);
    EXPECT_THAT(picker.instances(), SizeIs(18));
    EXPECT_THAT(picker.byName("bolt"), SizeIs(1));
    EXPECT_THAT(picker.byName("rod-assembly"), SizeIs(2));
    EXPECT_THAT(picker.inBox(model.m_box, kSolids, BoxRule::contained), SizeIs(18));
    // Upwards: the plate, two legs and the lower half of a bore per bracket, 6 bolts, 8 nuts.
    EXPECT_THAT(picker.byNormal({0, 0, 1}, 0.0), SizeIs(1 + 2 * 3 + 6 + 8));
    for (unsigned const plate : picker.byName("plate")) {
        std::array const start{model.children(plate, EntityClass::face).front()};
        EXPECT_EQ(picker.grow(start, 180.0), model.children(plate, EntityClass::face));
        EXPECT_THAT(picker.grow(start, 45.0), SizeIs(1));
    }
}

TEST_F(RealPick, LeavesAndEntersTheBodyAlongTheNormalOfEachFace)
{
    GeometryModel const model = importGeometry(stepFile("as1-oc-214.stp"));
    GeometryPicker const picker(model);
    auto const isInside = [&](Triple const& point, unsigned instance) {
        auto const picks = picker.nearest(point, kSolids, 0.0);
        return std::any_of(picks.begin(), picks.end(), [&](NearPick const& pick) {
            return pick.m_pick.m_instance == instance;
        });
    };
    for (unsigned i = 0; i < picker.instances().size(); ++i) {
        PlacedInstance const& instance = picker.instances()[i];
        for (Entity const& entity : model.entitiesOf(instance.m_part)) {
            if (entity.m_class != EntityClass::face) {
                continue;
            }
            Middle const middle = picker.middleOf(entity.m_number).value();
            Triple outside = middle.m_point;
            Triple inside = middle.m_point;
            for (std::size_t k = 0; k < 3; ++k) {
                outside[k] += 0.01 * middle.m_normal.value()[k];
                inside[k] -= 0.01 * middle.m_normal.value()[k];
            }
            EXPECT_FALSE(isInside(moved(outside, instance.m_placement), i)) << entity.m_number;
            EXPECT_TRUE(isInside(moved(inside, instance.m_placement), i)) << entity.m_number;
        }
    }
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
