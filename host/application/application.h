/// \file
/// The headless application in one piece.

#pragma once

#include "host/commands/commandprocessor.h"
#include "host/commands/executive.h"
#include "host/display/viewport.h"
#include "host/kernel/configurationmanager.h"
#include "host/kernel/eventmanager.h"
#include "host/kernel/kernel.h"
#include "host/meshing/fementities.h"
#include "host/model/entityservice.h"
#include "host/model/persistence.h"
#include "host/model/rootmanager.h"
#include "host/selection/displaymanager.h"
#include "host/selection/selectionmanager.h"
#include "host/shell/applicationaccess.h"
#include "host/shell/atmousepanel.h"
#include "host/shell/boxes.h"
#include "host/shell/messagecatalog.h"
#include "host/shell/stateservice.h"
#include "host/shell/terminalsink.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::application {

/// Makes the services of an application that have nothing to do with geometry, and has the kernel
/// know them, by name and in the holders: settings, events, texts and messages, boxes, commands
/// with their history, transactions, the executive's queue, entities and references to them, open
/// models, selection and pick filters, a viewport, entities of meshes, faces of elements and chains
/// of beams.
///
/// To be made after the kernel and before a component is loaded.
///
/// Failure    std::runtime_error where the resources are not to be had.
/// Ownership  The kernel's registry and holders keep the services until its stop, this object the
///            rest; it must live as long.
/// Threads    Main thread.
class Application {
public:
    struct Options {
        /// The shipped texts and settings, "share/orlo" of an installation.
        std::filesystem::path m_resources;
        /// Where plug-ins keep their own files, such as logs; each has a folder there.
        std::filesystem::path m_stateFolder;
        /// A file of developers' settings in place of the shipped one; empty for that.
        std::filesystem::path m_developerFile;
        std::string m_locale;  ///< "de_DE.UTF-8"; see MessageCatalog.
        std::string m_productName = "Orlo Modeler";
        bool m_headless = true;
        std::vector<std::string> m_boxAnswers;  ///< See Boxes.
        shell::TerminalSink m_terminal;
    };

    /// Sets "APP_DIR" and "LEAF_DIR" in the process's environment to the resources, unless they are
    /// set.
    Application(kernel::Kernel& kernel, Options const& options);
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;

    [[nodiscard]] kernel::ConfigurationManager& settings() noexcept { return *m_settings; }
    [[nodiscard]] kernel::EventManager& events() noexcept { return *m_events; }
    [[nodiscard]] commands::CommandProcessor& processor() noexcept { return *m_processor; }
    [[nodiscard]] commands::Executive& executive() noexcept { return *m_executive; }
    [[nodiscard]] std::shared_ptr<model::EntityService> const& entityService() const noexcept
    {
        return m_entityService;
    }
    [[nodiscard]] model::RootManager& entities() noexcept { return *m_entities; }
    /// The models that are open.
    [[nodiscard]] model::PersistenceSession& models() noexcept { return m_persistence->session(); }
    [[nodiscard]] selection::SelectionManager& selection() noexcept { return *m_selection; }
    [[nodiscard]] selection::DisplayManager& display() noexcept { return *m_display; }
    /// 1000 by 800 pixels; what it shows is its user's to say.
    [[nodiscard]] display::Viewport& viewport() noexcept { return *m_viewport; }
    [[nodiscard]] meshing::FEMEntities& meshEntities() noexcept { return *m_meshEntities; }
    [[nodiscard]] shell::Boxes& boxes() noexcept { return m_boxes; }
    [[nodiscard]] shell::AtMousePanel& atMousePanel() noexcept { return m_atMousePanel; }
    [[nodiscard]] shell::StateService& states() noexcept { return *m_states; }

    /// Runs what waits: queued work, and events of other threads, until there is nothing left.
    /// \return how many pieces of work and events that were
    std::size_t pump();

private:
    void registerServices(kernel::Kernel& kernel, Options const& options);
    void registerPanel();

    shell::Boxes m_boxes;
    shell::AtMousePanel m_atMousePanel;
    KFRSmartPointer<kernel::ConfigurationManager> m_settings;
    KFRSmartPointer<kernel::EventManager> m_events;
    KFRSmartPointer<shell::MessageCatalog> m_catalog;
    KFRSmartPointer<shell::StateService> m_states;
    KFRSmartPointer<commands::CommandProcessor> m_processor;
    KFRSmartPointer<commands::Executive> m_executive;
    std::shared_ptr<model::EntityService> m_entityService;
    KFRSmartPointer<model::RootManager> m_entities;
    KFRSmartPointer<model::Persistence> m_persistence;
    KFRSmartPointer<selection::DisplayManager> m_display;
    KFRSmartPointer<display::Viewport> m_viewport;
    KFRSmartPointer<selection::SelectionManager> m_selection;
    KFRSmartPointer<meshing::FEMEntities> m_meshEntities;
};

}  // namespace vrn::orlo::host::application
