#include "apps/orlo/meshcommand.h"

#include "apps/orlo/console.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/meshrun.h"
#include "apps/orlo/session.h"
#include "apps/orlo/usageerror.h"
#include "host/study/study.h"

#include <cstdio>

namespace vrn::orlo::app {

namespace fs = std::filesystem;

int mesh(MeshVerbOptions const& options, SessionOptions const& sessionOptions)
{
    for (fs::path const& output : options.m_outputs) {
        requireMeshEnding(output);
    }
    fs::path source = options.m_file;
    MeshSettings settings = settingsOf(options.m_mesh);
    std::string const ending = endingOf(options.m_file);
    if (ending == ".yaml" || ending == ".yml") {
        host::study::Study const study = host::study::loadStudy(options.m_file);
        source = study.m_geometry;
        settings = overridden(std::move(settings), settingsOf(study));
    }
    if (!settings.m_size.has_value()) {
        throw UsageError(
            "there is no mesh size; give --size MM, or a study with `mesh: {size: 5}`");
    }

    Session session(sessionOptions);
    auto const model = loadModel(session, source);
    MeshSummary const summary = meshWithProgress(session, *model, settings);
    if (summary.m_parts.empty()) {
        reportError(source.string() + ": no body could be meshed, so nothing is written");
        return kModelRefused;
    }
    std::string const table = textOf(summary);
    std::fwrite(table.data(), 1, table.size(), stdout);
    std::fflush(stdout);
    for (fs::path const& output : options.m_outputs) {
        writeMesh(*model, source, settings, output);
    }
    return summary.m_isWhole ? kDone : kModelRefused;
}

}  // namespace vrn::orlo::app
