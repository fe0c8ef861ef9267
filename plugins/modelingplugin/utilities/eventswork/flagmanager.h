/// \file
/// The flags that hold back updates.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Two flags of the process that the clients of events ask before they do their updates.
///
/// Threads    Main thread, no lock.
class MODELING_API FlagManager {
public:
    static FlagManager* instance();
    FlagManager(FlagManager const&) = delete;
    FlagManager& operator=(FlagManager const&) = delete;

    /// While set, clients skip their updates.
    void ignoreEventUpdate(bool ignore) { m_ignoreEventUpdate = ignore; }
    [[nodiscard]] bool isIgnoreEventUpdate() const { return m_ignoreEventUpdate; }
    /// Set while a renumbering runs.
    void renumbering(bool running) { m_renumbering = running; }
    [[nodiscard]] bool isRenumbering() const { return m_renumbering; }
    /// Whether either flag is set.
    [[nodiscard]] bool isUpdatedSetted() const { return m_ignoreEventUpdate || m_renumbering; }
    void reset();

    /// Sets the first flag for the rest of the running command: it falls when the GUI executive
    /// comes to its queue. Without an executive it stays.
    void ignoreEventUpdateInCommand();

private:
    FlagManager() = default;

    bool m_ignoreEventUpdate = false;
    bool m_renumbering = false;
};

}  // namespace vrn::orlo::plugin::modeling
