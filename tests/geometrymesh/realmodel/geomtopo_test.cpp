// What GeomTopo says of geometry in the geometry server of the host.

#include "host/geometry/geometryimport.h"
#include "tests/geometrymesh/realmodel/realmodel.h"

#include <algorithm>
#include <array>

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <gp_Circ.hxx>
#include <TopoDS.hxx>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Names of the predicates that hold, and the dimension.
std::string describe(GeomTopo const& topo)
{
    struct {
        char const* name;
        bool holds;
    } const rows[] = {{"body", topo.isBody()},
                      {"3D", topo.is3DBody()},
                      {"2D", topo.is2DBody()},
                      {"1D", topo.is1DBody()},
                      {"acorn", topo.isAcornBody()},
                      {"sheet", topo.isSheetBody()},
                      {"facetSheet", topo.isFacetSheetBody()},
                      {"facet", topo.isFacetBody()},
                      {"region", topo.isRegion()},
                      {"face", topo.isFace()},
                      {"edge", topo.isEdge()},
                      {"subEdge", topo.isSubEdge()},
                      {"vertex", topo.isVertex()},
                      {"there", topo.isValidInGSC()},
                      {"virtual", topo.isVirtual()},
                      {"suppressed", topo.isSuppressedEntity()}};
    std::string text =
        std::to_string(topo.tryGetBodyType()) + ' ' + std::to_string(topo.tryGetBodyDimension());
    for (auto const& [name, holds] : rows) {
        text += holds ? std::string(" ") + name : "";
    }
    return text;
}

TEST_F(RealModel, IsWhatItsClassSays)
{
    // No reader makes wires or mixtures of facets: their classes are put by hand.
    open({{cube()},
          {sheet()},
          {wire()},
          {pointBody()},
          {twoVolumes()},
          {wire(), EntityClass::facetWire},
          {cube(), EntityClass::facetGeneral}});
    std::vector<std::string> bodies;
    for (std::size_t part = 0; part < 7; ++part) {
        bodies.push_back(describe(body(part)));
    }
    EXPECT_THAT(bodies,
                ElementsAre("7 3 body 3D there", "8 2 body 2D sheet there", "9 1 body 1D there",
                            "10 0 body acorn there", "11 2 body 2D there",
                            "14 1 body 1D facet there", "15 2 body 2D facet there"));
    EXPECT_EQ(describe(all(EntityClass::volume)[0]), "16 -1 region there");
    EXPECT_EQ(describe(all(EntityClass::face)[0]), "18 -1 face there");
    EXPECT_EQ(describe(all(EntityClass::edge)[0]), "21 -1 edge there");
    EXPECT_EQ(describe(all(EntityClass::vertex)[0]), "22 -1 vertex there");
    EXPECT_EQ(describe(0), "-1 -1");

    vrn::orlo::test::TemporaryFolder const folder;
    std::string text;
    std::array const corners{"0 0 0", "1 0 0", "0 1 0", "0 0 1"};
    for (auto const& [a, b, c] : {std::array{0U, 2U, 1U}, std::array{0U, 1U, 3U},
                                  std::array{0U, 3U, 2U}, std::array{1U, 2U, 3U}}) {
        text += "facet normal 0 0 0\nouter loop\nvertex " + std::string(corners[a]) + "\nvertex " +
                corners[b] + "\nvertex " + corners[c] + "\nendloop\nendfacet\n";
    }
    std::string const withoutLast = text.substr(0, text.rfind("facet normal"));
    for (auto const& [triangles, expected] :
         {std::pair(withoutLast, "13 2 body 2D facetSheet facet there"),
          std::pair(text, "12 3 body 3D facet there")}) {
        open(host::geometry::importGeometry(
            folder.write("piece.stl", "solid piece\n" + triangles + "endsolid piece\n")));
        EXPECT_EQ(describe(body()), expected);
    }
}

