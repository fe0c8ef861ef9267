#include "plugins/modelingplugin/utilities/geometrymesh/partmeshea.h"

#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshbodyea.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

/// Whether some, and whether all of what there is to mesh is meshed.
class Sum {
public:
    void add(bool isMeshed, bool isWhole)
    {
        m_some = m_some || isMeshed;
        m_all = m_all && isMeshed && isWhole;
    }
    void addGeometry(GeomTopo const& body)
    {
        int const dimension = body.tryGetBodyDimension();
        if (dimension < 1) {
            return;
        }
        add(body.hasMesh(), body.isFullMeshed());
        if (dimension == 2) {
            for (GeomTopo const& face : body.getChildFaces()) {
                bool const isMeshed = face.hasMesh() && !face.getElementIds().empty();
                add(isMeshed, true);
            }
        }
    }
    void addMesh(MeshBodyEA const& body)
    {
        add(body.has2DMesh() || !body.getElementIds().empty(), true);
    }

    [[nodiscard]] PartMeshEA::PartMesh state() const
    {
        using enum PartMeshEA::PartMesh;
        return !m_some ? none : m_all ? fully : partly;
    }

private:
    bool m_some = false;
    bool m_all = true;
};

}  // namespace

PartMeshEA::PartMesh PartMeshEA::getPartMeshState(KFRSmartPointer<CAE::IPartInterface> const& part)
{
    CAE::IPersistentObjectSequence bodies;
    if (part != NULLSP) {
        static_cast<void>(part->getBodies(bodies));
    }
    Sum sum;
    for (auto const& object : std::as_const(bodies)) {
        if (auto const body = KFR::loose_cast<CAE::IGeomBodyInterface>(object); body != NULLSP) {
            sum.addGeometry(GeomTopo(body));
        } else if (auto const mesh = KFR::loose_cast<CAE::IMeshBodyInterface>(object);
                   mesh != NULLSP) {
            sum.addMesh(MeshBodyEA(mesh));
        }
    }
    return sum.state();
}

}  // namespace vrn::orlo::plugin::modeling
