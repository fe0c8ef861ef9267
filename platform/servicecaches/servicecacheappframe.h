/// \file
/// Service pointers of the application frame's own helpers.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace KFR::EOM {
class IEOMObjectFactoryInterface;
}
namespace KFR::PersistenceFW::CAEData {
class IPFWInterface;
}

namespace vrn::orlo::appfw {

class IFrameworkAccessInterface;

/// Holder for the code of the application frame that is compiled into the library. The same rules
/// as for ServiceCacheModelingPlugin.
class KFR_API ServiceCacheAppFrame {
public:
    static KFRSmartPointer<KFR::EOM::IEOMObjectFactoryInterface> eomObjectFactory_;
    static KFRSmartPointer<IFrameworkAccessInterface> frameworkAccess_;
    static KFRSmartPointer<KFR::PersistenceFW::CAEData::IPFWInterface> PFW_;

    /// Makes every member null.
    static void releaseAll() noexcept;
};

}  // namespace vrn::orlo::appfw
