// The operations of ServiceHelper that ask a service for something. What such a call answers as a
// result is dropped: only what it hands out counts.

#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"
#include "platform/appfw/appfw.h"
#include "platform/geometry/geometryservice.h"
#include "platform/gsc/geometryserver.h"
#include "platform/servicecaches/servicecacheappframe.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "platform/servicenames.h"
#include "platform/shell/shell.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/userexception.h"
#include "plugins/modelingplugin/utilities/componentframe/validation.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

/// Asks `owner`, unless it is null, for something that it hands out by `operation`.
template <class Out, class Owner>
Out ask(KFRSmartPointer<Owner> const& owner, KFRResult (Owner::*operation)(Out&))
{
    Out answer;
    if (owner != NULLSP) {
        static_cast<void>((owner.get()->*operation)(answer));
    }
    return answer;
}

/// A tool of the geometry session, or where that has none of the server's active session.
template <class Tool>
KFRIService geometryTool(KFRResult (geometry::KFRIGeomSession::*ofGeometry)(KFRSmartPointer<Tool>&),
                         KFRResult (gsc::KFRIGSCSession::*ofServer)(KFRSmartPointer<Tool>&))
{
    auto const session =
        KFR::loose_cast<geometry::KFRIGeomSession>(ServiceHelper::getGeomSession());
    KFRSmartPointer<Tool> tool = ask(session, ofGeometry);
    if (tool == NULLSP) {
        tool = ask(KFR::strict_cast<gsc::KFRIGSCSession>(ServiceHelper::getGSCActiveSession()),
                   ofServer);
    }
    return tool;
}

}  // namespace

KFRIService ServiceHelper::getGSCActiveSession()
{
    return ask(KFR::strict_cast<gsc::KFRIGSCServer>(getGSCServer()),
               &gsc::KFRIGSCServer::getActiveSession);
}

KFRIService ServiceHelper::getGSCMath()
{
    return ask(KFR::strict_cast<gsc::KFRIGSCUtilityFactory>(named(servicenames::kGSCUtility)),
               &gsc::KFRIGSCUtilityFactory::getMath);
}

KFRIService ServiceHelper::getGeomSession()
{
    return ask(KFR::loose_cast<geometry::KFRIGeomCommonService>(getGeomCommonService()),
               &geometry::KFRIGeomCommonService::getSession);
}

KFRIService ServiceHelper::getGeomOpeProgress()
{
    return ask(KFR::strict_cast<geometry::KFRIGeomCommonService>(getGeomCommonService()),
               &geometry::KFRIGeomCommonService::getProgress);
}

KFRIService ServiceHelper::getGSCQueryTool()
{
    return geometryTool(&geometry::KFRIGeomSession::getQueryTool,
                        &gsc::KFRIGSCSession::getQueryTool);
}

KFRIService ServiceHelper::getGSCModifyTool()
{
    return geometryTool(&geometry::KFRIGeomSession::getModifyTool,
                        &gsc::KFRIGSCSession::getModifyTool);
}

KFRIService ServiceHelper::getTransformService()
{
    return ask(KFR::strict_cast<appfw::KFRICommonService>(getTranformCommonService()),
               &appfw::KFRICommonService::getTransformService);
}

KFRIService ServiceHelper::getTrashbin()
{
    return ask(ServiceCacheModelingPlugin::trashBinFactory_,
               &appfw::KFRITrashBinFactoryInterface::getTrashBin);
}

KFRIService ServiceHelper::getURMacro()
{
    return ask(KFR::strict_cast<appfw::IURFactoryInterface>(getUndoRedoFactory()),
               &appfw::IURFactoryInterface::getMacroRecorder);
}

KFRIService ServiceHelper::getViewport()
{
    // Not getShellEntities: that one keeps what it found.
    auto const managers = KFR::strict_cast<shell::IGetManagers>(
        ServiceProviderHelper::getService(servicenames::kShellEntities, ""));
    return ask(ask(managers, &shell::IGetManagers::getViewportManager),
               &shell::IViewportManager::getCurrentViewport);
}

KFRSmartPointer<CAE::IModelInterface> ServiceHelper::getModelByName(icu::UnicodeString const& name)
{
    KFRSmartPointer<CAE::IModelInterface> model;
    if (auto const pfw = KFR::strict_cast<CAE::IPFWInterface>(getPFW()); pfw != NULLSP) {
        static_cast<void>(pfw->getModelByName(name, model));
    }
    return model;
}

KFRSmartPointer<CAE::IModelInterface> ServiceHelper::getCurrentModel()
{
    // The application frame's holder, unlike getModelByName.
    auto const session = ask(appfw::ServiceCacheAppFrame::PFW_, &CAE::IPFWInterface::getSession);
    auto const spModel = ask(session, &CAE::IPersistenceSessionInterface::getCurrentModel);
    if (KFR::NULLSP == spModel) {
        validation("!(KFR::NULLSP == spModel)", "plugins/modelingplugin/utilities/servicehelper",
                   463, "vrn::orlo::plugin::modeling::ServiceHelper::getCurrentModel");
        throw UserException("No Model!");
    }
    return spModel;
}

}  // namespace vrn::orlo::plugin::modeling
