/// \file
/// Service pointers that other libraries of the plug-in fill before this one runs.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::Framework {
class KFRIConfigurationManagerInterface;
class KFRIServiceAccess;
}  // namespace KFR::Framework
namespace KFR::MXP {
class KFRIDOMParserInterface;
}
namespace KFR::Util::SystemUtils {
class KFRIFileUtilsInterface;
class KFRIPathUtilsInterface;
}  // namespace KFR::Util::SystemUtils
namespace KFR::Util::Units {
class KFRIUnitsInterface;
}
namespace KFR::EOM {
class IEOMObjectFactoryInterface;
}
namespace KFR::PersistenceFW::CAEData {
class IEntityReferenceListFactoryInterface;
class IPFWInterface;
}  // namespace KFR::PersistenceFW::CAEData
namespace vrn::orlo::plugin::study {
class IStudyEntityFactoryInterface;
}
namespace vrn::orlo::appfw {
class ICmdProcessorInterface;
class IEntityAssociationManagerInterface;
class IEntRefContainerFactoryInterface;
class IFrameworkAccessInterface;
class IInterfaceAdapterManagerInterface;
class IMetaDataManagerInterface;
class IObjectPropertiesManagerInterface;
class IObjectReferenceUtilitiesInterface;
class IPivotManagerInterface;
class IRootManagerInterface;
class ISelectionManagerInterface;
class ITypeBufferInterface;
class IURFactoryInterface;
class KFRIColorManagerInterface;
class KFRIPluginMgrInterface;
class KFRITransactionBrokerFactoryInterface;
class KFRITrashBinFactoryInterface;
}  // namespace vrn::orlo::appfw

namespace vrn::orlo::plugin::modeling {

/// Holder of the services that are used too often for a look-up by name. Its own library fills it;
/// here it is only read.
///
/// Ownership  The smart pointers keep their services alive; who fills the holder empties it before
///            the services end. `kfrServiceAccess_` is not counted.
/// Threads    Filled and emptied on the main thread, while nobody reads.
class KFR_API ServiceCacheModelingPlugin {
public:
    // clang-format off
    static KFRSmartPointer<KFR::MXP::KFRIDOMParserInterface>                   DOMParser_;
    static KFRSmartPointer<study::IStudyEntityFactoryInterface>                studyEntityFactory_;
    static KFRSmartPointer<appfw::KFRITransactionBrokerFactoryInterface>       transactionBrokerFactory_;
    static KFRSmartPointer<appfw::IURFactoryInterface>                         undoRedoFactory_;
    static KFRSmartPointer<appfw::KFRITrashBinFactoryInterface>                trashBinFactory_;
    static KFRSmartPointer<appfw::KFRIPluginMgrInterface>                      pluginMgr_;
    static KFRSmartPointer<appfw::IPivotManagerInterface>                      pivotManager_;
    static KFRSmartPointer<appfw::IObjectPropertiesManagerInterface>           objectPropertiesManager_;
    static KFRSmartPointer<appfw::IEntityAssociationManagerInterface>          entityAssociationManager_;
    static KFRSmartPointer<appfw::KFRIColorManagerInterface>                   colorManager_;
    static KFRSmartPointer<appfw::ITypeBufferInterface>                        typeBuffer_;
    static KFRSmartPointer<appfw::IMetaDataManagerInterface>                   metaDataManager_;
    static KFRSmartPointer<appfw::IObjectReferenceUtilitiesInterface>          entRefUtil_;
    static KFRSmartPointer<appfw::ICmdProcessorInterface>                      commandProcessor_;
    static KFRSmartPointer<KFR::Framework::KFRIConfigurationManagerInterface>  configMgr_;
    static KFRSmartPointer<KFR::Util::SystemUtils::KFRIPathUtilsInterface>     pathUtils_;
    static KFRSmartPointer<KFR::Util::SystemUtils::KFRIFileUtilsInterface>     fileUtils_;
    static KFRSmartPointer<KFR::Util::Units::KFRIUnitsInterface>               kfrUnitsSvc_;
    static KFRSmartPointer<KFR::PersistenceFW::CAEData::IEntityReferenceListFactoryInterface>
                                                                               entRefListFactory_;
    static KFRSmartPointer<KFR::EOM::IEOMObjectFactoryInterface>               eomObjectFactory_;
    static KFRSmartPointer<KFR::PersistenceFW::CAEData::IPFWInterface>         PFW_;
    static KFRSmartPointer<appfw::IEntRefContainerFactoryInterface>            entRefContainerFactory_;
    static KFRSmartPointer<appfw::IInterfaceAdapterManagerInterface>           adapterManager_;
    static KFRSmartPointer<appfw::IRootManagerInterface>                       rootManager_;
    static KFRSmartPointer<appfw::ISelectionManagerInterface>                  selectionManager_;
    static KFRSmartPointer<appfw::IEntRefContainerFactoryInterface>            entRefFactory_;
    static KFRSmartPointer<appfw::IFrameworkAccessInterface>                   frameworkAccess_;
    static KFR::Framework::KFRIServiceAccess*                                  kfrServiceAccess_;
    // clang-format on

    /// Makes every member null.
    static void releaseAll() noexcept;
};

}  // namespace vrn::orlo::plugin::modeling
