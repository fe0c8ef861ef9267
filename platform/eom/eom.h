/// \file
/// Object model.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace KFR::EOM {

class IEOMInstanceInterface;
class IEOMPartInterface;

/// Any object of the object model. One object stands for one persistent object.
///
/// Failure    Here and below: what is not there is a failure, with the last argument as it was.
class IEOMObjectInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMObject")

    virtual CAE::GUIDDATA getGuid() = 0;
    /// False for null.
    virtual bool isSameObject(KFRSmartPointer<IEOMObjectInterface> const& other) = 0;
    virtual KFRResult getPersistentObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface>& object) = 0;
};

using IEOMObjectSequence = KFRSequence<KFRSmartPointer<IEOMObjectInterface>>;
using IEOMInstanceSequence = KFRSequence<KFRSmartPointer<IEOMInstanceInterface>>;

/// Nodes and elements of a part.
class IEOMMeshPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMMeshPart")

    /// An id that no node of the part has. So spelt deliberately: callers link against it.
    virtual KFRResult getNextAvaialbleNodeID(unsigned long long& id) = 0;
    virtual KFRResult isNodeIdFree(unsigned long long id, bool& free) = 0;
};

using IEOMMeshPartSequence = KFRSequence<KFRSmartPointer<IEOMMeshPartInterface>>;

/// The mesh of a geometry body, or one without geometry.
class IEOMMeshBodyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMMeshBody")

    virtual KFRResult getPersistentObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface>& object) = 0;
};

/// A part: geometry and mesh that instances place.
class IEOMPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMPart")

    virtual KFRResult getPersistentObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface>& object) = 0;
    /// In the order of the assembly.
    virtual KFRResult getInstances(IEOMInstanceSequence& instances) = 0;
    virtual KFRResult getMeshParts(IEOMMeshPartSequence& meshParts) = 0;
    virtual KFRResult getChild(std::string const& name,
                               KFRSmartPointer<IEOMObjectInterface>& child) = 0;
};

/// An assembly: instances of parts and of other assemblies.
class IEOMAssemblyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMAssembly")

    /// Those that belong to the assembly itself.
    virtual KFRResult getMeshParts(IEOMMeshPartSequence& meshParts) = 0;
    virtual KFRResult getChild(std::string const& name,
                               KFRSmartPointer<IEOMObjectInterface>& child) = 0;
};

/// A model.
class IEOMModelInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMModel")

    /// The object of a reference.
    virtual KFRResult resolveEntity(CAE::EntityReference const& reference,
                                    KFRSmartPointer<IEOMObjectInterface>& object) = 0;
};

/// What hands out the numbers of points.
class IEOMPointOwnerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMPointOwner")

    virtual KFRResult getNextAvaialbleNodeID(unsigned long long& id) = 0;
    /// \throws KFRException  where the id is taken
    virtual KFRResult assignNodeId(int number, unsigned long long id) = 0;
};

/// A region that is a point.
class IEOMPointInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMPoint")

    /// The number that the point is stored under in its owner.
    virtual KFRResult getStoredNumber(int& number) = 0;
    virtual KFRResult getOwner(KFRSmartPointer<IEOMPointOwnerInterface>& owner) = 0;
};

/// A part or an assembly in its place. The object is an appfw::IEntityInterface as well.
class IEOMInstanceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMInstance")

    /// The part that is placed. Fails, with `part` as it was, for an instance of an assembly.
    virtual KFRResult getPart(KFRIService& part) = 0;
    /// What stands there: a part, an assembly or a mesh part.
    virtual KFRResult getReferenceObject(KFRSmartPointer<IEOMObjectInterface>& object) = 0;
};

/// A face, edge or vertex.
class IEOMGeometryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMGeometry")

    virtual KFRResult getPersistentName(std::string& name) = 0;
};

using IEOMGeometrySequence = KFRSequence<KFRSmartPointer<IEOMGeometryInterface>>;

/// A geometry body.
class IEOMGeomBodyInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMGeomBody")

    virtual KFRResult getPart(KFRSmartPointer<IEOMPartInterface>& part) = 0;
};

/// Makes and finds objects of the object model. The same object answers for its dependencies and
/// its utilities.
class IEOMObjectFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMObjectFactory")

    /// The object that stands for a persistent one.
    virtual KFRResult getEOMObject(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object,
                                   KFRSmartPointer<IEOMObjectInterface>& out) = 0;
};

}  // namespace KFR::EOM
