/// \file
/// Object model.

#pragma once

#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::EOM {

/// A part: geometry and mesh that instances place.
class IEOMPartInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMPart")

    virtual KFRResult getPersistentObject(
        KFRSmartPointer<CAE::IPersistentObjectInterface>& object) = 0;
};

/// A part or an assembly in its place.
class IEOMInstanceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMInstance")

    /// The part that is placed. Fails, with `part` as it was, for an instance of an assembly.
    virtual KFRResult getPart(KFRIService& part) = 0;
};

/// Makes and finds objects of the object model. The same object answers for its dependencies and
/// its utilities.
class IEOMObjectFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.EOM.IEOMObjectFactory")
};

}  // namespace KFR::EOM
