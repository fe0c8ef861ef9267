#include "host/geometry/testfiles.h"

#include "host/geometry/shapestore.h"

#include <gmock/gmock.h>

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <gp_Pln.hxx>
#include <TopLoc_Location.hxx>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

TopLoc_Location shifted(double x, double y = 0.0)
{
    gp_Trsf shift;
    shift.SetTranslation(gp_Vec(x, y, 0));
    return TopLoc_Location(shift);
}

class StepImport : public WithFolder {};

TEST_F(StepImport, ConvertsOtherUnitsToMillimetres)
{
    struct Row {
        char const* m_unit;
        char const* m_name;
        double m_millimetres;
    };
    for (Row const& row :
         {Row{"INCH", "inch", 25.4}, Row{"M", "metre", 1000.0}, Row{"CM", "centimetre", 10.0},
          Row{"FT", "foot", 304.8}, Row{"UM", "micrometre", 0.001}}) {
        SCOPED_TRACE(row.m_unit);
        GeometryModel const model =
            importGeometry(writeStep(std::string(row.m_unit) + ".step", cube(100.0), row.m_unit));
        EXPECT_EQ(model.m_unit.m_name, row.m_name);
        EXPECT_NEAR(model.m_unit.m_millimetres, row.m_millimetres, 1e-9 * row.m_millimetres);
        EXPECT_NEAR(model.volume(), 1e6, 1.0);
    }
}

TEST_F(StepImport, StoresABoltOnceHoweverOftenAndDeepItIsUsed)
{
    auto const file = writeStep("bolts.STP", [](XCAFDoc_ShapeTool& tool) {
        TDF_Label const bolt = tool.AddShape(cube(10.0), Standard_False);
        nameLabel(bolt, "bolt");
        TDF_Label const pair = tool.NewShape();
        nameLabel(pair, "pair");
        tool.AddComponent(pair, bolt, shifted(0));
        tool.AddComponent(pair, bolt, shifted(20));
        TDF_Label const top = tool.NewShape();
        nameLabel(top, "top");
        nameLabel(tool.AddComponent(top, pair, shifted(0)), "left");
        nameLabel(tool.AddComponent(top, pair, shifted(0, 50)), "right");
        tool.AddComponent(top, bolt, shifted(100));
    });
    GeometryModel const model = importGeometry(file);
    ASSERT_THAT(model.m_parts, SizeIs(1));
    EXPECT_EQ(model.m_parts[0].m_name, "bolt");
    EXPECT_EQ(model.m_parts[0].m_instanceCount, 5u);
    EXPECT_EQ(model.m_totals.m_faces, 30u);
    EXPECT_EQ(model.m_assemblyCount, 2u);
    EXPECT_NEAR(model.volume(), 5000.0, 1e-6);
    EXPECT_NEAR(model.m_box.m_max[0], 110.0, 1e-9);
    EXPECT_NEAR(model.m_box.m_max[1], 60.0, 1e-9);
    ASSERT_THAT(model.m_roots, SizeIs(1));
    EXPECT_EQ(model.m_roots[0].m_children.at(1).m_name, "right");
    EXPECT_EQ(model.m_roots[0].m_children.at(1).m_placement.m_rows[7], 50.0);
}

TEST_F(StepImport, BoxOfATurnedPartIsTightToo)
{
    auto const file = writeStep("turned.step", [](XCAFDoc_ShapeTool& tool) {
        // A cone's box, turned by 45 degrees, is larger than the turned cone's box.
        TDF_Label const cone =
            tool.AddShape(BRepPrimAPI_MakeCone(10.0, 0.0, 30.0).Shape(), Standard_False);
        TDF_Label const top = tool.NewShape();
        gp_Trsf turn;
        turn.SetRotation(gp_Ax1(gp_Pnt(), gp_Dir(0, 1, 0)), 3.14159265358979323846 / 4);
        tool.AddComponent(top, cone, TopLoc_Location(turn));
    });
    GeometryModel const model = importGeometry(file);
    double const half = std::sqrt(0.5);
    EXPECT_NEAR(model.m_box.m_min[0], -10.0 * half, 1e-6);
    EXPECT_NEAR(model.m_box.m_max[0], 30.0 * half, 1e-6);
    EXPECT_NEAR(model.m_box.m_max[1], 10.0, 1e-6);
    EXPECT_NEAR(model.m_box.m_min[2], -10.0 * half, 1e-6);
}

