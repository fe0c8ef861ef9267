#include "host/geometry/testfiles.h"

#include <fstream>
#include <iterator>

#include <BRep_Builder.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <Interface_Static.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>

namespace vrn::orlo::host::geometry {

namespace fs = std::filesystem;

WithFolder::WithFolder()
{
    auto const* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test->test_suite_name()) + "." + test->name();
    for (char& c : name) {
        c = c == '/' ? '_' : c;
    }
    m_folder = fs::path(::testing::TempDir()) / ("geometry_" + name);
    fs::remove_all(m_folder);
    fs::create_directories(m_folder);
}

WithFolder::~WithFolder()
{
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

fs::path WithFolder::write(std::string const& name, std::string const& content) const
{
    fs::path const file = m_folder / name;
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

fs::path WithFolder::writeStep(std::string const& name,
                               std::function<void(XCAFDoc_ShapeTool&)> const& fill,
                               std::string const& unit) const
{
    Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_Printer));
    STEPCAFControl_Controller::Init();
    Interface_Static::SetCVal("write.step.unit", unit.c_str());
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", document);
    Handle(XCAFDoc_ShapeTool) const tool = XCAFDoc_DocumentTool::ShapeTool(document->Main());
    fill(*tool);
    tool->UpdateAssemblies();
    STEPCAFControl_Writer writer;
    fs::path const file = m_folder / name;
    EXPECT_TRUE(writer.Transfer(document));
    EXPECT_EQ(writer.Write(file.string().c_str()), IFSelect_RetDone);
    XCAFApp_Application::GetApplication()->Close(document);
    return file;
}

fs::path WithFolder::writeStep(std::string const& name, TopoDS_Shape const& shape,
                               std::string const& unit) const
{
    return writeStep(
        name,
        [&](XCAFDoc_ShapeTool& tool) { nameLabel(tool.AddShape(shape, Standard_False), "piece"); },
        unit);
}

void nameLabel(TDF_Label const& label, std::string const& name)
{
    TDataStd_Name::Set(label, TCollection_ExtendedString(name.c_str(), Standard_True));
}

TopoDS_Shape cube(double size, double x)
{
    return BRepPrimAPI_MakeBox(gp_Pnt(x, 0, 0), size, size, size).Shape();
}

TopoDS_Shape compoundOf(std::vector<TopoDS_Shape> const& shapes)
{
    BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (TopoDS_Shape const& shape : shapes) {
        builder.Add(compound, shape);
    }
    return compound;
}

std::string contentOf(fs::path const& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string replaced(std::string text, std::string const& from, std::string const& to)
{
    std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << "nothing to replace: " << from;
    for (; at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string importErrorOf(fs::path const& file)
{
    try {
        static_cast<void>(importGeometry(file));
    } catch (ImportError const& error) {
        return error.what();
    }
    ADD_FAILURE() << file << " was imported";
    return {};
}

std::vector<unsigned> numbersOf(GeometryModel const& model, EntityClass entityClass)
{
    std::vector<unsigned> numbers;
    for (Entity const& entity : model.m_entities) {
        if (entity.m_class == entityClass) {
            numbers.push_back(entity.m_number);
        }
    }
    return numbers;
}

}  // namespace vrn::orlo::host::geometry
