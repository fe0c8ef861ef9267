#include "platform/appfw/appfw.h"
#include "platform/appfw/commands.h"
#include "platform/appfw/entity.h"
#include "platform/appfw/entref.h"
#include "platform/appfw/frameworkaccess.h"
#include "platform/appfw/selection.h"
#include "platform/appfw/transactions.h"
#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreferencelist.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfrframework.h"
#include "platform/mxp/domparser.h"
#include "platform/servicecaches/servicecacheappframe.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "platform/study/study.h"
#include "platform/sysutils/sysutils.h"
#include "platform/units/units.h"

namespace vrn::orlo::plugin::modeling {

using Holder = ServiceCacheModelingPlugin;

// clang-format off
constinit KFRSmartPointer<KFR::MXP::KFRIDOMParserInterface>                                  Holder::DOMParser_;
constinit KFRSmartPointer<study::IStudyEntityFactoryInterface>                               Holder::studyEntityFactory_;
constinit KFRSmartPointer<appfw::KFRITransactionBrokerFactoryInterface>                      Holder::transactionBrokerFactory_;
constinit KFRSmartPointer<appfw::IURFactoryInterface>                                        Holder::undoRedoFactory_;
constinit KFRSmartPointer<appfw::KFRITrashBinFactoryInterface>                               Holder::trashBinFactory_;
constinit KFRSmartPointer<appfw::KFRIPluginMgrInterface>                                     Holder::pluginMgr_;
constinit KFRSmartPointer<appfw::IPivotManagerInterface>                                     Holder::pivotManager_;
constinit KFRSmartPointer<appfw::IObjectPropertiesManagerInterface>                          Holder::objectPropertiesManager_;
constinit KFRSmartPointer<appfw::IEntityAssociationManagerInterface>                         Holder::entityAssociationManager_;
constinit KFRSmartPointer<appfw::KFRIColorManagerInterface>                                  Holder::colorManager_;
constinit KFRSmartPointer<appfw::ITypeBufferInterface>                                       Holder::typeBuffer_;
constinit KFRSmartPointer<appfw::IMetaDataManagerInterface>                                  Holder::metaDataManager_;
constinit KFRSmartPointer<appfw::IObjectReferenceUtilitiesInterface>                         Holder::entRefUtil_;
constinit KFRSmartPointer<appfw::ICmdProcessorInterface>                                     Holder::commandProcessor_;
constinit KFRSmartPointer<KFR::Framework::KFRIConfigurationManagerInterface>                 Holder::configMgr_;
constinit KFRSmartPointer<KFR::Util::SystemUtils::KFRIPathUtilsInterface>                    Holder::pathUtils_;
constinit KFRSmartPointer<KFR::Util::SystemUtils::KFRIFileUtilsInterface>                    Holder::fileUtils_;
constinit KFRSmartPointer<KFR::Util::Units::KFRIUnitsInterface>                              Holder::kfrUnitsSvc_;
constinit KFRSmartPointer<KFR::PersistenceFW::CAEData::IEntityReferenceListFactoryInterface> Holder::entRefListFactory_;
constinit KFRSmartPointer<KFR::EOM::IEOMObjectFactoryInterface>                              Holder::eomObjectFactory_;
constinit KFRSmartPointer<KFR::PersistenceFW::CAEData::IPFWInterface>                        Holder::PFW_;
constinit KFRSmartPointer<appfw::IEntRefContainerFactoryInterface>                           Holder::entRefContainerFactory_;
constinit KFRSmartPointer<appfw::IInterfaceAdapterManagerInterface>                          Holder::adapterManager_;
constinit KFRSmartPointer<appfw::IRootManagerInterface>                                      Holder::rootManager_;
constinit KFRSmartPointer<appfw::ISelectionManagerInterface>                                 Holder::selectionManager_;
constinit KFRSmartPointer<appfw::IEntRefContainerFactoryInterface>                           Holder::entRefFactory_;
constinit KFRSmartPointer<appfw::IFrameworkAccessInterface>                                  Holder::frameworkAccess_;
constinit KFR::Framework::KFRIServiceAccess* Holder::kfrServiceAccess_ = nullptr;
// clang-format on

void ServiceCacheModelingPlugin::releaseAll() noexcept
{
    auto const release = [](auto&... members) {
        (members.release(), ...);
    };
    release(DOMParser_, studyEntityFactory_, transactionBrokerFactory_, undoRedoFactory_,
            trashBinFactory_, pluginMgr_, pivotManager_, objectPropertiesManager_,
            entityAssociationManager_, colorManager_, typeBuffer_, metaDataManager_, entRefUtil_,
            commandProcessor_, configMgr_, pathUtils_, fileUtils_, kfrUnitsSvc_, entRefListFactory_,
            eomObjectFactory_, PFW_, entRefContainerFactory_, adapterManager_, rootManager_,
            selectionManager_, entRefFactory_, frameworkAccess_);
    kfrServiceAccess_ = nullptr;
}

}  // namespace vrn::orlo::plugin::modeling

namespace vrn::orlo::appfw {

constinit KFRSmartPointer<KFR::EOM::IEOMObjectFactoryInterface>
    ServiceCacheAppFrame::eomObjectFactory_;
constinit KFRSmartPointer<IFrameworkAccessInterface> ServiceCacheAppFrame::frameworkAccess_;
constinit KFRSmartPointer<KFR::PersistenceFW::CAEData::IPFWInterface> ServiceCacheAppFrame::PFW_;

void ServiceCacheAppFrame::releaseAll() noexcept
{
    eomObjectFactory_.release();
    frameworkAccess_.release();
    PFW_.release();
}

}  // namespace vrn::orlo::appfw
