/// \file
/// Geometry server: sessions and their tools.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::gsc {

/// Reads entities of the geometry server.
class GSCIQueryTool : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.GSCIQueryTool")
};

/// Makes and deletes temporary entities.
class GSCIModifyTool : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.GSCIModifyTool")
};

class KFRIGSCSession : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCSession")

    virtual KFRResult getQueryTool(KFRSmartPointer<GSCIQueryTool>& tool) = 0;
    virtual KFRResult getModifyTool(KFRSmartPointer<GSCIModifyTool>& tool) = 0;
};

class KFRIGSCServer : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCServer")

    virtual KFRResult getActiveSession(KFRSmartPointer<KFRIGSCSession>& session) = 0;
};

class KFRIGSCMath : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCMath")
};

class KFRIGSCUtilityFactory : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.gsc.KFRIGSCUtilityFactory")

    virtual KFRResult getMath(KFRSmartPointer<KFRIGSCMath>& math) = 0;
};

}  // namespace vrn::orlo::gsc
