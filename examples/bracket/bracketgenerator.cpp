/// \file
/// bracket_generator OUTPUT.step: writes the bracket assembly as a STEP file in millimetres.
///
/// Exit status: 0 written, 1 a shape came out wrong or the file could not be written, 2 usage.
/// The file is the same in every run, its time stamp included.

#include "examples/bracket/bracketparts.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <Interface_Static.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <Standard_Failure.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <TCollection_ExtendedString.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TDataStd_Name.hxx>
#include <TDF_Label.hxx>
#include <TDocStd_Document.hxx>
#include <TopLoc_Location.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <cstdio>
#include <exception>
#include <string>

namespace vrn::orlo::examples::bracket {

namespace {

void setName(TDF_Label const& label, std::string const& name)
{
    TDataStd_Name::Set(label, TCollection_ExtendedString(name.c_str(), true));
}

TDF_Label addPart(XCAFDoc_ShapeTool& tool, TopoDS_Shape const& shape, std::string const& name)
{
    checkShape(shape, name);
    TDF_Label const part = tool.AddShape(shape, false);
    setName(part, name);
    return part;
}

void addInstance(XCAFDoc_ShapeTool& tool, TDF_Label const& assembly, TDF_Label const& part,
                 gp_Trsf const& placement, std::string const& name)
{
    setName(tool.AddComponent(assembly, part, TopLoc_Location(placement)), name);
}

void addAssembly(XCAFDoc_ShapeTool& tool)
{
    TDF_Label const assembly = tool.NewShape();
    setName(assembly, "bracket");

    addInstance(tool, assembly, addPart(tool, makeBasePlate(), "base plate"), plateTopPlacement(),
                "base plate");
    addInstance(tool, assembly, addPart(tool, makeBracket(), "l-bracket"), plateTopPlacement(),
                "l-bracket");
    TDF_Label const bolt = addPart(tool, makeBolt(), "bolt");
    int number = 0;
    for (BoltPlace const& place : kBoltPlaces) {
        addInstance(tool, assembly, bolt, boltPlacement(place), "bolt " + std::to_string(++number));
    }
    addInstance(tool, assembly, addPart(tool, makeStiffener(), "stiffener"), stiffenerPlacement(),
                "stiffener");
    tool.UpdateAssemblies();
}

Handle(TCollection_HAsciiString) headerText(char const* text)
{
    return new TCollection_HAsciiString(text);
}

/// Without this, the header would name the moment of writing and the machine's user.
void setHeader(STEPControl_Writer& writer)
{
    APIHeaderSection_MakeHeader header(writer.Model());
    header.SetDescriptionValue(1, headerText("bolted bracket on a base plate"));
    header.SetName(headerText("bracket"));
    header.SetTimeStamp(headerText("2024-08-01T00:00:00"));
    header.SetAuthorValue(1, headerText(""));
    header.SetOrganizationValue(1, headerText(""));
    header.SetOriginatingSystem(headerText("bracket_generator"));
    header.SetAuthorisation(headerText(""));
}

bool write(Handle(TDocStd_Document) const& document, char const* file)
{
    STEPControl_Controller::Init();
    Interface_Static::SetCVal("write.step.schema", "AP214IS");
    Interface_Static::SetCVal("write.step.unit", "MM");
    STEPCAFControl_Writer writer;
    writer.SetNameMode(true);
    if (!writer.Transfer(document, STEPControl_AsIs)) {
        return false;
    }
    setHeader(writer.ChangeWriter());
    return writer.Write(file) == IFSelect_RetDone;
}

int generate(char const* file)
{
    Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_Printer));
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", document);
    addAssembly(*XCAFDoc_DocumentTool::ShapeTool(document->Main()));
    if (!write(document, file)) {
        std::fprintf(stderr,
                     "bracket_generator: %s: could not be written; does its folder exist, "
                     "and may you write to it?\n",
                     file);
        return 1;
    }
    return 0;
}

}  // namespace

}  // namespace vrn::orlo::examples::bracket

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: bracket_generator OUTPUT.step\n", stderr);
        return 2;
    }
    try {
        return vrn::orlo::examples::bracket::generate(argv[1]);
    } catch (Standard_Failure const& failure) {
        std::fprintf(stderr, "bracket_generator: the kernel gave up: %s\n",
                     failure.GetMessageString());
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "bracket_generator: %s\n", failure.what());
    }
    return 1;
}
