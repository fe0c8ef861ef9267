/// \file
/// Object model.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::EOM {

/// Makes and finds objects of the object model. The same object answers for its dependencies and
/// its utilities.
class IEOMObjectFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMObjectFactory")
};

}  // namespace KFR::EOM
