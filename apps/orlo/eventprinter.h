/// \file
/// A client of the event hub that tells what arrives.

#pragma once

#include "host/kernel/eventmanager.h"
#include "plugins/modelingplugin/utilities/eventswork/ikfreventhandler.h"

#include <string>
#include <vector>

namespace vrn::orlo::app {

/// Prints each event of its domains: "event DOMAIN ID payload". Has the display refreshed when an
/// entity has changed, as a panel would: not while updates are held back, and through the queue.
///
/// Threads    Main thread.
class EventPrinter final : public plugin::modeling::IKFREventHandler {
public:
    /// Name under which the display is refreshed.
    static constexpr char const* kDisplay = "orlo.parts";

    /// Listens to entities, to commands and to their history.
    explicit EventPrinter(host::kernel::EventManager& events);
    EventPrinter(EventPrinter const&) = delete;
    EventPrinter& operator=(EventPrinter const&) = delete;
    ~EventPrinter();

    bool handle(long long domain, KFREvent const& event) override;

    /// What the last command that failed said; empty when none did. Forgotten by the call.
    [[nodiscard]] std::string takeFailure();

private:
    host::kernel::EventManager& m_events;
    std::vector<long long> m_domains;
    std::string m_failure;
    bool m_refreshIsDue = false;
};

}  // namespace vrn::orlo::app
