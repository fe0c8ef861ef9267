/// \file
/// The typed name under which a client may ask the framework for the library's service.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::modeling {

/// Has no operation beyond the root's.
class KFRIModelingUtilitiesInterface : public KFRIServiceInterface {
    KFR_INTERFACE_ID("vrn.orlo.plugin.modeling.KFRIModelingUtilities", 0x2446605f161730c1ULL,
                     0x8e40f8b0433fc39eULL)
};

}  // namespace vrn::orlo::plugin::modeling
