/// \file
/// Study plug-in.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::study {

class IStudyEntityFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.study.IStudyEntityFactory")
};

}  // namespace vrn::orlo::plugin::study
