/// \file
/// Names and display of the current model's geometry.

#pragma once

#include "host/model/geometrystore.h"
#include "platform/geometry/geometryservice.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <string>

namespace vrn::orlo::host::model {

/// Bodies are displayed under their own references, and their sub-entities by number within them.
class GeometryDisplayService final
    : public KFRServiceObjectImpl<plugin::geometry::IGeometryDisplayServiceInterface> {
public:
    void setModel(std::weak_ptr<GeometryStore> geometry) { m_geometry = std::move(geometry); }

    /// Fails for what is no body of the model, and for a number that the body does not have. The
    /// number 0 is the body.
    KFRResult getDisplayReference(CAE::EntityReference const& entity, unsigned int number,
                                  CAE::EntityReference& reference) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:GeometryDisplayService"; }

private:
    std::weak_ptr<GeometryStore> m_geometry;
};

/// The common service of geometry. There is no geometry session and no progress object: both
/// operations fail.
///
/// Failure    KFR::notDone, also for everything while there is no model.
/// Ownership  Does not hold the model's geometry.
/// Threads    Main thread.
class GeometryCommonService final
    : public KFRServiceObjectImpl<plugin::geometry::IGeometryCommonServiceInterface,
                                  plugin::geometry::KFRIGeomCommonService> {
public:
    /// \param geometry  Model::geometryStore()
    void setModel(std::weak_ptr<GeometryStore> const& geometry);

    KFRResult getReferenceByName(std::string const& name, CAE::EntityReference& reference) override;
    KFRResult getDisplayService(
        KFRSmartPointer<plugin::geometry::IGeometryDisplayServiceInterface>& service) override;
    KFRResult getSession(KFRSmartPointer<plugin::geometry::KFRIGeomSession>& session) override;
    KFRResult getProgress(KFRIService& progress) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:GeometryCommonService"; }

private:
    std::weak_ptr<GeometryStore> m_geometry;
    KFRSmartPointer<GeometryDisplayService> m_display = KFR::make<GeometryDisplayService>();
};

}  // namespace vrn::orlo::host::model
