/// \file
/// Persistence framework: session, models, parts.

#pragma once

#include "platform/caedata/entityreference.h"
#include "platform/caedata/guiddata.h"
#include "platform/caedata/meshdata.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <string>

namespace KFR::PersistenceFW::CAEData {

class IInstanceInterface;

/// Anything that is kept in a model.
///
/// Failure    Here and below: what is not there is a failure, with the last argument as it was.
class IPersistentObjectInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IPersistentObject")

    virtual KFRResult getIdentifier(GUIDDATA& identifier) = 0;
    /// The object that contains this one.
    virtual KFRResult getParent(KFRSmartPointer<IPersistentObjectInterface>& parent) = 0;
    /// Whether the object has been taken out of its model.
    virtual KFRResult isDeleted(bool& deleted) = 0;
};

using IPersistentObjectSequence = KFRSequence<KFRSmartPointer<IPersistentObjectInterface>>;
using IGeometrySequence = KFRSequence<KFRSmartPointer<IGeometryInterface>>;
using IGeomBodySequence = KFRSequence<KFRSmartPointer<IGeomBodyInterface>>;
using IInstanceSequence = KFRSequence<KFRSmartPointer<IInstanceInterface>>;

class IPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IPart")

    virtual KFRResult getMeshBodies(IMeshBodySequence& bodies) = 0;
    /// The places where the part stands, in the order of the assembly.
    virtual KFRResult getInstances(IInstanceSequence& instances) = 0;
    virtual KFRResult getMeshParts(IMeshPartSequence& meshParts) = 0;
    /// Geometry bodies in the order of their numbers, then mesh bodies without geometry.
    virtual KFRResult getBodies(IPersistentObjectSequence& bodies) = 0;
};

using IPartSequence = KFRSequence<KFRSmartPointer<IPartInterface>>;

/// A part or an assembly in its place.
class IInstanceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IInstance")

    /// What stands there: a part or an assembly.
    virtual KFRResult getReferenceObject(KFRSmartPointer<IPersistentObjectInterface>& object) = 0;
};

/// A body, volume, face, edge or vertex.
class IGeometryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IGeometry")

    /// A name that is the same after the same file has been read again.
    virtual KFRResult getPersistentName(std::string& name) = 0;
    /// The body that the geometry belongs to; a body's own is itself.
    virtual KFRResult getOwningBody(KFRSmartPointer<IGeometryInterface>& body) = 0;
    /// The entity that displays the geometry, and the geometry's number within it.
    virtual KFRResult getDisplayEntity(EntityReference& entity, unsigned int& number) = 0;
    /// The entity's number in the geometry server.
    virtual KFRResult getNumber(int& number) = 0;
    /// The meshes whose elements lie on the entity itself; of a body all of its own.
    virtual KFRResult getMeshes(IMeshSequence& meshes) = 0;
    /// Whether nodes lie on the entity, be they of its own elements or of a mesh that it bounds.
    virtual KFRResult isMeshed(bool& meshed) = 0;
};

/// A body. The object is an IGeometryInterface as well.
class IGeomBodyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IGeomBody")

    virtual KFRResult getMeshBodies(IMeshBodySequence& bodies) = 0;
    /// The body's number in the geometry server.
    virtual KFRResult getNumber(int& number) = 0;
};

class IMaterialInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IMaterial")
};

class ISectionPropertyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.ISectionProperty")
};

class IBehaviorPropertyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IBehaviorProperty")
};

using IMaterialSequence = KFRSequence<KFRSmartPointer<IMaterialInterface>>;
using ISectionPropertySequence = KFRSequence<KFRSmartPointer<ISectionPropertyInterface>>;
using IBehaviorPropertySequence = KFRSequence<KFRSmartPointer<IBehaviorPropertyInterface>>;

class IModelInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.PersistenceFW.CAEData.IModel")

    /// The part that optimisation works on. Fails, with `part` as it was, where there is none.
    virtual KFRResult getDesignPart(KFRSmartPointer<IPartInterface>& part) = 0;
    /// An id that no node of the model has. So spelt deliberately: callers link against it.
    virtual KFRResult getNextAvaialbleNodeID(unsigned long long& id) = 0;
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

}  // namespace KFR::PersistenceFW::CAEData
