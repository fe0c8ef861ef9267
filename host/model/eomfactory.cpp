#include "host/model/eomfactory.h"

#include "host/model/modelobject.h"

namespace vrn::orlo::host::model {

KFRResult EomObjectFactory::getEOMObject(
    KFRSmartPointer<CAE::IPersistentObjectInterface> const& object,
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& out)
{
    auto const found = KFR::loose_cast<KFR::EOM::IEOMObjectInterface>(object);
    if (found == KFR::NULLSP || isDeleted(found)) {
        return KFR::notDone;
    }
    out = found;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::model
