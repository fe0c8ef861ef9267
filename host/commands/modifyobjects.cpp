#include "host/commands/modifyobjects.h"

#include "host/commands/commandfailure.h"
#include "host/commands/parameters.h"
#include "host/kernel/frameworklog.h"
#include "host/model/entityname.h"
#include "host/model/propertyvalue.h"
#include "platform/appfw/entity.h"

#include <utility>
#include <vector>

namespace vrn::orlo::host::commands {

namespace {

using Entity = model::EntityService::Entity;

constexpr char const* kKeepSequences = "ignorecompresssequence";

/// Changes to properties that have been made, as a step.
class PropertyChanges final : public KFRServiceObjectImpl<appfw::IURCommandInterface> {
public:
    explicit PropertyChanges(std::shared_ptr<model::EntityService> service)
        : m_service(std::move(service))
    {
    }

    [[nodiscard]] bool isEmpty() const noexcept { return m_changes.empty(); }

    /// Sets a property and notes it, unless it has the value.
    KFRResult make(Entity const& entity, std::string const& property, KFRAny const& value)
    {
        KFRAny before;
        entity->getProperty(property, before);  // what fails here fails below, with the reason
        if (model::isSameValue(before, value)) {
            return KFR::ok;
        }
        KFRResult const answer = set(entity, property, value);
        if (answer.isOk()) {
            m_changes.push_back({entity, property, std::move(before), value});
        }
        return answer;
    }

    KFRResult undo() override
    {
        model::EntityService::Batch const batch(m_service);
        for (std::size_t i = m_changes.size(); i-- > 0;) {
            Change const& change = m_changes[i];
            if (KFRResult const answer = set(change.m_entity, change.m_property, change.m_before);
                !answer.isOk()) {
                while (++i < m_changes.size()) {
                    putBack(m_changes[i], m_changes[i].m_after);
                }
                return answer;
            }
        }
        return KFR::ok;
    }

    KFRResult redo() override
    {
        model::EntityService::Batch const batch(m_service);
        for (std::size_t i = 0; i < m_changes.size(); ++i) {
            Change const& change = m_changes[i];
            if (KFRResult const answer = set(change.m_entity, change.m_property, change.m_after);
                !answer.isOk()) {
                while (i-- > 0) {
                    putBack(m_changes[i], m_changes[i].m_before);
                }
                return answer;
            }
        }
        return KFR::ok;
    }

private:
    struct Change {
        Entity m_entity;
        std::string m_property;
        KFRAny m_before;
        KFRAny m_after;
    };

    /// Entities that are not the host's may fail without a text, or throw.
    static KFRResult set(Entity const& entity, std::string const& property, KFRAny const& value)
    {
        std::string const what =
            "Property \"" + property + "\" of entity " + model::labelOf(*entity);
        KFRResult const answer =
            guarded(what, [&] { return entity->setProperty(property, value); });
        return answer.isOk() || !answer.getParams().empty()
                   ? answer
                   : failure(answer.getCode(), what + " was not set.");
    }

    static void putBack(Change const& change, KFRAny const& value)
    {
        if (KFRResult const answer = set(change.m_entity, change.m_property, value);
            !answer.isOk()) {
            kernel::logToFramework("A value could not be put back: " + failureText(answer),
                                   kernel::LogLevel::error);
        }
    }

    std::shared_ptr<model::EntityService> m_service;
    std::vector<Change> m_changes;
};

/// The values to be set, with runs merged where that is asked for.
KFRResult readValues(std::string const& command, appfw::CmdParameters const& parameters,
                     appfw::CmdParameters& values)
{
    appfw::CmdParameters given;
    if (KFRResult const read =
            readParameter(command, parameters, "values", "command parameters", given);
        !read.isOk()) {
        return read;
    }
    bool keepsSequences = false;
    if (findParameter(given, kKeepSequences) != nullptr) {
        if (KFRResult const read =
                readParameter(command, given, kKeepSequences, "a truth value", keepsSequences);
            !read.isOk()) {
            return read;
        }
    }
    for (appfw::CmdParameter const& value : std::as_const(given)) {
        if (value.name != kKeepSequences) {
            values.append(
                {value.name, keepsSequences ? value.value : model::withRunMerged(value.value)});
        }
    }
    return KFR::ok;
}

}  // namespace

KFRResult ModifyObjects::run(appfw::CmdParameters const& parameters, CommandRun& run)
{
    appfw::IEntities objects;
    if (KFRResult const read =
            readParameter(name(), parameters, "objects", "a sequence of entities", objects);
        !read.isOk()) {
        return read;
    }
    appfw::CmdParameters values;
    if (KFRResult const read = readValues(name(), parameters, values); !read.isOk()) {
        return read;
    }
    // Also around what is put back after a failure: then nothing has happened for the listeners.
    model::EntityService::Batch const batch(m_service);
    auto const changes = KFR::make<PropertyChanges>(m_service);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        Entity const entity = std::as_const(objects)[i];
        KFRResult answer =
            entity != KFR::NULLSP
                ? KFRResult(KFR::ok)
                : failure(kBadParameters, name() + ": \"objects\" has null at place " +
                                              std::to_string(i) + "; all must be entities.");
        for (auto value = values.cbegin(); value != values.cend() && answer.isOk(); ++value) {
            answer = changes->make(entity, value->name, value->value);
        }
        if (!answer.isOk()) {
            if (KFRResult const back = changes->undo(); !back.isOk()) {
                answer.addParam("What was set before stays: " + failureText(back));
            }
            return answer;
        }
    }
    if (!changes->isEmpty()) {
        run.record(changes);
    }
    return KFR::ok;
}

KFRResult registerCoreCommands(CommandProcessor& processor,
                               std::shared_ptr<model::EntityService> const& service)
{
    auto const replay = [link = processor.link()](KFRResult (UndoStack::*action)()) {
        return [link, action](appfw::CmdParameters const&) {
            auto const alive = link.lock();
            return alive != nullptr ? (alive->m_history.*action)()
                                    : failure(kNoProcessor, "The command processor has gone.");
        };
    };
    KFRResult answer =
        processor.registerCommand(kCoreContext, "ModifyObjects", appfw::CmdOptions{},
                                  [service] { return KFR::make<ModifyObjects>(service); });
    if (answer.isOk()) {
        answer = processor.registerFunction(kCoreContext, "Undo", replay(&UndoStack::undo));
    }
    if (answer.isOk()) {
        answer = processor.registerFunction(kCoreContext, "Redo", replay(&UndoStack::redo));
    }
    return answer;
}

}  // namespace vrn::orlo::host::commands
