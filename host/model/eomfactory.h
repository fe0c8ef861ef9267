/// \file
/// Finds objects of the object model.

#pragma once

#include "platform/eom/eom.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>

namespace vrn::orlo::host::model {

/// An object of the host is persistent object and object of the object model in one, so that what
/// stands for it is itself.
///
/// Failure    KFR::notDone for null, for an object of another maker, and for a deleted one.
/// Threads    Main thread.
class EomObjectFactory final : public KFRServiceObjectImpl<KFR::EOM::IEOMObjectFactoryInterface> {
public:
    KFRResult getEOMObject(KFRSmartPointer<CAE::IPersistentObjectInterface> const& object,
                           KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& out) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:EomObjectFactory"; }
};

}  // namespace vrn::orlo::host::model
