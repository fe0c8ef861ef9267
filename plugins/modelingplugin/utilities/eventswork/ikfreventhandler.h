/// \file
/// A client of the event hub.

#pragma once

#include "platform/kfr/kfrevent.h"

namespace vrn::orlo::plugin::modeling {

/// Hears the events of the domains that it was added for.
///
/// Ownership  The hub does not own its clients: a client removes itself before it goes.
/// Threads    Called on the thread that delivers the event.
class IKFREventHandler {
public:
    /// May add and remove clients, itself included, and publish. What it throws goes to the caller
    /// of EventHandler::handleEvent, and the clients after it are left out.
    /// \return not used
    virtual bool handle(long long domain, KFREvent const& event) = 0;

protected:
    IKFREventHandler() = default;
    IKFREventHandler(IKFREventHandler const&) = default;
    IKFREventHandler& operator=(IKFREventHandler const&) = default;
    ~IKFREventHandler() = default;  // never deleted through this interface
};

}  // namespace vrn::orlo::plugin::modeling
