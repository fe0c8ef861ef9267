/// \file
/// Display data manager.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::ddm {

class KFRIDisplay3DDataManager : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.ddm.KFRIDisplay3DDataManager")
};

}  // namespace vrn::orlo::ddm
