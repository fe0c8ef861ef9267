#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/eventprinter.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/session.h"
#include "apps/orlo/usageerror.h"
#include "apps/orlo/valuetext.h"
#include "host/commands/modifyobjects.h"
#include "host/study/study.h"
#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"
#include "plugins/modelingplugin/utilities/eventswork/editentityhelper.h"
#include "plugins/modelingplugin/utilities/eventswork/uiupdatemanager.h"

#include <cstdio>
#include <string>
#include <vector>

namespace vrn::orlo::app {

namespace {

using host::model::Model;
using host::model::Part;
using plugin::modeling::CmdInvoker;
using plugin::modeling::DataBunch;
using plugin::modeling::EditEntityHelper;
using plugin::modeling::UIUpdateManager;
using plugin::modeling::UIUpdateProxy;

/// One "PART.property=value" with the part and the kind of the property found.
struct Change {
    KFRSmartPointer<Part> m_part;
    std::string m_property;
    KFRAny m_value;
};

std::string listOf(std::vector<std::string> const& names)
{
    std::string list;
    for (std::string const& name : names) {
        list.append(list.empty() ? "" : ", ").append(name);
    }
    return list;
}

KFRSmartPointer<Part> partOf(std::string const& name, Model const& model)
{
    std::vector<std::string> names;
    for (auto const& part : model.parts()) {
        if (part->name() == name) {
            return part;
        }
        names.push_back(part->name());
    }
    throw UsageError("--set: there is no part \"" + name + "\"; the parts are " + listOf(names));
}

KFRAny propertyOf(Part& part, std::string const& property)
{
    KFRAny value;
    if (!part.getProperty(property, value).isOk()) {
        throw UsageError("--set: part \"" + part.name() + "\" has no property \"" + property +
                         "\"; its properties are " + listOf(part.propertyNames()));
    }
    return value;
}

Change changeOf(std::string const& text, Model const& model)
{
    std::size_t const equals = text.find('=');
    // Part names may have dots in them, properties have none.
    std::size_t const dot = text.rfind('.', equals);
    if (equals == std::string::npos || dot == std::string::npos) {
        throw UsageError("--set " + text + ": give PART.property=value");
    }
    Change change;
    change.m_part = partOf(text.substr(0, dot), model);
    change.m_property = text.substr(dot + 1, equals - dot - 1);
    KFRAny const now = propertyOf(*change.m_part, change.m_property);
    std::string const value = text.substr(equals + 1);
    auto const read = valueOf(value, now);
    if (!read.has_value()) {
        throw UsageError("--set " + text + ": \"" + value + "\" is no value of \"" +
                         change.m_property + "\"; give " + exampleOf(now));
    }
    change.m_value = *read;
    return change;
}

/// The table of parts, brought up to date when it is refreshed. One for the process: what has been
/// registered for refreshes stays.
class PartTable final : public UIUpdateProxy {
public:
    /// Shows the parts of a model as long as it lives.
    class Shown {
    public:
        explicit Shown(Model const& model)
        {
            static_cast<void>(table().regist(EventPrinter::kDisplay));
            table().m_model = &model;
        }
        Shown(Shown const&) = delete;
        Shown& operator=(Shown const&) = delete;
        ~Shown() { table().m_model = nullptr; }
    };

    void refresh() override
    {
        if (m_model == nullptr) {
            return;
        }
        std::printf("parts\n");
        for (auto const& part : m_model->parts()) {
            std::printf("  %s:", part->name().c_str());
            for (std::string const& name : part->propertyNames()) {
                std::printf(" %s=%s", name.c_str(), textOf(propertyOf(*part, name)).c_str());
            }
            std::printf("\n");
        }
    }

private:
    static PartTable& table()
    {
        static PartTable theTable;
        return theTable;
    }

    Model const* m_model = nullptr;
};

/// Makes a change as a panel would. False, with a line for the user, when the model refuses it.
bool apply(Change const& change, EventPrinter& printer)
{
    std::printf("set %s.%s: %s -> %s\n", change.m_part->name().c_str(), change.m_property.c_str(),
                textOf(propertyOf(*change.m_part, change.m_property)).c_str(),
                textOf(change.m_value).c_str());
    DataBunch values;
    values[change.m_property] = change.m_value;
    EditEntityHelper(KFRSmartPointer<appfw::IEntityInterface>(change.m_part)).setProperties(values);
    if (std::string const failure = printer.takeFailure(); !failure.empty()) {
        reportError(failure);
        return false;
    }
    return true;
}

}  // namespace

int edit(EditOptions const& options, SessionOptions const& sessionOptions)
{
    host::study::Study const study = host::study::loadStudy(options.m_study);
    Session session(sessionOptions);
    auto const held = loadModel(session, study.m_geometry);
    host::model::Model const& model = *held;
    std::vector<Change> changes;
    for (std::string const& text : options.m_changes) {
        changes.push_back(changeOf(text, model));
    }

    EventPrinter printer(session.application().events());
    PartTable::Shown const shown(model);
    bool isDone = true;
    for (Change const& change : changes) {
        isDone = apply(change, printer) && isDone;
    }
    session.application().pump();
    if (options.m_undo) {
        std::printf("undo\n");
        static_cast<void>(CmdInvoker("Undo", host::commands::kCoreContext).invoke(DataBunch()));
        if (std::string const failure = printer.takeFailure(); !failure.empty()) {
            reportError(failure);
            isDone = false;
        }
        session.application().pump();
    }
    return isDone ? kDone : kModelRefused;
}

}  // namespace vrn::orlo::app
