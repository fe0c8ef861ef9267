#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/geometryreport.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/session.h"

#include <cstdio>

namespace vrn::orlo::app {

int inspect(InspectOptions const& options, SessionOptions const& sessionOptions)
{
    Session session(sessionOptions);
    auto const held = loadModel(session, options.m_file);
    host::model::Model const& model = *held;
    std::string const report =
        options.m_json
            ? jsonReport(model)
            : textReport(model, options.m_treeOnly ? ReportDepth::tree : ReportDepth::entities);
    std::fwrite(report.data(), 1, report.size(), stdout);
    return kDone;
}

}  // namespace vrn::orlo::app
