/// \file
/// Base plug-in: what all entities that commands create have in common.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

namespace vrn::orlo::plugin::baseplugin {

/// The object is an appfw::IEntityInterface as well.
///
/// Failure    What is not there: a failure, with the argument as it was.
class IBaseEntityInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.baseplugin.IBaseEntity")

    virtual KFRResult getName(icu::UnicodeString& name) = 0;
    virtual KFRResult getParent(KFRSmartPointer<appfw::IEntityInterface>& parent) = 0;
    /// The flag that tells groups of one kind and parent apart.
    virtual KFRResult getFlag(bool& flag) = 0;
};

}  // namespace vrn::orlo::plugin::baseplugin
