#include "host/meshing/mesher.h"

#include "host/geometry/geometrypicker.h"
#include "host/geometry/shapestore.h"
#include "host/geometry/testfiles.h"
#include "host/meshing/gmshsession.h"
#include "host/meshing/meshmeasures.h"
#include "host/meshing/meshrepair.h"

#include <gmock/gmock.h>

#include <BOPAlgo_Builder.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepExtrema_DistShapeShape.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <cmath>
#include <gp_Circ.hxx>
#include <gp_Pln.hxx>
#include <limits>
#include <set>
#include <sstream>
#include <TopoDS.hxx>

namespace vrn::orlo::host::meshing {

namespace {

using geometry::compoundOf;
using geometry::cube;
using geometry::EntityClass;
using geometry::GeometryModel;
using geometry::numbersOf;
using ::testing::AllOf;
using ::testing::HasSubstr;

class Meshing : public geometry::WithFolder {
protected:
    GeometryModel modelOf(TopoDS_Shape const& shape) const
    {
        return geometry::importGeometry(writeStep("m.stp", shape));
    }
};

struct SolidRow {
    char const* m_name;
    TopoDS_Shape m_shape;
    double m_size;
    int m_order;
    double m_error;  // of volume and areas with straight sides, as a share

    friend void PrintTo(SolidRow const& row, std::ostream* out) { *out << row.m_name; }
};

class Solids : public Meshing, public ::testing::WithParamInterface<SolidRow> {};

TEST_P(Solids, AreFilledAndTheirEntitiesLeadToWhatLiesOnThem)
{
    SolidRow const& row = GetParam();
    GeometryModel const model = modelOf(row.m_shape);
    auto const store = storeOf(model, sized(row.m_size, row.m_order));
    EXPECT_NEAR(totalOf(*store, 3) / model.volumeOf(0), 1.0, row.m_error);
    for (LocalNumber const element : store->elementsOf(3)) {
        EXPECT_GT(sizeOf(*store, element), 0.0);
        EXPECT_TRUE(row.m_order == 1 || leastJacobian(*store, element) > 0.0) << element;
    }
    EXPECT_EQ(store->countOf(2), 0u);
    for (EntityMesh const& entity : store->entities()) {
        TopoDS_Shape const shape = model.shapes().part(0).shapeOf(entity.m_entity);
        for (LocalNumber const node : entity.m_nodes) {
            TopoDS_Shape const point =
                BRepBuilderAPI_MakeVertex(gp_Pnt(at(*store, node).XYZ())).Vertex();
            EXPECT_LT(BRepExtrema_DistShapeShape(point, shape).Value(), 1e-6) << entity.m_entity;
        }
        if (model.entity(entity.m_entity)->m_class != EntityClass::face) {
            EXPECT_TRUE(entity.m_faces.empty());
            continue;
        }
        double area = 0.0;
        std::set<LocalNumber> nodes;
        for (ElementFace const& face : entity.m_faces) {
            area += doubleArea(*store, cornersOf(*store, face)).Magnitude() / 2;
            for (std::uint8_t const place :
                 placesOf(facesOf(store->typeOf(face.m_element))[face.m_face])) {
                nodes.insert(store->nodesOf(face.m_element)[place]);
            }
        }
        EXPECT_NEAR(area / model.measure(entity.m_entity), 1.0, row.m_error);
        EXPECT_TRUE(
            std::equal(nodes.begin(), nodes.end(), entity.m_nodes.begin(), entity.m_nodes.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, Solids,
    ::testing::Values(SolidRow{"Box", cube(10), 4, 1, 1e-9},
                      SolidRow{"CurvedBox", cube(10), 4, 2, 1e-9},
                      SolidRow{"Cylinder", BRepPrimAPI_MakeCylinder(5, 12).Shape(), 4, 2, 0.06},
                      SolidRow{"Cone", BRepPrimAPI_MakeCone(5, 0, 10).Shape(), 3, 1, 0.06},
                      SolidRow{"Sphere", BRepPrimAPI_MakeSphere(6).Shape(), 3, 1, 0.12},
                      SolidRow{"CurvedSphere", BRepPrimAPI_MakeSphere(6).Shape(), 3, 2, 0.12}),
    [](auto const& test) { return test.param.m_name; });

class RealParts : public geometry::RealFile {};

TEST_F(RealParts, AreMeshedWithoutAnInvertedElement)
{
    GeometryModel const model = geometry::importGeometry(stepFile("as1-tu-203.stp"));
    for (std::size_t part = 0; part < model.m_parts.size(); ++part) {
        SCOPED_TRACE(model.m_parts[part].m_name);
        auto const store = storeOf(model, sized(model.m_parts[part].m_box.diagonal() / 8, 2), part);
        EXPECT_NEAR(totalOf(*store, 3) / model.volumeOf(part), 1.0, 0.05);
        for (LocalNumber const element : store->elementsOf(3)) {
            EXPECT_GT(leastJacobian(*store, element), 0.0) << element;
        }
    }
}

TEST(MeshingBodies, ThatShareAFaceShareNoNodeAndStandOneAfterTheOther)
{
    BOPAlgo_Builder sharing;
    sharing.AddArgument(cube(10));
    sharing.AddArgument(cube(10, 10));
    sharing.Perform();
    GeometryModel const model = modelAround(sharing.Shape());
    MeshOptions options = sized(5);
    options.m_meshFaces = true;
    options.m_firstNodeId = 5'000'000'001;
    options.m_firstElementId = 6'000'000'001;
    auto const store = storeOf(model, options);
    ASSERT_EQ(store->bodies().size(), 2u);
    EXPECT_EQ(store->bodies()[1].m_entity, numbersOf(model, EntityClass::solidBody)[1]);
    ASSERT_EQ(store->groups().size(), 2u * (1 + 6));
    EXPECT_EQ(store->groups()[0].m_name, "");
    EXPECT_EQ(store->groups()[1].m_name, "face " + std::to_string(store->groups()[1].m_entity));
    std::array<std::set<LocalNumber>, 2> nodes;
    for (LocalNumber element = 1; element <= store->elements().size(); ++element) {
        MeshGroup const& group = store->groups()[store->groupOf(element)];
        auto const own = store->nodesOf(element);
        nodes[group.m_body].insert(own.begin(), own.end());
        EXPECT_EQ(model.entity(group.m_entity)->m_class,
                  group.m_dimension == 3 ? EntityClass::volume : EntityClass::face);
    }
    EXPECT_EQ(nodes[0].size() + nodes[1].size(), store->nodes().size());
    EXPECT_LT(*nodes[0].rbegin(), *nodes[1].begin());
    for (unsigned const face : numbersOf(model, EntityClass::face)) {
        EntityMesh const& mesh = *store->meshOn(face);
        EXPECT_TRUE(std::ranges::is_sorted(mesh.m_faces) && std::ranges::is_sorted(mesh.m_nodes));
        double area = 0.0;
        for (ElementFace const& own : mesh.m_faces) {
            area += doubleArea(*store, cornersOf(*store, own)).Magnitude() / 2;
        }
        std::size_t const bodies = model.parents(face, EntityClass::solidBody).size();
        EXPECT_NEAR(area, 100.0 * static_cast<double>(bodies), 1e-6);
    }
    // Shells look outwards: with the origin at a corner they enclose what the tetrahedra fill.
    EXPECT_NEAR(totalOf(*store, 2), 2000.0, 1e-6);
    EXPECT_NEAR(totalOf(*store, 3), 2000.0, 1e-6);

    unsigned const corner = numbersOf(model, EntityClass::vertex)[0];
    EXPECT_EQ(store->nodes().idOf(store->meshOn(corner)->m_nodes.at(0)), 5'000'000'001);
    EXPECT_EQ(store->typeNameOf(store->elements().numberOf(6'000'000'001)), "S3");
    EXPECT_EQ(store->elements().numberOf(6'000'000'000 + store->elements().size() + 1), 0u);

    auto const again = storeOf(model, options);
    EXPECT_EQ(store->nodes().ids(), again->nodes().ids());
    EXPECT_EQ(store->elements().ids(), again->elements().ids());
    for (LocalNumber node = 1; node <= store->nodes().size(); ++node) {
        EXPECT_EQ(store->position(node), again->position(node));
    }
    for (LocalNumber element = 1; element <= store->elements().size(); ++element) {
        EXPECT_TRUE(std::ranges::equal(store->nodesOf(element), again->nodesOf(element)));
    }
}

TEST_F(Meshing, OptionsThatCannotBeAreRefused)
{
    GeometryModel const model = modelOf(compoundOf({cube(10), cube(1, 20)}));
    auto const refused = [&](MeshOptions const& options) -> std::string {
        try {
            static_cast<void>(meshPart(model, 0, options));
        } catch (std::invalid_argument const& error) {
            return error.what();
        }
        return "taken";
    };
    for (double const size : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_THAT(refused(sized(size)), HasSubstr("\"piece\" is above 0 and up to 1.73205 mm"));
    }
    EXPECT_THAT(refused(sized(1.8)), AllOf(HasSubstr("body 2"), HasSubstr("1.73205 mm")));
    EXPECT_THAT(refused(sized(1, 3)), HasSubstr("give 1 or 2"));
    MeshOptions options = sized(1);
    options.m_faceSizes[1] = 0.5;
    EXPECT_THAT(refused(options), HasSubstr("entity 1 "));
    options = sized(1);
    options.m_firstElementId = 0;
    EXPECT_THAT(refused(options), HasSubstr("first id is 0"));
    options = sized(1);
    options.m_minimumSize = 2;
    EXPECT_THAT(refused(options), HasSubstr("up to the mesh size of 1 mm"));
    EXPECT_THROW(static_cast<void>(meshPart(model, 1, sized(1))), std::out_of_range);
}

TEST_F(Meshing, ASizeOfItsOwnRefinesAFace)
{
    GeometryModel const model = modelOf(cube(10));
    MeshOptions options = sized(5);
    auto const plain = storeOf(model, options);
    std::vector<unsigned> const faces = numbersOf(model, EntityClass::face);
    options.m_faceSizes[faces[0]] = 1;
    auto const fine = storeOf(model, options);
    EXPECT_GT(fine->meshOn(faces[0])->m_faces.size(), 200u);
    EXPECT_LT(plain->meshOn(faces[0])->m_faces.size(), 20u);
    EXPECT_LT(fine->meshOn(faces[1])->m_faces.size(), 50u);  // the opposite one
}

TEST_F(Meshing, SheetsGetShellsAlongTheirNormalAndWiresLines)
{
    gp_Pln const plane(gp_Ax3(gp_Pnt(0, 0, 5), gp_Dir(0, 0, 1)));
    TopoDS_Shape const face = BRepBuilderAPI_MakeFace(plane, 0, 10, 0, 10).Shape();
    TopoDS_Shape const wire =
        BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(gp_Pnt(0, 0, 9), gp_Dir(0, 0, 1)), 4)).Shape();
    GeometryModel const model = modelOf(compoundOf({face, wire}));
    GeometryModel const reversed = modelOf(face.Reversed());
    auto const store = storeOf(model, sized(4, 2));
    EXPECT_EQ(store->typeNameOf(store->elementsOf(2).at(0)), "S6");
    EXPECT_EQ(store->typeNameOf(store->elementsOf(1).at(0)), "B32");
    for (LocalNumber const line : store->elementsOf(1)) {
        for (LocalNumber const node : store->nodesOf(line)) {
            EXPECT_NEAR((at(*store, node) - gp_Vec(0, 0, 9)).Magnitude(), 4.0, 1e-9);
        }
    }
    for (GeometryModel const* const one : {&model, &reversed}) {
        auto const normal = geometry::GeometryPicker(*one)
                                .middleOf(numbersOf(*one, EntityClass::face).at(0))
                                ->m_normal.value();
        EXPECT_NEAR(totalOf(*storeOf(*one, sized(4)), 2), normal[2] * 10 * 10 * 5 / 3, 1e-6);
    }
}

TEST(MeshingSurfaces, OfASolidThatIsInsideOutLookOutwardsToo)
{
    for (int const order : {1, 2}) {
        GeometryModel const model = modelAround(cube(10).Reversed());
        MeshOptions options = sized(5, order);
        options.m_dimension = 2;
        auto const store = storeOf(model, options);
        EXPECT_EQ(store->countOf(3), 0u);
        EXPECT_NEAR(totalOf(*store, 2), 1000.0, 1e-6);
        for (LocalNumber const shell : store->elementsOf(2)) {
            auto const nodes = store->nodesOf(shell);
            for (std::size_t side = 0; order == 2 && side < 3; ++side) {
                gp_Vec const ends = at(*store, nodes[side]) + at(*store, nodes[(side + 1) % 3]);
                EXPECT_LT((at(*store, nodes[3 + side]) - ends / 2).Magnitude(), 1e-9);
            }
        }
    }
}

// The mesher notices inside a parallel region, which an exception must not leave.
TEST(MeshingSurfaces, ThatFailDoNotEndTheProcess)
{
    BRepBuilderAPI_MakePolygon crossed(gp_Pnt(0, 0, 0), gp_Pnt(10, 10, 0), gp_Pnt(10, 0, 0),
                                       gp_Pnt(0, 10, 0), Standard_True);
    GeometryModel const model =
        modelAround(BRepBuilderAPI_MakeFace(gp_Pln(), TopoDS::Wire(crossed.Shape())).Shape());
    MeshedPartResult const result = meshPart(model, 0, sized(3));
    EXPECT_EQ(result.m_store, nullptr);
    ASSERT_EQ(result.m_failures.size(), 1u);
    EXPECT_THAT(result.m_failures[0].m_reason, HasSubstr("surface 1"));
    EXPECT_NE(storeOf(modelAround(cube(10)), sized(3)), nullptr);
}

/// Triangles as STL has them.
std::string stlOf(std::vector<gp_Pnt> const& points,
                  std::vector<std::array<std::size_t, 3>> const& triangles)
{
    std::ostringstream text;
    for (auto const& triangle : triangles) {
        text << "facet normal 0 0 0\nouter loop\n";
        for (std::size_t const corner : triangle) {
            gp_Pnt const& p = points[corner];
            text << "vertex " << p.X() << ' ' << p.Y() << ' ' << p.Z() << '\n';
        }
        text << "endloop\nendfacet\n";
    }
    return text.str();
}

/// A tetrahedron over a base at height z.
std::string pyramid(double x, double z, double tip)
{
    return stlOf({gp_Pnt(x, 0, z), gp_Pnt(x + 4, 0, z), gp_Pnt(x, 4, z), gp_Pnt(x, 0, tip)},
                 {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}});
}

TEST_F(Meshing, BodiesOfTrianglesAreFilledAndKeepTheirTriangles)
{
    GeometryModel const model = geometry::importGeometry(
        write("p.stl", "solid p\n" + pyramid(0, 0, 4) + pyramid(9, 1, 5) + "endsolid p\n"));
    auto const store = storeOf(model, sized(1, 2));
    EXPECT_NEAR(totalOf(*store, 3), 2 * 64.0 / 6, 1e-9);
    EXPECT_EQ(store->meshOn(numbersOf(model, EntityClass::face)[0])->m_faces.size(), 4u);
}

TEST_F(Meshing, ABodyThatFailsIsNamedWhileTheOthersAreMeshed)
{
    // The second is a prism with a tip that is pulled out through its own floor.
    std::string const pierced =
        stlOf({gp_Pnt(9, 0, 0), gp_Pnt(13, 0, 0), gp_Pnt(9, 4, 0), gp_Pnt(9, 0, 4),
               gp_Pnt(13, 0, 4), gp_Pnt(9, 4, 4), gp_Pnt(10, 1, -2)},
              {{0, 2, 1},
               {0, 1, 4},
               {0, 4, 3},
               {1, 2, 5},
               {1, 5, 4},
               {2, 0, 3},
               {2, 3, 5},
               {3, 4, 6},
               {4, 5, 6},
               {5, 3, 6}});
    GeometryModel const model = geometry::importGeometry(write(
        "f.stl", "solid f\n" + pyramid(0, 0, 4) + pierced + pyramid(20, 0, 4) + "endsolid f\n"));
    std::vector<std::string> steps;
    MeshedPartResult const result =
        meshPart(model, 0, sized(2), [&](double fraction, std::string const& step) {
            EXPECT_TRUE(fraction >= 0.0 && fraction <= 1.0) << fraction;
            steps.push_back(step);
        });
    ASSERT_EQ(result.m_failures.size(), 1u);
    EXPECT_EQ(result.m_failures[0].m_body, 2u);
    EXPECT_EQ(result.m_failures[0].m_name, "body 2");
    EXPECT_THAT(result.m_failures[0].m_reason, HasSubstr("the mesher failed on it: "));
    EXPECT_THAT(steps, ::testing::Contains("body 3: meshing its volumes"));
    ASSERT_NE(result.m_store, nullptr);
    EXPECT_EQ(result.m_store->bodies().size(), 3u);
    ASSERT_EQ(result.m_store->groups().size(), 2u);
    EXPECT_EQ(result.m_store->groups()[1].m_body, 2);
    EXPECT_NEAR(totalOf(*result.m_store, 3), 2 * 64.0 / 6, 1e-9);
}

BodyMesh oneTetrahedron(Point const& tip)
{
    BodyMesh mesh;
    mesh.m_dimension = 3;
    mesh.m_order = 2;
    mesh.m_positions = {{0, 0, 0}, {4, 0, 0}, {0, 4, 0}, tip};
    for (auto const& [a, b] : {std::pair(0u, 1u), std::pair(1u, 2u), std::pair(0u, 2u),
                               std::pair(0u, 3u), std::pair(1u, 3u), std::pair(2u, 3u)}) {
        Point const& p = mesh.m_positions[a];
        Point const& q = mesh.m_positions[b];
        mesh.m_positions.push_back({(p[0] + q[0]) / 2, (p[1] + q[1]) / 2, (p[2] + q[2]) / 2});
    }
    mesh.m_pieces = {{1, 3, 0, 10, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}}};
    return mesh;
}

TEST(Straightening, MovesMiddleNodesBackOnlyWhereTheElementIsInsideOut)
{
    BodyMesh const straight = oneTetrahedron({0, 0, 4});
    BodyMesh mesh = straight;
    mesh.m_positions[8] = {2.2, 0.2, 2.1};  // of the side from 1 to 3
    auto const bent = mesh.m_positions;
    EXPECT_EQ(straightenInverted(mesh), 0u);
    EXPECT_EQ(mesh.m_positions, bent);
    mesh.m_positions[8] = {0.5, 0.2, 0.5};
    EXPECT_EQ(straightenInverted(mesh), 1u);
    EXPECT_EQ(mesh.m_positions, straight.m_positions);
    mesh = oneTetrahedron({1, 1, 1e-12});
    EXPECT_THROW(straightenInverted(mesh), MesherError);
}

}  // namespace

}  // namespace vrn::orlo::host::meshing
