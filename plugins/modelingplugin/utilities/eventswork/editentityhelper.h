/// \file
/// Editing the properties of entities.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/caedata/entityreference.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/eventswork/databunch.h"

namespace vrn::orlo::plugin::modeling {

using appfw::IEntityInterface;

/// Sets properties of entities, all of them to the same values.
///
/// Failure    Silent: results are dropped. A reference without an entity is left out.
/// Ownership  Keeps its entities alive.
/// Threads    Main thread.
class MODELING_API EditEntityHelper {
public:
    explicit EditEntityHelper(CAE::EntityReference const& reference);
    explicit EditEntityHelper(KFRSmartPointer<IEntityInterface> const& entity);
    explicit EditEntityHelper(CAE::EntityReferenceSequence const& references);
    explicit EditEntityHelper(appfw::IEntities const& entities);

    /// By the command "ModifyObjects" of the core plug-in, so that it can be undone.
    void setProperties(DataBunch const& values);
    /// The same with two of the command's options given; see CmdInvoker.
    void setProperties(DataBunch const& values, bool undoable, bool silent);
    /// Without a command: it cannot be undone.
    void setPropertiesEx(DataBunch const& values);
    /// As setProperties, the values of sequences being stored as they are: a run of equal ones is
    /// not merged.
    void setPropertiesWithoutCompressSequence(DataBunch const& values);

    /// Has the entity's display brought up to date.
    static void refreshEntity(KFRSmartPointer<IEntityInterface> const& entity);

private:
    appfw::IEntities m_entities;
};

}  // namespace vrn::orlo::plugin::modeling
