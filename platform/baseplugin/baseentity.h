/// \file
/// Base plug-in: what all entities that commands create have in common. Known by its name only;
/// operations are added with the class that first calls them.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::baseplugin {

class IBaseEntityInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.baseplugin.IBaseEntity")
};

}  // namespace vrn::orlo::plugin::baseplugin
