#include "host/geometry/facetbodies.h"
#include "host/geometry/importers.h"
#include "host/geometry/kernelsession.h"
#include "host/geometry/modelbuilder.h"
#include "host/geometry/textdecoding.h"

#include <cmath>

#include <RWStl.hxx>

namespace vrn::orlo::host::geometry {

namespace {

constexpr double kReadShare = 0.8;

bool hasOnlyNumbers(Poly_Triangulation const& mesh)
{
    for (int i = 1; i <= mesh.NbNodes(); ++i) {
        gp_Pnt const node = mesh.Node(i);
        if (!std::isfinite(node.X()) || !std::isfinite(node.Y()) || !std::isfinite(node.Z())) {
            return false;
        }
    }
    return true;
}

}  // namespace

GeometryModel importStl(std::filesystem::path const& file, ImportProgress const& progress)
{
    checkStlFrame(file);
    return guarded(file, [&] {
        silenceKernel();
        Handle(KernelProgress) const indicator =
            new KernelProgress(progress, "reading the triangles", 0.0, kReadShare);
        Handle(Poly_Triangulation) const mesh =
            RWStl::ReadFile(file.string().c_str(), indicator->Start());
        if (mesh.IsNull()) {
            refuse(file, "is damaged: its triangles cannot be read");
        }
        if (!hasOnlyNumbers(*mesh)) {
            refuse(file, "is damaged: some coordinates are no numbers");
        }
        FacetBodies const bodies = facetBodiesOf(*mesh);
        if (bodies.m_bodies.empty()) {
            refuse(file, "holds no triangles");
        }
        if (progress) {
            progress(kReadShare, "numbering the entities");
        }

        GeometryModel model;
        model.m_sourceFile = file.string();
        model.m_unit.m_name = "none";
        std::string name = cleanName(file.stem().string());
        if (name.empty()) {
            name = "part-1";
        }
        if (bodies.m_insideOut > 0) {
            model.m_warnings.push_back(
                std::to_string(bodies.m_insideOut) +
                " closed bodies have triangles that point inwards: they are taken as bodies of "
                "their own, not as cavities of others");
        }
        addPart(model, name, bodies.m_shape, bodies.m_bodies);
        Instance root;
        root.m_name = name;
        root.m_productName = name;
        root.m_part = 0;
        model.m_roots.push_back(root);
        return model;
    });
}

}  // namespace vrn::orlo::host::geometry
