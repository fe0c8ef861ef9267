/// \file
/// Unit services.

#pragma once

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::Util::Units {

class KFRIUnitsInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Util.Units.KFRIUnits")
};

}  // namespace KFR::Util::Units
