/// \file
/// The plug-in that owns the component.

#pragma once

#include "host/kernel/kernel.h"

#include <filesystem>

namespace vrn::orlo::app {

/// Connects the library with the application, as the owning plug-in has to: hands events to the
/// library's hub, starts logs and texts, and takes all that back.
///
/// Threads    Main thread.
class ModelingPlugin {
public:
    /// Registers the plug-in's services. Before the component is loaded.
    explicit ModelingPlugin(host::kernel::Kernel& kernel);
    ModelingPlugin(ModelingPlugin const&) = delete;
    ModelingPlugin& operator=(ModelingPlugin const&) = delete;
    /// Stops.
    ~ModelingPlugin();

    /// Starts the library's logs and texts. After the component is loaded.
    /// \param resources  of the plug-in, for icons
    void start(std::filesystem::path const& resources);
    /// Before the kernel stops. A second call does nothing.
    void stop();

private:
    host::kernel::Kernel& m_kernel;
    bool m_started = false;
};

}  // namespace vrn::orlo::app
