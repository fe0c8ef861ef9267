/// \file
/// List objects of references.

#pragma once

#include "platform/appfw/entref.h"
#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::PersistenceFW::CAEData {

/// Reads the references of a list in turn.
class IEntityReferenceIteratorInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceIterator")

    /// Fails, with `reference` as it was, after the last.
    virtual KFRResult next(EntityReference& reference) = 0;
};

/// A list of references that packs them: containers, each named by its owner's reference, and in a
/// container a sequence of ids per type. The form for reading.
class IEntityReferenceConstListInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceConstList")

    virtual KFRSmartPointer<IEntityReferenceIteratorInterface> getIterator() = 0;
    /// The list as its containers. Fails, with `containers` as it was, for a list that has no such
    /// form.
    virtual KFRResult getContainers(vrn::orlo::appfw::IEntRefSequence& containers) = 0;
};

/// The form that can be added to.
class IEntityReferenceListInterface : public IEntityReferenceConstListInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceList")
    using Extends = IEntityReferenceConstListInterface;

    virtual KFRResult add(EntityReference const& reference) = 0;
    virtual KFRResult addContainer(
        KFRSmartPointer<vrn::orlo::appfw::IEntRefInterface> const& container) = 0;
};

class IEntityReferenceListFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceListFactory")

    /// A list whose order is its own.
    virtual KFRSmartPointer<IEntityReferenceListInterface> createList() = 0;
    /// A list that keeps the order in which references are added.
    virtual KFRSmartPointer<IEntityReferenceListInterface> createOrderedList() = 0;
};

}  // namespace KFR::PersistenceFW::CAEData
