/// \file
/// Names, numbers and display of the geometry of models.

#pragma once

#include "host/model/geometrystore.h"
#include "platform/caedata/caedata.h"
#include "platform/geometry/geometryservice.h"
#include "platform/kfr/kfrserviceobject.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

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

/// The common service of geometry. Names are those of the current model; numbers are found in all
/// open ones. There is no progress object: getProgress() fails.
///
/// Failure    KFR::notDone; for the session until one is set, and for names and numbers while there
///            is no model.
/// Ownership  Holds the session, but neither models nor their geometry.
/// Threads    Main thread.
class GeometryCommonService final
    : public KFRServiceObjectImpl<plugin::geometry::IGeometryCommonServiceInterface,
                                  plugin::geometry::KFRIGeomCommonService> {
public:
    /// Makes a model current.
    /// \param geometry  Model::geometryStore()
    void setModel(std::weak_ptr<GeometryStore> const& geometry);

    /// Has findInModel() know a model, until its geometry goes. It does not become current.
    /// \param root      Model::root()
    /// \param geometry  Model::geometryStore()
    void addModel(KFRSmartPointer<CAE::IModelInterface> const& root,
                  std::weak_ptr<GeometryStore> const& geometry);

    void setSession(KFRSmartPointer<plugin::geometry::KFRIGeomSession> session)
    {
        m_session = std::move(session);
    }

    KFRResult getReferenceByName(std::string const& name, CAE::EntityReference& reference) override;
    KFRResult getDisplayService(
        KFRSmartPointer<plugin::geometry::IGeometryDisplayServiceInterface>& service) override;
    KFRResult getSession(KFRSmartPointer<plugin::geometry::KFRIGeomSession>& session) override;
    KFRResult getProgress(KFRIService& progress) override;
    /// Fails for a number of another model. The reference's service is the part.
    KFRResult findInModel(KFRSmartPointer<CAE::IModelInterface> const& model, int number,
                          CAE::EntityReference& reference) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:GeometryCommonService"; }

private:
    std::weak_ptr<GeometryStore> m_geometry;
    std::map<long long, std::weak_ptr<GeometryStore>> m_models;  // by the root's instance number
    KFRSmartPointer<plugin::geometry::KFRIGeomSession> m_session;
    KFRSmartPointer<GeometryDisplayService> m_display = KFR::make<GeometryDisplayService>();
};

}  // namespace vrn::orlo::host::model
