/// \file
/// Services of the modeling plug-in's other libraries.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::modeling {

class KFRIBizLogicInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.modeling.KFRIBizLogic")
};

class KFRICommonServiceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.modeling.KFRICommonService")
};

class IEntityFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.modeling.IEntityFactory")
};

}  // namespace vrn::orlo::plugin::modeling
