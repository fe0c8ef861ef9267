/// \file
/// The event manager and its listeners.

#pragma once

#include "platform/kfr/kfrevent.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace KFR::Framework {

/// Called by the event manager for each event of a subscribed domain.
class KFRIEventListenerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIEventListener")

    virtual KFRResult handleEvent(KFREvent const& event) = 0;
};

/// Which events a listener wants, where a list of ids of one domain does not say it.
struct EventFilter {
    long long domain = 0;
    KFRSequence<int> events;  ///< Empty for all of the domain.
};

/// The application's event manager: domains are 64-bit ids made from names.
class KFRIEventManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIEventManager")

    virtual KFRResult createDomainID(std::string const& name, long long& id) = 0;
    /// Fails for a domain that nobody has created; `id` stays.
    virtual KFRResult getDomainID(std::string const& name, long long& id) = 0;
    /// Id of the channel of the graphical surface.
    virtual KFRResult getChannelID(long long& id) = 0;
    /// \param mode  passed through; the library always says 2
    virtual KFRResult addListener(long long domain,
                                  KFRSmartPointer<KFRIEventListenerInterface> const& listener,
                                  int mode, KFRSequence<int> const& events) = 0;
    virtual KFRResult addListener(EventFilter const& filter,
                                  KFRSmartPointer<KFRIEventListenerInterface> const& listener) = 0;
    virtual KFRResult addChannelListener(
        long long channel, KFRSmartPointer<KFRIEventListenerInterface> const& listener,
        int mode) = 0;
    virtual KFRResult removeListener(
        long long domain, KFRSmartPointer<KFRIEventListenerInterface> const& listener) = 0;
    /// \param flag  passed through; the library always says 0
    virtual KFRResult publishEvent(KFREvent const& event, int flag) = 0;
    /// \param flag  passed through; the library always says 1
    virtual KFRResult fireEvent(KFREvent const& event, int flag,
                                KFRSmartPointer<KFRIEventListenerInterface> const& listener) = 0;
};

}  // namespace KFR::Framework

using KFR::Framework::KFRIEventListenerInterface;
using KFR::Framework::KFRIEventManagerInterface;