TEST_F(StepImport, KeepsAllRootsOfAFile)
{
    auto const file = writeStep("roots.step", [](XCAFDoc_ShapeTool& tool) {
        nameLabel(tool.AddShape(cube(1.0), Standard_False), "one");
        nameLabel(tool.AddShape(cube(2.0, 5.0), Standard_False), "two");
    });
    GeometryModel const model = importGeometry(file);
    ASSERT_THAT(model.m_roots, SizeIs(2));
    EXPECT_EQ(model.m_roots[0].m_name, "one");
    EXPECT_EQ(model.m_roots[1].m_name, "two");
    EXPECT_EQ(model.m_assemblyCount, 0u);
}

TEST_F(StepImport, MakesOnePartOfAProductWithSolidAndSheet)
{
    TopoDS_Shape const sheet = BRepBuilderAPI_MakeFace(gp_Pln(), 20, 25, 0, 4).Shape();
    GeometryModel const model =
        importGeometry(writeStep("mixed.p21", compoundOf({cube(10.0), cube(10.0, 30.0), sheet})));
    ASSERT_THAT(model.m_parts, SizeIs(1));
    EXPECT_EQ(model.m_parts[0].m_counts.m_solids, 2u);
    EXPECT_EQ(model.m_parts[0].m_counts.m_sheets, 1u);
    auto const sheets = numbersOf(model, EntityClass::sheetBody);
    ASSERT_THAT(sheets, SizeIs(1));
    EXPECT_NEAR(model.measure(sheets[0]), 20.0, 1e-9);
    EXPECT_THAT(model.children(sheets[0], EntityClass::volume), IsEmpty());
    EXPECT_THAT(model.children(sheets[0], EntityClass::edge), SizeIs(4));
    EXPECT_NEAR(model.volume(), 2000.0, 1e-6);
}

TEST_F(StepImport, TakesAFreeWireAsAWireBody)
{
    TopoDS_Shape const wire =
        BRepBuilderAPI_MakeWire(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(3, 0, 0)).Edge(),
                                BRepBuilderAPI_MakeEdge(gp_Pnt(3, 0, 0), gp_Pnt(3, 4, 0)).Edge())
            .Shape();
    GeometryModel const model = importGeometry(writeStep("wire.step", compoundOf({wire})));
    EXPECT_EQ(model.m_totals.m_solids + model.m_totals.m_sheets, 0u);
    double length = 0.0;
    for (unsigned const number : numbersOf(model, EntityClass::wireBody)) {
        length += model.measure(number);
    }
    EXPECT_NEAR(length, 7.0, 1e-9);
    EXPECT_EQ(model.volume(), 0.0);
}

TEST_F(StepImport, CountsTheApexOfAConeAsTheKernelDoes)
{
    GeometryModel const model =
        importGeometry(writeStep("cone.step", BRepPrimAPI_MakeCone(5.0, 0.0, 9.0).Shape()));
    EXPECT_THAT(numbersOf(model, EntityClass::face), SizeIs(2));
    // Base circle, seam, and the apex as an edge without length.
    auto const edges = numbersOf(model, EntityClass::edge);
    EXPECT_THAT(edges, SizeIs(3));
    EXPECT_THAT(std::count_if(edges.begin(), edges.end(),
                              [&](unsigned n) { return model.measure(n) == 0.0; }),
                1);
}

TEST_F(StepImport, GivesTheAssemblysNameToGeometryOfItsOwn)
{
    auto const file = writeStep("own.step", [](XCAFDoc_ShapeTool& tool) {
        TDF_Label const part = tool.AddShape(cube(1.0), Standard_False);
        nameLabel(part, "foot");
        TDF_Label const top = tool.NewShape();
        nameLabel(top, "frame");
        tool.AddComponent(top, part, shifted(5));
        tool.AddShape(cube(2.0), Standard_False);
    });
    std::string text = contentOf(file);
    // The last product's solid becomes the assembly's own, and the product loses its shape.
    std::size_t const definition = text.rfind("= SHAPE_DEFINITION_REPRESENTATION");
    std::size_t const line = text.rfind('#', definition);
    text.erase(line, text.find('\n', line) + 1 - line);
    std::size_t const solid = text.rfind(" = MANIFOLD_SOLID_BREP");
    std::string const id = text.substr(text.rfind('#', solid), solid - text.rfind('#', solid));
    // The top's representation comes first in the file.
    std::size_t const items = text.find('(', text.find("= SHAPE_REPRESENTATION(") + 23) + 1;
    text.insert(items, id + ",");
    GeometryModel const model = importGeometry(write("both.step", text));
    ASSERT_THAT(model.m_parts, SizeIs(2));
    ASSERT_THAT(model.m_roots, SizeIs(1));
    EXPECT_EQ(model.m_assemblyCount, 1u);
    EXPECT_EQ(model.m_totals.m_solids, 2u);
    std::vector<std::string> names{model.m_parts[0].m_name, model.m_parts[1].m_name};
    EXPECT_THAT(names, UnorderedElementsAre("frame", "foot"));
}

