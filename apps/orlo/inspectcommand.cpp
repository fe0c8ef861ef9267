#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/geometryreport.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/meshreport.h"
#include "apps/orlo/meshrun.h"
#include "apps/orlo/session.h"

#include <cstdio>

namespace vrn::orlo::app {

namespace {

void print(std::string const& report)
{
    std::fwrite(report.data(), 1, report.size(), stdout);
}

int inspectMesh(InspectOptions const& options)
{
    host::meshing::MeshFile const mesh = host::meshing::readMeshFile(options.m_file);
    for (std::string const& warning : mesh.m_warnings) {
        reportWarning(warning);
    }
    print(options.m_json ? jsonReport(options.m_file, mesh)
                         : textReport(options.m_file, mesh, options.m_treeOnly));
    return kDone;
}

}  // namespace

int inspect(InspectOptions const& options, SessionOptions const& sessionOptions)
{
    if (isMeshFile(options.m_file)) {
        return inspectMesh(options);
    }
    Session session(sessionOptions);
    auto const held = loadModel(session, options.m_file);
    host::model::Model const& model = *held;
    MeshSummary const mesh = summaryOf(model);
    MeshSummary const* const ownMesh = mesh.m_parts.empty() ? nullptr : &mesh;
    std::string report =
        options.m_json
            ? jsonReport(model, ownMesh)
            : textReport(model, options.m_treeOnly ? ReportDepth::tree : ReportDepth::entities);
    if (ownMesh != nullptr && !options.m_json) {
        report += "\n" + textOf(mesh);
    }
    print(report);
    return kDone;
}

}  // namespace vrn::orlo::app
