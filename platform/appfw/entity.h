/// \file
/// Entities: the objects of the model as the user meets them.

#pragma once

#include "platform/caedata/caedata.h"
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

/// An entity that stands for an object of the persistence framework.
class IPFWSupportInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IPFWSupport")

    virtual KFRResult getPFWObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface>& object) = 0;
};

/// A list object of entities.
class IEntityListInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IEntityList")

    virtual KFRResult getEntities(IEntities& entities) = 0;
};

/// Finds entities. The same object is the interface adapter manager.
class IRootManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IRootManager")

    /// The entity of a reference; null when there is none.
    virtual KFRSmartPointer<IEntityInterface> getEntity(CAE::EntityReference const& reference) = 0;
    /// The entity of an object of the object model; null when there is none.
    virtual KFRSmartPointer<IEntityInterface> getEntityOfObject(KFRIService const& object) = 0;
    virtual KFRSmartPointer<IEntityListInterface> createEntityList(IEntities const& entities) = 0;
};

/// What the application takes for the same entity, over the whole of a reference.
class IInterfaceAdapterManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IInterfaceAdapterManager")

    virtual bool equals(CAE::EntityReference const& left, CAE::EntityReference const& right) = 0;
    /// A strict weak order that fits equals.
    virtual bool lessThan(CAE::EntityReference const& left, CAE::EntityReference const& right) = 0;
    /// A hash that fits equals.
    virtual int hashCode(CAE::EntityReference const& reference) = 0;
};

}  // namespace vrn::orlo::appfw
