#include "host/modelspace/modelspace.h"

#include "host/geometryserver/session.h"
#include "host/kernel/servicename.h"
#include "host/meshing/componentaccess.h"
#include "host/meshing/remesh.h"

#include <utility>

namespace vrn::orlo::host::modelspace {

ModelSpace::ModelSpace(kernel::Kernel& kernel, application::Application& application)
    : m_kernel(kernel),
      m_application(application),
      m_server(std::make_shared<geometryserver::GeometryServer>()),
      m_common(KFR::make<model::GeometryCommonService>())
{
    geometryserver::registerGeometryServer(kernel, m_server, *m_common);
    auto const add = [&kernel](char const* name, KFRIService const& service) {
        static_cast<void>(kernel.services().addService(name, [service] { return service; }));
    };
    add(kernel::serviceNameOf("getGeomCommonService"), m_common);
    add(kernel::serviceNameOf("getFEMCompAccess"),
        KFR::make<meshing::FEMComponentAccess>([server = std::weak_ptr(m_server)](int number) {
            auto const there = server.lock();
            auto const found = there != nullptr ? there->find(number) : std::nullopt;
            return found.has_value()
                       ? meshing::meshPartOf(*found->m_store->part(found->m_entity->m_part))
                       : KFRSmartPointer<meshing::MeshPart>();
        }));
}

std::unique_ptr<model::Model> ModelSpace::open(geometry::GeometryModel geometry)
{
    geometry.numberFrom(m_server->takeNumbers(geometry.m_entities.size()));
    geometry::Box const box = geometry.m_box;
    auto opened =
        std::make_unique<model::Model>(std::move(geometry), m_kernel.typeRegistry(),
                                       m_application.entityService(), &m_application.entities());
    m_server->open(opened->geometryStore());
    m_application.models().open(*opened->root());
    m_common->addModel(opened->root(), opened->geometryStore());
    m_common->setModel(opened->geometryStore());
    showAll(box);
    return opened;
}

void ModelSpace::showAll(geometry::Box const& box)
{
    if (box.isEmpty()) {
        return;
    }
    display::Viewport& viewport = m_application.viewport();
    display::Camera const& camera = viewport.camera();
    display::Box const shown{box.m_min, box.m_max};
    viewport.setModelBox(shown);
    viewport.setCamera(display::Camera::fit(shown, camera.width(), camera.height(),
                                            camera.view().m_projection, camera.direction(),
                                            camera.view().m_up));
}

}  // namespace vrn::orlo::host::modelspace