TEST_F(RealAssembly, LeadsUpWhereItLeadsDown)
{
    open(host::geometry::importGeometry(sharedFile("step", "as1-tu-203.stp")));
    auto const contains = [](Topos const& topos, GeomTopo const& topo) {
        return std::count(topos.begin(), topos.end(), topo) == 1;
    };
    for (std::size_t part = 0; part < model().parts().size(); ++part) {
        std::size_t downs = 0;
        std::size_t ups = 0;
        auto const compare = [&](EntityClass upper, EntityClass lower,
                                 Topos (GeomTopo::*children)() const,
                                 Topos (GeomTopo::*parents)() const) {
            for (GeomTopo const& above : all(upper, part)) {
                for (GeomTopo const& below : (above.*children)()) {
                    EXPECT_TRUE(contains((below.*parents)(), above));
                    ++downs;
                }
            }
            for (GeomTopo const& below : all(lower, part)) {
                ups += (below.*parents)().size();
                EXPECT_EQ(below.getParentBody(), body(part));
                EXPECT_EQ(below.getIGeomBody(), KFR::NULLSP);
                EXPECT_EQ(GeomTopo(below.getIGeomBodyEx()), body(part));
                EXPECT_EQ(GeomTopo(below.getIGeometry()), below);
                EXPECT_EQ(below.getIPart(), KFRIService(model().parts()[part]));
            }
        };
        using enum EntityClass;
        compare(volume, face, &GeomTopo::getChildFaces, &GeomTopo::getParentRegions);
        compare(face, edge, &GeomTopo::getChildEdges, &GeomTopo::getParentFaces);
        compare(edge, vertex, &GeomTopo::getChildVertices, &GeomTopo::getParentEdges);
        EXPECT_EQ(downs, ups);
        EXPECT_GT(downs, 0U);
        EXPECT_EQ(body(part).getParentBody(), body(part));
        EXPECT_EQ(body(part).getChildFaces(), all(face, part));
        for (GeomTopo const& one : all(face, part)) {
            EXPECT_EQ(one.getTypeId(), all(face)[0].getTypeId());
            EXPECT_NE(one.getTypeId(), body(part).getTypeId());
        }
    }
}

TEST_F(RealModel, FacesAreConnectedOverEdgesAndNotOverCorners)
{
    open({{cube()}, {cube(10)}});
    Topos const first = all(EntityClass::face, 0);
    Topos const second = all(EntityClass::face, 1);
    GeomTopo const low = at(EntityClass::face, {5, 5, 0});
    GeomTopo const high = at(EntityClass::face, {5, 5, 10});
    GeomTopo const side = at(EntityClass::face, {0, 5, 5});
    Topos mixed(second.rbegin(), second.rend());
    mixed.insert(mixed.begin() + 3, first.rbegin(), first.rend());
    mixed.push_back(first[2]);
    auto const sorted = [](Topos topos) {
        std::sort(topos.begin(), topos.end());
        return topos;
    };
    Topos const apart = sorted({low, high});
    EXPECT_THAT(GeomTopo::getContinuousFaces(mixed), ElementsAre(first, second));
    EXPECT_THAT(GeomTopo::getContinuousFaces({high, low}),
                ElementsAre(ElementsAre(apart[0]), ElementsAre(apart[1])));
    EXPECT_THAT(GeomTopo::getContinuousFaces({high, second[0], low, side}),
                ElementsAre(sorted({low, high, side}), ElementsAre(second[0])));
    EXPECT_THAT(GeomTopo::getContinuousFaces({}), IsEmpty());
    CAE::IGeometrySequence const geometries{
        high.getIGeometry(), {}, low.getIGeometry(), high.getIGeometry()};
    auto const set = GeomTopo::toGTFaces(geometries);
    EXPECT_EQ(Topos(set.begin(), set.end()), apart);
}

