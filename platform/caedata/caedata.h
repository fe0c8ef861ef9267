/// \file
/// Persistence framework: session, models, parts.

#pragma once

#include "platform/caedata/guiddata.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

namespace KFR::PersistenceFW::CAEData {

/// Anything that is kept in a model.
class IPersistentObjectInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IPersistentObject")

    virtual KFRResult getIdentifier(GUIDDATA& identifier) = 0;
};

class IPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IPart")
};

class IModelInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IModel")

    /// The part that optimisation works on. Fails, with `part` as it was, where there is none.
    virtual KFRResult getDesignPart(KFRSmartPointer<IPartInterface>& part) = 0;
};

class IPersistenceSessionInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IPersistenceSession")

    virtual KFRResult getCurrentModel(KFRSmartPointer<IModelInterface>& model) = 0;
};

/// Entry to the persistence framework.
class IPFWInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IPFW")

    virtual KFRResult getSession(KFRSmartPointer<IPersistenceSessionInterface>& session) = 0;
    /// Fails, with `model` as it was, for a name that no open model has.
    virtual KFRResult getModelByName(icu::UnicodeString const& name,
                                     KFRSmartPointer<IModelInterface>& model) = 0;
};

/// A list of references that packs them: containers, each named by its owner's reference, and in a
/// container a sequence of ids per type. The form for reading.
class IEntityReferenceConstListInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceConstList")
};

/// The form that can be added to.
class IEntityReferenceListInterface : public IEntityReferenceConstListInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceList")
    using Extends = IEntityReferenceConstListInterface;
};

class IEntityReferenceListFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IEntityReferenceListFactory")
};

}  // namespace KFR::PersistenceFW::CAEData
