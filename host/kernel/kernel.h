/// \file
/// The kernel of the application.

#pragma once

#include "host/kernel/componentloader.h"
#include "host/kernel/logger.h"
#include "host/kernel/serviceregistry.h"
#include "host/kernel/typeregistry.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {

/// Starts the framework's part of the application and ends it in order.
///
/// From its construction on there is a logger, a service registry with the type registry in it, and
/// the holders ServiceCacheModelingPlugin and ServiceCacheAppFrame know the service access and the
/// system utilities. The other modules register their services with services(), assign their
/// members of the holders directly, and then components are loaded.
///
/// Failure    std::logic_error for a second kernel beside a living one.
/// Ownership  Owns the registry's content and empties the holders, whoever filled them.
/// Threads    Main thread; services() and typeRegistry() give objects for any thread.
class Kernel {
public:
    struct Options {
        LogLevel m_logLevel = LogLevel::warning;
        /// Makes the type ids repeatable.
        std::optional<std::uint32_t> m_typeRegistrySeed;
    };

    explicit Kernel(Options const& options);
    Kernel() : Kernel(Options{LogLevel::warning, std::nullopt}) {}
    Kernel(Kernel const&) = delete;
    Kernel& operator=(Kernel const&) = delete;
    /// Stops, if that is still to be done.
    ~Kernel();

    /// Loads a component, and has it publish its services.
    ///
    /// Failure    ComponentError, also for a component that is loaded already, and after stop().
    /// Ownership  The answer holds as long as the kernel.
    /// \param path  a path, or a plain file name for the system's library search
    Component const& loadComponent(std::string const& path);

    /// The loaded components in the order of loading.
    [[nodiscard]] std::deque<Component> const& components() const noexcept { return m_components; }

    [[nodiscard]] ServiceRegistry& services() noexcept { return *m_services; }
    [[nodiscard]] TypeRegistry& typeRegistry() noexcept { return *m_typeRegistry; }

    /// Releases the instances in reverse order of their making, then makers and factories, empties
    /// the holders and takes the kernel away from the framework. A second call does nothing.
    /// \return names of the objects that the framework was to see gone and that are still there;
    ///         they are logged as well. Empty on a second call.
    std::vector<std::string> stop();

private:
    /// The one place for a kernel in a process.
    class Place {
    public:
        Place();
        Place(Place const&) = delete;
        Place& operator=(Place const&) = delete;
        ~Place();
    };

    Place m_place;
    KFRSmartPointer<Logger> m_logger;
    KFRSmartPointer<TypeRegistry> m_typeRegistry;
    KFRSmartPointer<ServiceRegistry> m_services;
    std::deque<Component> m_components;
    bool m_stopped = false;
};

}  // namespace vrn::orlo::host::kernel