TEST_F(RealModel, ProjectionsStayWithinTheFaceAndTheNearestNeedsANormal)
{
    BRepBuilderAPI_MakeFace plate(gp_Pln(), -10, 10, -10, 10);
    plate.Add(TopoDS::Wire(BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(gp_Circ(gp::XOY(), 3.0)))
                               .Wire()
                               .Reversed()));
    open({{plate.Face()}, {BRepPrimAPI_MakeCone(5, 0, 10).Shape()}});
    Point point = kUnset;
    EXPECT_TRUE(all(EntityClass::face)[0].getProjectPoint({0, 1, 5}, point));
    EXPECT_THAT(point, IsWithin(1e-6, Point{0, 3, 0})) << "the rim of the hole";
    point = kUnset;
    EXPECT_FALSE(all(EntityClass::vertex)[0].getProjectPoint({0, 1, 5}, point));
    EXPECT_FALSE(body().getProjectPoint({0, 1, 5}, point));
    EXPECT_FALSE(all(EntityClass::edge)[0].getNormal({0, 1, 5}, point));
    EXPECT_EQ(point, kUnset);

    Topos const faces = all(EntityClass::face, 1);
    double const root5 = std::sqrt(5.0);
    struct {
        Point from, nearest, normal;
    } const rows[] = {
        {{0, 0, -1}, {0, 0, 0}, {0, 0, -1}},
        {{10, 0, 5}, {4, 0, 2}, {2 / root5, 0, 1 / root5}},
        {{0, 0, 12}, {0, 0, 0}, {0, 0, -1}},  // the tip is nearer, but has no normal
    };
    for (auto const& [from, expected, expectedNormal] : rows) {
        Point nearest, normal;
        EXPECT_TRUE(GeomTopo::getNearestPointAndNormal(from, faces, nearest, normal));
        EXPECT_THAT(nearest, IsWithin(1e-6, expected));
        EXPECT_THAT(normal, IsWithin(1e-6, expectedNormal));
    }
    GeomTopo const side = faces[0].getPeriodic() ? faces[0] : faces[1];
    Point nearest = kUnset, normal = kUnset;
    EXPECT_FALSE(GeomTopo::getNearestPointAndNormal({0, 0, 12}, {side}, nearest, normal));
    EXPECT_FALSE(GeomTopo::getNearestPointAndNormal({0, 0, 12}, {}, nearest, normal));
    EXPECT_TRUE(nearest == kUnset && normal == kUnset);
}

TEST(BetterPoint, IsTheNearestOnTheRayOrElseTheFirst)
{
    double const inside = std::tan(0.0017453292519943296 * 0.999);
    double const outside = std::tan(0.0017453292519943296 * 1.001);
    using P = GSCPointStruct;
    P const origin{1, 2, 3};
    // clang-format off
    struct {
        char const* name;
        std::vector<P> points;  // from the origin
        std::size_t expected;
        double length = 1.0;  // of the direction
    } const rows[] = {
        {"none on the ray", {{1, 0, 1}, {2, 0, 1}, {0, 3, 1}}, 0},
        {"nearest", {{0, 0, 5}, {0, 0, 3}, {0, 0, 4}}, 1},
        {"nearer beside the ray", {{1, 0, 1}, {0, 0, 9}}, 1},
        {"equally far", {{1, 0, 1}, {0.001, 0, 5}, {-0.001, 0, 5}}, 1},
        {"the origin itself", {{0, 0, 0}, {0, 0, 7}}, 1},
        {"only the origin", {{0, 0, 0}, {1, 0, 0}}, 0},
        {"behind", {{0, 0, -1}, {0, 0, 8}}, 1},
        {"within 0.1 degrees", {{0, 0, 50}, {inside, 0, 1}}, 1},
        {"beyond 0.1 degrees", {{0, 0, 50}, {outside, 0, 1}}, 0},
        {"direction as it is", {{0, 0, 50}, {1, 0, 1}}, 1, 2.0},
    };
    // clang-format on
    for (auto const& row : rows) {
        GSCPointList points;
        for (P const& p : row.points) {
            points.append({origin.x + p.x, origin.y + p.y, origin.z + p.z});
        }
        P out{9, 9, 9};
        EXPECT_TRUE(GeomTopo::getBetterPointToEdge(points, origin, {0, 0, row.length}, out));
        EXPECT_EQ(out, std::as_const(points).at(row.expected)) << row.name;
    }
    P out{9, 9, 9};
    EXPECT_FALSE(GeomTopo::getBetterPointToEdge({}, origin, {0, 0, 1}, out));
    EXPECT_EQ(out, (P{9, 9, 9}));
}

