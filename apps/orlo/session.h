/// \file
/// One run of the application: the host, the component in it, and the plug-in that owns the
/// component.

#pragma once

#include "host/kernel/componentloader.h"
#include "host/kernel/kernel.h"
#include "host/units/unitservices.h"

#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::app {

/// Starts the host, loads the component and asks for its service, which connects the library's
/// classes with the host's services; and takes all that down again in the order that the library
/// asks for.
///
/// Failure    What the host throws when the component cannot be loaded.
/// Threads    Main thread; one session at a time.
class Session {
public:
    explicit Session(host::kernel::Kernel::Options const& options = {});
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;
    ~Session();

    [[nodiscard]] host::kernel::Kernel& kernel() noexcept { return *m_kernel; }
    [[nodiscard]] host::units::UnitServices& units() noexcept { return *m_units; }
    [[nodiscard]] host::kernel::Component const& component() const noexcept { return *m_component; }

    /// Whether the component's service answered.
    [[nodiscard]] bool isConnected() const noexcept { return m_connected; }

private:
    std::unique_ptr<host::kernel::Kernel> m_kernel;
    KFRSmartPointer<host::units::UnitServices> m_units;
    host::kernel::Component const* m_component = nullptr;
    bool m_connected = false;
};

}  // namespace vrn::orlo::app
