#include "apps/orlo/loadmodel.h"

#include "apps/orlo/console.h"
#include "host/geometry/geometryimport.h"

#include <utility>

namespace vrn::orlo::app {

host::model::Model loadModel(Session& session, std::filesystem::path const& file)
{
    ProgressLine progress;
    host::geometry::GeometryModel geometry = host::geometry::importGeometry(
        file,
        [&progress](double fraction, std::string const& step) { progress.show(fraction, step); });
    progress.wipe();
    for (std::string const& warning : geometry.m_warnings) {
        reportWarning(warning);
    }
    return {std::move(geometry), session.kernel().typeRegistry()};
}

}  // namespace vrn::orlo::app
