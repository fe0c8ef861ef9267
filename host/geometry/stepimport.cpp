#include "host/geometry/importers.h"
#include "host/geometry/kernelsession.h"
#include "host/geometry/modelbuilder.h"
#include "host/geometry/stepmodel.h"
#include "host/geometry/steptree.h"
#include "host/geometry/textdecoding.h"
#include "host/geometry/trial.h"

#include <sstream>
#include <stdexcept>

#include <Interface_Static.hxx>
#include <Resource_FormatType.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace vrn::orlo::host::geometry {

namespace {

constexpr double kReadShare = 0.4;  // of the whole time, as measured on assemblies
constexpr double kTransferShare = 0.96;

/// A document of the kernel's application, closed at the end: the application would keep it.
class Document {
public:
    Document() { XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", m_document); }
    ~Document() { XCAFApp_Application::GetApplication()->Close(m_document); }
    Document(Document const&) = delete;
    Document& operator=(Document const&) = delete;

    Handle(TDocStd_Document) & get() { return m_document; }

private:
    Handle(TDocStd_Document) m_document;
};

void configureKernel()
{
    silenceKernel();
    STEPCAFControl_Controller::Init();
    Interface_Static::SetCVal("xstep.cascade.unit", "MM");
    // With this page the kernel decodes all escapes; other encodings are changed before it reads.
    Interface_Static::SetIVal("read.step.codepage", Resource_FormatType_UTF8);
    XCAFDoc_ShapeTool::SetAutoNaming(Standard_False);  // an empty name says more than "SOLID"
}

void configureReader(STEPCAFControl_Reader& reader)
{
    reader.SetNameMode(Standard_True);
    reader.SetColorMode(Standard_False);
    reader.SetLayerMode(Standard_False);
    reader.SetPropsMode(Standard_False);
    reader.SetGDTMode(Standard_False);
    reader.SetMatMode(Standard_False);
    reader.SetViewMode(Standard_False);
}

IFSelect_ReturnStatus readRecords(STEPCAFControl_Reader& reader, std::filesystem::path const& file)
{
    std::string const encoding = encodingOfQuotedTexts(file);
    if (encoding.empty()) {
        return reader.ReadFile(file.string().c_str());
    }
    std::istringstream text(readAsUtf8(file, encoding));
    return reader.ChangeReader().ReadStream(file.filename().string().c_str(), text);
}

void checkFacts(std::filesystem::path const& file, StepFacts const& facts)
{
    if (facts.m_hasCycle) {
        refuse(file, "has an assembly that holds itself; the file is damaged");
    }
    if (facts.m_depth > kMostLevels) {
        refuse(file, "nests its assemblies " + std::to_string(facts.m_depth) +
                         " levels deep; at most " + std::to_string(kMostLevels) + " can be read");
    }
}

void addWarnings(GeometryModel& model, StepFacts const& facts)
{
    for (std::string const& unit : facts.m_otherUnits) {
        model.m_warnings.push_back("besides " + model.m_unit.m_name + ", the file uses " + unit +
                                   " as a length unit; all is converted to millimetres");
    }
    if (facts.m_unit.m_name == "none") {
        model.m_warnings.push_back("the file states no length unit; it was read in millimetres");
    }
    if (facts.m_brokenRecords > 0) {
        model.m_warnings.push_back(std::to_string(facts.m_brokenRecords) +
                                   " records of the file are damaged or refer to records that are "
                                   "missing: parts of the geometry may be missing");
    }
}

/// Shapes, tree and numbers from the records that the reader holds.
GeometryModel build(std::filesystem::path const& file, STEPCAFControl_Reader& reader,
                    StepFacts const& facts, ImportProgress const& progress)
{
    Document document;
    Handle(KernelProgress) const indicator =
        new KernelProgress(progress, "building the shapes", kReadShare, kTransferShare);
    if (!reader.Transfer(document.get(), indicator->Start())) {
        refuse(file, "holds no geometry, or none that the geometry kernel can build");
    }
    if (progress) {
        progress(kTransferShare, "numbering the entities");
    }
    GeometryModel model;
    model.m_sourceFile = file.string();
    model.m_unit = facts.m_unit;
    addWarnings(model, facts);
    try {
        readTree(model, document.get(), facts.m_bareOccurrenceIds);
    } catch (std::length_error const& tooMuch) {
        refuse(file, tooMuch.what());
    }
    return model;
}

/// The kernel follows references without a look at whether they lead anywhere: half of the files
/// with damaged records crash it. Such a file is tried out first.
void tryOut(std::filesystem::path const& file, STEPCAFControl_Reader& reader,
            StepFacts const& facts)
{
    bool const works = survives([&] {
        GeometryModel model = build(file, reader, facts, {});
        sumOverInstances(model);
        for (Entity const& entity : model.m_entities) {
            static_cast<void>(model.measure(entity.m_number));
        }
    });
    if (!works) {
        refuse(file, "is damaged: " + std::to_string(facts.m_brokenRecords) +
                         " records are broken or refer to records that are missing, and no shapes "
                         "can be built from the rest; copy or export it again");
    }
}

}  // namespace

GeometryModel importStep(std::filesystem::path const& file, ImportProgress const& progress)
{
    checkStepFrame(file);
    return guarded(file, [&] {
        configureKernel();
        STEPCAFControl_Reader reader;
        configureReader(reader);
        if (progress) {
            progress(0.0, "reading the file");
        }
        if (readRecords(reader, file) != IFSelect_RetDone) {
            refuse(file, "is damaged: the geometry kernel cannot read its records");
        }
        Handle(StepData_StepModel) const records = reader.Reader().StepModel();
        if (records.IsNull() || records->NbEntities() == 0) {
            refuse(file, "holds no records");
        }
        StepFacts const facts = factsOf(*records);
        checkFacts(file, facts);
        if (facts.m_brokenRecords > 0) {
            tryOut(file, reader, facts);
        }
        return build(file, reader, facts, progress);
    });
}

}  // namespace vrn::orlo::host::geometry
