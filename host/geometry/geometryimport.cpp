#include "host/geometry/geometryimport.h"

#include "host/geometry/filechecks.h"
#include "host/geometry/importers.h"
#include "host/geometry/kernelsession.h"
#include "host/geometry/modelbuilder.h"
#include "host/geometry/plausibility.h"

namespace vrn::orlo::host::geometry {

GeometryModel importGeometry(std::filesystem::path const& file, ImportProgress const& progress)
{
    FileKind const kind = checkFile(file);
    GeometryModel model =
        kind == FileKind::step ? importStep(file, progress) : importStl(file, progress);
    if (model.m_parts.empty()) {
        refuse(file, "holds no geometry");
    }
    guarded(file, [&] { sumOverInstances(model); });
    warnOfOddSizes(model);
    if (progress) {
        progress(1.0, "done");
    }
    return model;
}

}  // namespace vrn::orlo::host::geometry
