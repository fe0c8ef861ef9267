/// \file
/// Geometry in the application: its server, its services, and the models that are open.

#pragma once

#include "host/application/application.h"
#include "host/geometry/geometrymodel.h"
#include "host/geometryserver/geometryserver.h"
#include "host/kernel/kernel.h"
#include "host/meshing/meshpart.h"
#include "host/model/geometryservice.h"
#include "host/model/model.h"

#include <memory>

namespace vrn::orlo::host::modelspace {

/// Adds to an application what it needs for geometry: the geometry server, the common service of
/// geometry, and the FE plug-in's way from geometry to meshes.
///
/// To be made after the application and before a component is loaded.
///
/// Ownership  Refers to the application and the kernel, whose registry keeps the services until its
///            stop. Holds no model.
/// Threads    Main thread.
class ModelSpace {
public:
    ModelSpace(kernel::Kernel& kernel, application::Application& application);
    ModelSpace(ModelSpace const&) = delete;
    ModelSpace& operator=(ModelSpace const&) = delete;

    /// Makes an imported geometry the current model: its entities get numbers that none before had,
    /// and the viewport shows all of it.
    [[nodiscard]] std::unique_ptr<model::Model> open(geometry::GeometryModel geometry);

    [[nodiscard]] geometryserver::GeometryServer& server() noexcept { return *m_server; }

private:
    void showAll(geometry::Box const& box);

    kernel::Kernel& m_kernel;
    application::Application& m_application;
    std::shared_ptr<geometryserver::GeometryServer> m_server;
    KFRSmartPointer<model::GeometryCommonService> m_common;
};

}  // namespace vrn::orlo::host::modelspace
