/// \file
/// Reference containers: many sub-entities of one owner in one object.

#pragma once

#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::appfw {

class IEntityInterface;

/// An owner with lists of ids by type.
///
/// Order      Types by their first addition; ids of a type as added, each as often as added.
/// Failure    What is not there: a failure, with the last argument as it was.
class IEntRefInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IEntRef")

    /// Reference of the owner.
    virtual KFRResult getOwner(CAE::EntityReference& owner) = 0;
    virtual KFRResult getTypes(KFRSequence<unsigned int>& typeIds) = 0;
    virtual KFRResult getIds(unsigned int typeId, KFRSequence<unsigned int>& ids) = 0;
    /// The full reference of an id of the container.
    virtual KFRResult getReference(unsigned int typeId, unsigned int id,
                                   CAE::EntityReference& reference) = 0;
    /// The entity of an id of the container.
    virtual KFRResult getEntity(unsigned int typeId, unsigned int id,
                                KFRSmartPointer<IEntityInterface>& entity) = 0;
    /// \param subIds  one for each id, or none
    virtual KFRResult addIds(unsigned int typeId, KFRSequence<unsigned int> const& ids,
                             KFRSequence<unsigned int> const& subIds) = 0;
};

using IEntRefSequence = KFRSequence<KFRSmartPointer<IEntRefInterface>>;

/// Makes and finds containers. An owner is given by the words of its reference.
class IEntRefContainerFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IEntRefContainerFactory")

    /// The container that was made for this owner and is still there; null when there is none.
    virtual KFRSmartPointer<IEntRefInterface> find(KFRIService const& owner, unsigned int typeId,
                                                   unsigned int id, unsigned int subId) = 0;
    /// \param empty  1: the container starts empty
    virtual KFRSmartPointer<IEntRefInterface> create(KFRIService const& owner, unsigned int typeId,
                                                     unsigned int id, unsigned int subId,
                                                     int empty) = 0;
};

}  // namespace vrn::orlo::appfw
