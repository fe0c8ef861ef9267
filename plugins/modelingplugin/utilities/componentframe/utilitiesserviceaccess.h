/// \file
/// The component's service-access interface.

#pragma once

#include "platform/kfr/kfrframework.h"

namespace vrn::orlo::plugin::modeling {

/// Service access of the component; adds no operation.
class KFRIUtilitiesServiceAccess : public KFR::Framework::KFRIServiceAccess {
    KFR_INTERFACE_ID("vrn.orlo.plugin.modeling.KFRIUtilitiesServiceAccess", 0x1ddf3037966e36f3ULL,
                     0xa7ffd8e54160cbd8ULL)
    using Extends = KFR::Framework::KFRIServiceAccess;
};

}  // namespace vrn::orlo::plugin::modeling
