/// \file
/// The command that edits properties of entities, and those that undo and redo.

#pragma once

#include "host/commands/commandprocessor.h"
#include "host/model/entityservice.h"

#include <memory>

namespace vrn::orlo::host::commands {

/// The context of the commands that every application has.
inline constexpr char const* kCoreContext = "VRN.CorePlugin";

/// Sets properties of entities, as one step.
///
/// Parameters: "objects", the appfw::IEntities; "values", CmdParameters of property names and
/// values. A sequence whose elements are all equal is stored as its first element, unless "values"
/// has "ignorecompresssequence" with true, which is no property.
///
/// All or nothing: when an entity refuses a value, what was set before is put back. The entity
/// service publishes each entity's changes once, after the last; on undo and redo as well. Where
/// nothing differs afterwards nothing is published, and there is nothing to undo.
///
/// Failure    kBadParameters; or the code of the entity that refused, with a text that names entity
///            and property.
class ModifyObjects final : public HostCommand {
public:
    /// \param service  may be null
    explicit ModifyObjects(std::shared_ptr<model::EntityService> service)
        : m_service(std::move(service))
    {
    }

private:
    KFRResult run(appfw::CmdParameters const& parameters, CommandRun& run) override;

    std::shared_ptr<model::EntityService> m_service;
};

/// Registers "ModifyObjects", which can be undone, and "Undo" and "Redo".
/// \return the failure of the first name that is taken
KFRResult registerCoreCommands(CommandProcessor& processor,
                               std::shared_ptr<model::EntityService> const& service);

}  // namespace vrn::orlo::host::commands
