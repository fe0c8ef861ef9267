/// \file
/// One run of the application: the host, the component in it, and the plug-in that owns the
/// component.

#pragma once

#include "apps/orlo/modelingplugin.h"
#include "host/application/application.h"
#include "host/kernel/componentloader.h"
#include "host/kernel/kernel.h"
#include "host/modelspace/modelspace.h"
#include "host/units/unitservices.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::app {

/// What the command line says for all verbs.
struct SessionOptions {
    /// Least level of what is logged; none leaves that to the settings and the environment.
    std::optional<int> m_logLevel;
    /// Subsystems that the debug log is limited to, with '|' between them; empty for all.
    std::string m_logScope;
    std::filesystem::path m_logFolder;   ///< For log files; empty for the program's own.
    std::vector<std::string> m_answers;  ///< To boxes, in their order.
};

/// Starts the host, loads the component and asks for its service, which connects the library's
/// classes with the host's services; and takes all that down again in the order that the library
/// asks for.
///
/// Failure    What the host throws when the component or the resources cannot be loaded.
/// Threads    Main thread; one session at a time.
class Session {
public:
    explicit Session(SessionOptions const& options = {});
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;
    ~Session();

    [[nodiscard]] host::kernel::Kernel& kernel() noexcept { return *m_kernel; }
    [[nodiscard]] host::units::UnitServices& units() noexcept { return *m_units; }
    [[nodiscard]] host::application::Application& application() noexcept { return *m_application; }
    /// Where models are opened.
    [[nodiscard]] host::modelspace::ModelSpace& space() noexcept { return *m_space; }
    [[nodiscard]] host::kernel::Component const& component() const noexcept { return *m_component; }

    /// Whether the component's service answered.
    [[nodiscard]] bool isConnected() const noexcept { return m_connected; }

private:
    std::unique_ptr<host::kernel::Kernel> m_kernel;
    KFRSmartPointer<host::units::UnitServices> m_units;
    std::unique_ptr<host::application::Application> m_application;
    std::unique_ptr<host::modelspace::ModelSpace> m_space;
    std::unique_ptr<ModelingPlugin> m_plugin;
    host::kernel::Component const* m_component = nullptr;
    bool m_connected = false;
};

}  // namespace vrn::orlo::app
