/// \file
/// Entities: the objects of the model as the user meets them.

#pragma once

#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace vrn::orlo::appfw {

class IEntityInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IEntity")

    virtual CAE::EntityReference getEntityReference() = 0;
    /// Changes a property at once, with nothing to undo. Fails, and changes nothing, for a property
    /// that the entity does not have and for a value of another kind.
    virtual KFRResult setProperty(std::string const& name, KFRAny const& value) = 0;
    /// Fails, with `value` as it was, for a property that the entity does not have.
    virtual KFRResult getProperty(std::string const& name, KFRAny& value) = 0;
};

using IEntities = KFRSequence<KFRSmartPointer<IEntityInterface>>;

/// An entity that can be told something by name.
class IEntityNotificationInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IEntityNotification")

    virtual KFRResult notify(std::string const& name, KFRAny const& arguments) = 0;
};

/// Finds entities.
class IRootManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IRootManager")

    /// The entity of a reference; null when there is none.
    virtual KFRSmartPointer<IEntityInterface> getEntity(CAE::EntityReference const& reference) = 0;
};

}  // namespace vrn::orlo::appfw
