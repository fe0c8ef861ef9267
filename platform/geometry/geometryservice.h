/// \file
/// Geometry plug-in: its common service and session.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace vrn::orlo::plugin::geometry {

/// From numbers of the geometry server to objects.
///
/// Failure    What is not there: a failure, with the last argument as it was.
class KFRIGeomSession : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.geometry.KFRIGeomSession")

    virtual KFRResult getQueryTool(KFRSmartPointer<gsc::GSCIQueryTool>& tool) = 0;
    virtual KFRResult getModifyTool(KFRSmartPointer<gsc::GSCIModifyTool>& tool) = 0;
    virtual KFRResult getGeometry(int number, KFRSmartPointer<CAE::IGeometryInterface>& geometry) = 0;
    /// Fails for what is no body.
    virtual KFRResult getGeomBody(int number, KFRSmartPointer<CAE::IGeomBodyInterface>& body) = 0;
    /// The part that the entity belongs to.
    virtual KFRResult getPart(int number, KFRSmartPointer<CAE::IPartInterface>& part) = 0;
    /// The entity's type in the type registry.
    virtual KFRResult getTypeId(int number, unsigned int& typeId) = 0;
};

class KFRIGeomCommonService : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.geometry.KFRIGeomCommonService")

    virtual KFRResult getSession(KFRSmartPointer<KFRIGeomSession>& session) = 0;
    /// The progress object of the running geometry operation.
    virtual KFRResult getProgress(KFRIService& progress) = 0;
    /// The reference of a number of the geometry server in a model.
    virtual KFRResult findInModel(KFRSmartPointer<CAE::IModelInterface> const& model, int number,
                                  CAE::EntityReference& reference) = 0;
};

/// Displays geometry.
class IGeometryDisplayServiceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.geometry.IGeometryDisplayService")

    /// The reference under which the display knows a sub-entity.
    /// \param entity  the displayed entity; `number` counts within it
    virtual KFRResult getDisplayReference(CAE::EntityReference const& entity, unsigned int number,
                                          CAE::EntityReference& reference) = 0;
};

/// Names and display of geometry. The object is a KFRIGeomCommonService as well.
///
/// Failure    What is not there: a failure, with the last argument as it was.
class IGeometryCommonServiceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.geometry.IGeometryCommonService")

    /// The reference of a geometry by its persistent name.
    virtual KFRResult getReferenceByName(std::string const& name,
                                         CAE::EntityReference& reference) = 0;
    virtual KFRResult getDisplayService(
        KFRSmartPointer<IGeometryDisplayServiceInterface>& service) = 0;
};

}  // namespace vrn::orlo::plugin::geometry