TEST_F(StepImport, MakesOneAssemblyOfOnePartUsedByTwo)
{
    auto const file = writeStep("shared.step", [](XCAFDoc_ShapeTool& tool) {
        TDF_Label const part = tool.AddShape(cube(1.0), Standard_False);
        for (char const* const name : {"left", "right"}) {
            TDF_Label const top = tool.NewShape();
            nameLabel(top, name);
            tool.AddComponent(top, part, shifted(0));
        }
    });
    GeometryModel const model = importGeometry(file);
    EXPECT_THAT(model.m_roots, SizeIs(2));
    EXPECT_EQ(model.m_assemblyCount, 2u);
    ASSERT_THAT(model.m_parts, SizeIs(1));
    EXPECT_EQ(model.m_parts[0].m_instanceCount, 2u);
}

TEST_F(StepImport, TakesAllRepresentationsOfAProduct)
{
    auto const file = writeStep("two.step", compoundOf({cube(1.0), cube(1.0, 3.0)}));
    std::string text = contentOf(file);
    // The second solid moves to a representation of its own that is related to the first one.
    std::size_t const first = text.find("= SHAPE_REPRESENTATION('',(");
    std::size_t const idAt = text.rfind('#', first);
    std::string const id = text.substr(idAt, text.find(' ', idAt) - idAt);
    std::size_t const items = text.find('(', text.find(',', first)) + 1;
    std::size_t const itemsEnd = text.find(')', items);
    std::size_t const context = text.find('#', itemsEnd);
    std::string const contextId = text.substr(context, text.find(')', context) - context);
    std::size_t const last = text.rfind('#', itemsEnd);
    std::string const lastItem = text.substr(last, itemsEnd - last);
    text.erase(last - 1, itemsEnd - last + 1);
    text.insert(text.find("ENDSEC;\nEND-ISO"),
                "#90001 = ADVANCED_BREP_SHAPE_REPRESENTATION('',(" + lastItem + ")," + contextId +
                    ");\n#90002 = SHAPE_REPRESENTATION_RELATIONSHIP('',''," + id + ",#90001);\n");
    GeometryModel const model = importGeometry(write("apart.step", text));
    EXPECT_THAT(model.m_parts, SizeIs(1));
    EXPECT_EQ(model.m_totals.m_solids, 2u);
}

TEST_F(StepImport, WarnsOfRecordsThatAreMissing)
{
    std::string text = contentOf(writeStep("cube.step", cube(1.0)));
    std::size_t const face = text.find('#', text.find("= CLOSED_SHELL("));
    text.replace(face, text.find(',', face) - face, "#999999");
    GeometryModel const model = importGeometry(write("broken.step", text));
    EXPECT_THAT(model.m_warnings, ElementsAre(HasSubstr("missing")));
    EXPECT_EQ(model.m_totals.m_faces, 5u);
}

TEST_F(StepImport, RefusesAnAssemblyThatHoldsItself)
{
    auto const file = writeStep("cycle.step", [](XCAFDoc_ShapeTool& tool) {
        TDF_Label const part = tool.AddShape(cube(1.0), Standard_False);
        TDF_Label const inner = tool.NewShape();
        tool.AddComponent(inner, part, shifted(0));
        TDF_Label const top = tool.NewShape();
        tool.AddComponent(top, inner, shifted(0));
    });
    std::string text = contentOf(file);
    // The first occurrence's upper and lower product change places with the other's upper one.
    std::size_t const use = text.find("NEXT_ASSEMBLY_USAGE_OCCURRENCE");
    std::size_t const upper = text.find(",#", use) + 1;
    std::size_t const lower = text.find(",#", upper) + 1;
    std::size_t const end = text.find(',', lower);
    std::string const upperId = text.substr(upper, lower - 1 - upper);
    text.replace(lower, end - lower, upperId);
    EXPECT_THAT(importErrorOf(write("loop.step", text)), HasSubstr("holds itself"));
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
