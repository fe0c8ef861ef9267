/// \file
/// Legacy interface of the solver family.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::AEM::Legacy::IFPStar {

class KFRIAEMIFPStarInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.AEM.Legacy.IFPStar.KFRIAEMIFPStar")
};

}  // namespace KFR::AEM::Legacy::IFPStar
