#include "host/application/application.h"

#include "host/commands/modifyobjects.h"
#include "host/commands/transactionbroker.h"
#include "host/kernel/servicename.h"
#include "host/meshing/beamchain.h"
#include "host/meshing/freefaces.h"
#include "host/meshing/skinfaces.h"
#include "host/model/eomfactory.h"
#include "host/model/referencecontainer.h"
#include "host/model/referencelist.h"
#include "host/shell/messagedisplay.h"
#include "platform/servicecaches/servicecacheappframe.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"

#include <stdexcept>

#include <stdlib.h>  // NOLINT: setenv is POSIX's

namespace vrn::orlo::host::application {

namespace {

namespace fs = std::filesystem;

using Holder = plugin::modeling::ServiceCacheModelingPlugin;

constexpr char const* kPlugin = "VRN.ModelingPlugin";

constexpr int kWindowWidth = 1000;
constexpr int kWindowHeight = 800;

/// From a corner, until there is something to look at.
display::Camera firstView()
{
    constexpr double kHalf = 50.0;
    return display::Camera::fit({{-kHalf, -kHalf, -kHalf}, {kHalf, kHalf, kHalf}}, kWindowWidth,
                                kWindowHeight, display::Projection::orthographic, {-1.0, 1.0, -1.0},
                                {0.0, 0.0, 1.0});
}

kernel::ConfigurationManager::Options settingsOptions(Application::Options const& options)
{
    fs::path const shipped = options.m_resources / "app/res";
    fs::path const developers =
        options.m_developerFile.empty() ? shipped / "DeveloperConfig.xml" : options.m_developerFile;
    return {{shipped}, developers};
}

shell::ApplicationAccess::Options accessOptions(Application::Options const& options)
{
    shell::ApplicationAccess::Options access;
    access.m_productName = options.m_productName;
    access.m_headless = options.m_headless;
    access.m_pluginFolders[kPlugin] = options.m_stateFolder / kPlugin;
    access.m_status = options.m_terminal;
    access.m_help = [terminal = options.m_terminal](std::string const& key, auto const&) {
        if (terminal) {
            terminal(appfw::Severity::information, "help: " + key);
        }
    };
    return access;
}

void require(KFRResult const& result, char const* what)
{
    if (!result.isOk()) {
        throw std::logic_error(std::string("application: ") + what + " was refused");
    }
}

}  // namespace

Application::Application(kernel::Kernel& kernel, Options const& options)
    : m_boxes(options.m_boxAnswers, options.m_terminal),
      m_atMousePanel(options.m_terminal),
      m_settings(KFR::make<kernel::ConfigurationManager>(settingsOptions(options))),
      m_events(KFR::make<kernel::EventManager>()),
      m_catalog(
          KFR::make<shell::MessageCatalog>(options.m_resources / "messages", options.m_locale)),
      m_states(KFR::make<shell::StateService>(m_events)),
      m_processor(KFR::make<commands::CommandProcessor>(m_events)),
      m_entityService(std::make_shared<model::EntityService>(m_events)),
      m_entities(KFR::make<model::RootManager>(m_entityService)),
      m_persistence(KFR::make<model::Persistence>()),
      m_display(KFR::make<selection::DisplayManager>()),
      m_viewport(KFR::make<display::Viewport>(firstView())),
      m_selection(KFR::make<selection::SelectionManager>(m_events, m_display->pickingSettings())),
      m_meshEntities(KFR::make<meshing::FEMEntities>(
          KFRSmartPointer<KFR::Services::TypeRegistry::ITypeRegistryInterface>(
              &kernel.typeRegistry())))
{
    constexpr int kKeep = 0;
    setenv("APP_DIR", (options.m_resources / "app").c_str(), kKeep);
    setenv("LEAF_DIR", (options.m_resources / "leaf").c_str(), kKeep);

    commands::Executive::Options executive;
    executive.m_processor = m_processor;
    executive.m_messageBox = [this](commands::Executive::MessageBox const& box) {
        return m_boxes.ask(box.m_title, box.m_text, box.m_first, box.m_second, box.m_third);
    };
    m_executive = KFR::make<commands::Executive>(std::move(executive));

    require(commands::registerCoreCommands(*m_processor, m_entityService), "a core command");
    m_display->setViewportAdapter(m_viewport);
    registerPanel();
    registerServices(kernel, options);
}

void Application::registerPanel()
{
    for (auto const& [context, command] : shell::AtMousePanel::commands()) {
        require(m_processor->registerFunction(
                    context, command,
                    [this, name = command](appfw::CmdParameters const& parameters) {
                        return m_atMousePanel.apply(name, parameters);
                    }),
                "a command of the at-mouse panel");
    }
}

void Application::registerServices(kernel::Kernel& kernel, Options const& options)
{
    using kernel::serviceNameOf;
    auto const add = [&kernel](char const* name, KFRIService const& service) {
        require(kernel.services().addService(name, [service] { return service; }), name);
    };
    KFRIService const display = KFR::make<shell::MessageDisplay>(m_catalog, options.m_terminal);
    add(serviceNameOf("configurationManager"), m_settings);
    add(serviceNameOf("messageCatalog"), m_catalog);
    add(serviceNameOf("messageDisplay"), display);
    add(serviceNameOf("getEventManager"), m_events);
    add(serviceNameOf("getGuiExeutive"), m_executive);
    add(serviceNameOf("getDisplayDataManager"), m_display);
    add(serviceNameOf("getFEMEntities"), m_meshEntities);
    add(serviceNameOf("getFEMPMService"), KFR::make<meshing::FEMPluginManager>());
    add(serviceNameOf("getFreeFaceService"), KFR::make<meshing::FreeFaceService>());
    add(serviceNameOf("getMeshUtility"), KFR::make<meshing::SkinService>());
    add(serviceNameOf("getMUCBeamTessService"), KFR::make<meshing::BeamChainService>());

    Holder::configMgr_ = m_settings;
    Holder::commandProcessor_ = m_processor;
    Holder::rootManager_ = m_entities;
    Holder::adapterManager_ = m_entities;
    Holder::eomObjectFactory_ = KFR::make<model::EomObjectFactory>();
    Holder::entRefListFactory_ = KFR::make<model::ReferenceListFactory>(m_entities);
    Holder::entRefContainerFactory_ = KFR::make<model::ReferenceContainerFactory>(m_entities);
    Holder::entRefFactory_ = KFR::make<model::ReferenceContainerFactory>(m_entities);
    Holder::PFW_ = m_persistence;
    appfw::ServiceCacheAppFrame::PFW_ = m_persistence;
    Holder::selectionManager_ = m_selection;
    Holder::transactionBrokerFactory_ = KFR::make<commands::TransactionBroker>(m_processor->link());
    Holder::frameworkAccess_ =
        KFR::make<shell::ApplicationAccess>(accessOptions(options), m_states);
}

std::size_t Application::pump()
{
    std::size_t all = 0;
    for (std::size_t now = 1; now != 0; all += now) {
        now = m_events->pump() + m_executive->pump();
    }
    return all;
}

}  // namespace vrn::orlo::host::application
