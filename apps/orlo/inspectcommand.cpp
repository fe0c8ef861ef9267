#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/geometryreport.h"
#include "apps/orlo/session.h"
#include "host/geometry/geometryimport.h"

#include <cstdio>

namespace vrn::orlo::app {

int inspect(InspectOptions const& options)
{
    Session session;
    ProgressLine progress;
    host::model::Model const model(
        host::geometry::importGeometry(
            options.m_file,
            [&progress](double fraction, std::string const& step) { progress.show(fraction, step); }),
        session.kernel().typeRegistry());
    progress.wipe();
    for (std::string const& warning : model.geometry().m_warnings) {
        reportWarning(warning);
    }
    std::string const report =
        options.m_json
            ? jsonReport(model)
            : textReport(model, options.m_treeOnly ? ReportDepth::tree : ReportDepth::entities);
    std::fwrite(report.data(), 1, report.size(), stdout);
    return kDone;
}

}  // namespace vrn::orlo::app