TEST_F(RealModel, APointComesToStandThreeDiagonalsBeforeTheFace)
{
    open({{cube()}});
    int const face = at(EntityClass::face, {5, 5, 10}).getVTKId();  // its diagonal is 10 root 2
    struct {
        GSCPointStruct from;
        GSCPointStruct to;
    } const rows[] = {
        {{5, 5, 110}, {5, 5, 52.42640687119285}},
        {{5, 5, 20}, {5, 5, 52.42640687119285}},  // backwards
        {{8, 9, 20}, {8, 9, 51.2460669836939}},   // by its distance to the middle of the box
    };
    for (auto const& [from, to] : rows) {
        GSCPointStruct point = from;
        EXPECT_TRUE(GeomTopo::movePointCloseToFace(point, {0, 0, -1}, face));
        EXPECT_THAT(point, IsWithin(1e-5, to));
    }
}

TEST_F(RealModel, APixelFindsTheEntityUnderItAndLeavesNoLineBehind)
{
    open({{cube()}});
    using host::display::Camera;
    using enum EntityClass;
    GeomTopo const high = at(face, {5, 5, 10});
    GeomTopo const low = at(face, {5, 5, 0});
    GeomTopo const rim = at(edge, {10, 5, 10});
    struct {
        char const* name;
        GeomTopo topo;
        Point pixelOf;
        bool isFound;
        Point expected;
    } const rows[] = {
        {"face", high, {3, 4, 10}, true, {3, 4, 10}},
        {"far face", low, {8, 6, 0}, true, {8, 6, 0}},
        {"beside the face", high, {3, -8, 10}, false, {}},
        {"edge", rim, {10, 2, 10}, true, {10, 2, 10}},
        {"beyond the edge", rim, {10, 14, 10}, true, {10, 10, 10}},
        {"vertex from anywhere", at(vertex, {10, 0, 0}), {-9, -9, 9}, true, {10, 0, 0}},
        {"body", body(), {3, 4, 10}, false, {}},
        {"volume", all(volume)[0], {3, 4, 10}, false, {}},
    };
    for (auto const projection :
         {host::display::Projection::orthographic, host::display::Projection::perspective}) {
        auto& viewport = session().application().viewport();
        viewport.setCamera(
            Camera::fit({{0, 0, 0}, {10, 10, 10}}, 1000, 800, projection, {-1, -2, -3}, {0, 0, 1}));
        for (auto const& [name, topo, pixelOf, isFound, expected] : rows) {
            SCOPED_TRACE(name);
            auto const pixel = viewport.camera().modelToScreen({pixelOf.x, pixelOf.y, pixelOf.z});
            ASSERT_TRUE(pixel.has_value());
            Point point = kUnset;
            KFRResult const result = topo.getNearestPoint(static_cast<float>(pixel->at(0)),
                                                          static_cast<float>(pixel->at(1)), point);
            EXPECT_EQ(result.getCode(), isFound ? KFR::ok : KFR::notDone);
            EXPECT_THAT(point, IsWithin(1e-3, isFound ? expected : kUnset));
            EXPECT_EQ(session().space().server().temporaryCount(), 0U);
        }
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
