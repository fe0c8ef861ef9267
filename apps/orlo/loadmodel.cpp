#include "apps/orlo/loadmodel.h"

#include "apps/orlo/console.h"
#include "apps/orlo/usageerror.h"
#include "host/geometry/geometryimport.h"
#include "host/meshing/meshtypes.h"
#include "host/meshing/remesh.h"
#include "host/modelfile/modelfile.h"
#include "host/modelfile/renumbering.h"
#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"
#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"

#include <stdlib.h>  // NOLINT: mkdtemp is POSIX's

#include <algorithm>
#include <cctype>
#include <chrono>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

namespace vrn::orlo::app {

namespace {

namespace fs = std::filesystem;

using host::geometry::GeometryModel;
using host::modelfile::ModelFile;
using host::modelfile::ModelFileError;
using host::modelfile::PartMeshRecord;
using plugin::modeling::LogHelper;
using plugin::modeling::PerformanceLogger;
using plugin::modeling::PluginEnv;

constexpr char const* kModelEnding = ".orlo";

void logImport(fs::path const& file, GeometryModel const& geometry,
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

GeometryModel importWithProgress(fs::path const& file)
{
    ProgressLine progress;
    return host::geometry::importGeometry(
        file,
        [&progress](double fraction, std::string const& step) { progress.show(fraction, step); });
}

/// A folder of the process, gone with the object.
class PassingFolder {
public:
    PassingFolder()
    {
        std::string path = (fs::temp_directory_path() / "orlo-XXXXXX").string();
        if (::mkdtemp(path.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), path);
        }
        m_path = path;
    }
    PassingFolder(PassingFolder const&) = delete;
    PassingFolder& operator=(PassingFolder const&) = delete;
    ~PassingFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    [[nodiscard]] fs::path const& path() const noexcept { return m_path; }

private:
    fs::path m_path;
};

/// The geometry in a model file, by way of a file: importers read nothing else.
GeometryModel importFrom(ModelFile const& model, fs::path const& file)
{
    PassingFolder const folder;
    fs::path const name = fs::path(model.m_geometryName).filename();
    fs::path const geometry = folder.path() / name;
    std::ofstream out(geometry, std::ios::binary);
    out.write(model.m_geometryBytes.data(),
              static_cast<std::streamsize>(model.m_geometryBytes.size()));
    out.close();
    if (!out) {
        throw std::system_error(errno, std::generic_category(), geometry.string());
    }
    try {
        GeometryModel imported = importWithProgress(geometry);
        imported.m_sourceFile = (file / name).string();
        return imported;
    } catch (host::geometry::ImportError const&) {
        throw ModelFileError(file, "holds a geometry file that cannot be read, " + name.string(),
                             "write it anew with `orlo mesh`");
    }
}

void installMeshes(Session& session, host::model::Model& model, ModelFile const& kept,
                   fs::path const& file)
{
    host::meshing::MeshTypes const types(session.kernel().typeRegistry());
    for (PartMeshRecord const& record : kept.m_meshes) {
        if (record.m_index >= model.parts().size() ||
            model.parts()[record.m_index]->name() != record.m_part) {
            throw ModelFileError(
                file, "has a mesh of part \"" + record.m_part + "\", which its geometry has not",
                "write it anew with `orlo mesh`");
        }
        static_cast<void>(host::meshing::installMesh(
            model.parts()[record.m_index],
            host::modelfile::renumbered(record.m_store, 1, model.geometry().firstNumber()), types,
            session.application().entityService()));
    }
}

}  // namespace

std::string endingOf(fs::path const& file)
{
    std::string ending = file.extension().string();
    std::ranges::transform(ending, ending.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

std::unique_ptr<host::model::Model> loadModel(Session& session, fs::path const& file)
{
    auto const start = std::chrono::steady_clock::now();
    ModelFile kept;
    bool const isModelFile = endingOf(file) == kModelEnding;
    if (isModelFile) {
        kept = host::modelfile::readModelFile(file);
    }
    GeometryModel geometry = isModelFile ? importFrom(kept, file) : importWithProgress(file);
    logImport(file, geometry, std::chrono::steady_clock::now() - start);
    for (std::string const& warning : geometry.m_warnings) {
        reportWarning(warning);
    }
    auto model = session.space().open(std::move(geometry));
    installMeshes(session, *model, kept, file);
    return model;
}

GeometrySource geometrySourceOf(fs::path const& file)
{
    if (endingOf(file) == kModelEnding) {
        ModelFile kept = host::modelfile::readModelFile(file);
        return {std::move(kept.m_geometryName), std::move(kept.m_geometryBytes)};
    }
    std::ifstream in(file, std::ios::binary);
    GeometrySource source{file.filename().string(),
                          std::string(std::istreambuf_iterator<char>(in), {})};
    if (!in || source.m_bytes.empty()) {
        throw UsageError(file.string() + ": cannot be read again, for the model file; put it back");
    }
    return source;
}

}  // namespace vrn::orlo::app
