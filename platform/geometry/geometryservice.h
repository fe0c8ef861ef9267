/// \file
/// Geometry plug-in: its common service and session.

#pragma once

#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::geometry {

class KFRIGeomSession : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.geometry.KFRIGeomSession")

    virtual KFRResult getQueryTool(KFRSmartPointer<gsc::GSCIQueryTool>& tool) = 0;
    virtual KFRResult getModifyTool(KFRSmartPointer<gsc::GSCIModifyTool>& tool) = 0;
};

class KFRIGeomCommonService : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.geometry.KFRIGeomCommonService")

    virtual KFRResult getSession(KFRSmartPointer<KFRIGeomSession>& session) = 0;
    /// The progress object of the running geometry operation.
    virtual KFRResult getProgress(KFRIService& progress) = 0;
};

/// The name that newer callers use.
using IGeometryCommonService = KFRIGeomCommonService;

}  // namespace vrn::orlo::plugin::geometry
