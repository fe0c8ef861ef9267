#include "apps/orlo/loadmodel.h"

#include "apps/orlo/console.h"
#include "host/geometry/geometryimport.h"
#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"
#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"

#include <chrono>
#include <utility>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::LogHelper;
using plugin::modeling::PerformanceLogger;
using plugin::modeling::PluginEnv;

void logImport(std::filesystem::path const& file, host::geometry::GeometryModel const& geometry,
               std::chrono::duration<double> time)
{
    constexpr int kInformation = 1;
    if (LogHelper::isAllowLog(kInformation)) {
        LogHelper::instance()->logMessage(kInformation, "%s: %zu parts, %zu entities", file.c_str(),
                                          geometry.m_parts.size(), geometry.m_entities.size());
    }
    if (PluginEnv::instance()->isEnablePerformanceLog()) {
        PerformanceLogger::instance()->logMessage(kInformation, "import of %s: %.3f s",
                                                  file.c_str(), time.count());
    }
}

}  // namespace

std::unique_ptr<host::model::Model> loadModel(Session& session, std::filesystem::path const& file)
{
    auto const start = std::chrono::steady_clock::now();
    ProgressLine progress;
    host::geometry::GeometryModel geometry = host::geometry::importGeometry(
        file,
        [&progress](double fraction, std::string const& step) { progress.show(fraction, step); });
    progress.wipe();
    logImport(file, geometry, std::chrono::steady_clock::now() - start);
    for (std::string const& warning : geometry.m_warnings) {
        reportWarning(warning);
    }
    auto model = std::make_unique<host::model::Model>(
        std::move(geometry), session.kernel().typeRegistry(), session.application().entityService(),
        &session.application().entities());
    session.application().models().open(*model->root());
    session.geometryService().setModel(model->geometryStore());
    return model;
}

}  // namespace vrn::orlo::app
