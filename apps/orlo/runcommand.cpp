#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/geometryreport.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/meshrun.h"
#include "apps/orlo/session.h"
#include "host/study/atomicfile.h"
#include "host/study/study.h"

#include <cstdio>

namespace vrn::orlo::app {

namespace {

namespace fs = std::filesystem;

/// Writes a report, if the study asks for it, and says where it went.
void writeOutput(fs::path const& folder, fs::path const& name, std::string const& report)
{
    if (!name.empty()) {
        fs::path const file = folder / name;
        host::study::writeFileAtomically(file, report);
        std::fprintf(stderr, "wrote %s\n", file.string().c_str());
    }
}

}  // namespace

int run(RunOptions const& options, SessionOptions const& sessionOptions)
{
    host::study::Study const study = host::study::loadStudy(options.m_study);
    fs::path const folder = options.m_out.empty() ? fs::path("out") / study.m_name : options.m_out;

    Session session(sessionOptions);
    auto const held = loadModel(session, study.m_geometry);
    host::model::Model& model = *held;
    MeshSettings const settings = settingsOf(study);
    MeshSummary mesh;
    if (study.m_mesh.has_value()) {
        mesh = meshWithProgress(session, model, settings);
    }
    MeshSummary const* const ownMesh = mesh.m_parts.empty() ? nullptr : &mesh;

    std::string const tree = textReport(model, ReportDepth::tree);
    std::string const json =
        options.m_json || !study.m_outputs.m_json.empty() ? jsonReport(model, ownMesh) : "";
    std::string const table = ownMesh != nullptr ? "\n" + textOf(mesh) : "";
    std::string const printed = options.m_json ? json : tree + table;
    std::fwrite(printed.data(), 1, printed.size(), stdout);
    std::fflush(stdout);
    writeOutput(folder, study.m_outputs.m_tree, tree);
    writeOutput(folder, study.m_outputs.m_json, json);
    if (ownMesh != nullptr && !study.m_outputs.m_mesh.empty()) {
        writeMesh(model, study.m_geometry, settings, folder / study.m_outputs.m_mesh);
    }
    return mesh.m_isWhole ? kDone : kModelRefused;
}

}  // namespace vrn::orlo::app
