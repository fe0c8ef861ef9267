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

using IEOMInstanceSequence = KFRSequence<KFRSmartPointer<IEOMInstanceInterface>>;

/// A part: geometry and mesh that instances place.
class IEOMPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMPart")

    virtual KFRResult getPersistentObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface>& object) = 0;
    /// In the order of the assembly.
    virtual KFRResult getInstances(IEOMInstanceSequence& instances) = 0;
};

/// A part or an assembly in its place. The object is an appfw::IEntityInterface as well.
class IEOMInstanceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMInstance")

    /// The part that is placed. Fails, with `part` as it was, for an instance of an assembly.
    virtual KFRResult getPart(KFRIService& part) = 0;
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
