#include "plugins/modelingplugin/utilities/eventswork/editentityhelper.h"

#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"
#include "plugins/modelingplugin/utilities/identity/entconvert.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

constexpr char const* kCommand = "ModifyObjects";
constexpr char const* kContext = "VRN.CorePlugin";  // not the modeling plug-in

void modify(CmdInvoker&& command, appfw::IEntities const& entities, KFRAny const& values)
{
    DataBunch const bunch{{"objects", entities}, {"values", values}};
    static_cast<void>(command.invoke(bunch.toCmdParams()));
}

}  // namespace

EditEntityHelper::EditEntityHelper(CAE::EntityReference const& reference)
    : m_entities(EntConvert().toEntities({reference}))
{
}

EditEntityHelper::EditEntityHelper(KFRSmartPointer<IEntityInterface> const& entity)
    : m_entities{entity}
{
}

EditEntityHelper::EditEntityHelper(CAE::EntityReferenceSequence const& references)
    : m_entities(EntConvert().toEntities(references))
{
}

EditEntityHelper::EditEntityHelper(appfw::IEntities const& entities) : m_entities(entities)
{
}

void EditEntityHelper::setProperties(DataBunch const& values)
{
    modify(CmdInvoker(kCommand, kContext), m_entities, values.toKFRAny());
}

void EditEntityHelper::setProperties(DataBunch const& values, bool undoable, bool silent)
{
    modify(CmdInvoker(kCommand, undoable, silent, kContext), m_entities, values.toKFRAny());
}

void EditEntityHelper::setPropertiesEx(DataBunch const& values)
{
    for (auto const& entity : m_entities) {
        if (entity == NULLSP) {
            continue;
        }
        for (auto const& [name, value] : values) {
            static_cast<void>(entity->setProperty(name, value));
        }
    }
}

void EditEntityHelper::setPropertiesWithoutCompressSequence(DataBunch const& values)
{
    appfw::CmdParameters parameters = values.toCmdParams();
    parameters.append({"ignorecompresssequence", KFRAny(true)});
    modify(CmdInvoker(kCommand, kContext), m_entities, KFRAny(parameters));
}

void EditEntityHelper::refreshEntity(KFRSmartPointer<IEntityInterface> const& entity)
{
    auto const notified = KFR::loose_cast<appfw::IEntityNotificationInterface>(entity);
    if (notified != NULLSP) {
        // The notification's name is spelt so.
        static_cast<void>(notified->notify("EntityRefersh", KFRAny()));
    }
}

}  // namespace vrn::orlo::plugin::modeling
