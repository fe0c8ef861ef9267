#include "apps/orlo/session.h"

#include "apps/orlo/console.h"
#include "apps/orlo/resources.h"
#include "host/kernel/servicename.h"
#include "platform/modeling/modelingutilities.h"

#include <algorithm>
#include <cstdlib>

#include <stdlib.h>  // NOLINT: setenv is POSIX's

namespace vrn::orlo::app {

namespace {

using host::kernel::LogLevel;

// This program links the component's exported classes, so that it is in the process already; asked
// for by this name the loader gives the framework that same copy.
constexpr char const* kComponentLibrary = "libModelingPluginUtilities.so";

constexpr char const* kDevelopers = "VRN.ModelingPlugin.NonDeliverable";

host::kernel::Kernel::Options kernelOptions(SessionOptions const& options)
{
    int const level = std::min(options.m_logLevel.value_or(static_cast<int>(LogLevel::warning)),
                               static_cast<int>(LogLevel::error));
    return {static_cast<LogLevel>(level), std::nullopt};
}

host::application::Application::Options applicationOptions(SessionOptions const& options)
{
    host::application::Application::Options application;
    application.m_resources = resourceFolder();
    application.m_stateFolder = options.m_logFolder.empty()
                                    ? stateFolder()
                                    : std::filesystem::absolute(options.m_logFolder);
    if (char const* const developers = std::getenv("ORLO_DEVELOPER_CONFIG")) {
        application.m_developerFile = developers;
    }
    application.m_locale = host::shell::MessageCatalog::localeFromEnvironment();
    application.m_boxAnswers = options.m_answers;
    application.m_terminal = [](appfw::Severity, std::string const& line) {
        reportLine(line);
    };
    return application;
}

/// The command line's say, in the places where the library's two logs look.
void chooseLogs(SessionOptions const& options, host::kernel::ConfigurationManager& settings)
{
    constexpr int kReplace = 1;
    if (options.m_logLevel.has_value()) {
        std::string const level = std::to_string(*options.m_logLevel);
        settings.set(kDevelopers, "LogFilter", level);
        setenv("MODELING_LOG_FILTER", level.c_str(), kReplace);
    }
    if (!options.m_logScope.empty()) {
        setenv("MODELING_LOG_SCOPE", options.m_logScope.c_str(), kReplace);
    }
}

}  // namespace

Session::Session(SessionOptions const& options)
    : m_kernel(std::make_unique<host::kernel::Kernel>(kernelOptions(options))),
      m_units(host::units::registerUnits(*m_kernel)),
      m_application(
          std::make_unique<host::application::Application>(*m_kernel, applicationOptions(options))),
      m_space(std::make_unique<host::modelspace::ModelSpace>(*m_kernel, *m_application)),
      m_plugin(std::make_unique<ModelingPlugin>(*m_kernel))
{
    chooseLogs(options, m_application->settings());
    m_component = &m_kernel->loadComponent(kComponentLibrary);
    KFRResult result;
    KFRIService const service =
        m_kernel->services().getService(host::kernel::componentService(), "", result);
    m_connected =
        KFR::loose_cast<plugin::modeling::KFRIModelingUtilitiesInterface>(service) != KFR::NULLSP;
    m_plugin->start(resourceFolder() / "app/Plugins/ModelingPlugin/res");
}

Session::~Session()
{
    m_plugin->stop();
    m_kernel->stop();
}

}  // namespace vrn::orlo::app
