/// \file
/// The library's index of the platform: one operation per service.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/deps/btree.h"
#include "platform/kfr/kfrsmartpointer.h"
#include "platform/legacy/fpstar.h"
#include "platform/modeling/modelingservices.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <string>
#include <string_view>

namespace vrn::orlo::appfw {
class IRootManagerInterface;
}

namespace vrn::orlo::plugin::modeling {

/// Finds the platform's services. No other code of the library knows a service's name.
///
/// A service that was found by name is kept until release(); one that was not found is looked for
/// anew at the next call. Code in a loop keeps the handle in a local and casts it once.
///
/// Failure    A missing service is null, and nothing is logged: whether that is an error is the
///            caller's to say. The operations with a typed result throw KFRSystemException when a
///            service is there but lacks the interface. getCurrentModel is the only one that throws
///            for a missing result.
/// Ownership  Handles are new references. The kept ones keep their services alive, so
///            releaseServices() has to come before the framework ends its services.
/// Threads    One thread at a time; no lock.
/// Cost       By name: a B-tree search. From the holder of another library: a copy of a handle.
class MODELING_API ServiceHelper {
public:
    // Services by name; see platform/servicenames.def for the names. The spelling of
    // getGuiExeutive, getFEMBussinessLogic and getTranformCommonService is what callers link
    // against.
#define NAMED_SERVICE(operation, name) static KFRIService operation();
#include "platform/servicenames.def"

    static KFRSmartPointer<KFR::AEM::Legacy::IFPStar::KFRIAEMIFPStarInterface> getAEMFPStar();
    static KFRSmartPointer<KFRIBizLogicInterface> getBizLogicService();
    static KFRSmartPointer<KFRICommonServiceInterface> getCommonService();
    static KFRSmartPointer<IEntityFactoryInterface> getEntityFactory();

    // Never kept: a fresh handle from the provider at every call.
    static KFRIService getAEMExportBulk();
    static KFRIService getAEMImportBulk();
    static KFRIService getInteractionContact();

    // From ServiceCacheModelingPlugin; see platform/heldservices.def for the members.
#define HELD_SERVICE(operation, member) static KFRIService operation();
#include "platform/heldservices.def"
    static KFRSmartPointer<appfw::IRootManagerInterface> getRootManager();

    /// The geometry server's active session.
    static KFRIService getGSCActiveSession();
    static KFRIService getGSCMath();
    /// The geometry plug-in's session.
    static KFRIService getGeomSession();
    static KFRIService getGeomOpeProgress();
    /// The query tool of the geometry session; where that has none, of the server's active session.
    static KFRIService getGSCQueryTool();
    /// The modify tool, found in the same way.
    static KFRIService getGSCModifyTool();
    static KFRIService getTransformService();
    static KFRIService getTrashbin();
    /// The macro recorder of undo and redo.
    static KFRIService getURMacro();
    /// The shell's current viewport.
    static KFRIService getViewport();

    /// The open model of that name; null when there is none.
    static KFRSmartPointer<CAE::IModelInterface> getModelByName(icu::UnicodeString const& name);
    /// The current model.
    /// \throws UserException "No Model!" when there is none, after a line in the validation log.
    static KFRSmartPointer<CAE::IModelInterface> getCurrentModel();

    /// Any service by its name.
    static KFRIService getServiceByName(std::string const& name);

    /// What setServiceProvider stored; kept for callers, and not used for look-ups.
    static KFRIService getServiceProvider();
    static void setServiceProvider(KFRIService const& provider);

    /// Forgets the services that this instance found by name. The stored provider stays.
    void release();
    /// The same for the library's instance. To be called by the owning plug-in before it unloads.
    static void releaseServices();

private:
    ServiceHelper() = default;
    static ServiceHelper& library();
    static KFRIService named(std::string_view name);

    KFRIService getService(std::string_view name);

    btree::btree_map<std::string, KFRIService> m_cache;
    KFRIService m_provider;
};

}  // namespace vrn::orlo::plugin::modeling
