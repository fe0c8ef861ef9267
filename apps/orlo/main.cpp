#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/csvtable.h"
#include "apps/orlo/meshcommand.h"
#include "apps/orlo/pickcommand.h"
#include "apps/orlo/querycommand.h"
#include "apps/orlo/session.h"
#include "apps/orlo/spectrumcommand.h"
#include "apps/orlo/unitscommand.h"
#include "apps/orlo/usageerror.h"
#include "apps/orlo/verboptions.h"
#include "host/geometry/geometryimport.h"
#include "host/kernel/componentloader.h"
#include "host/meshing/meshfileerror.h"
#include "host/modelfile/modelfileerror.h"
#include "host/modelspace/modelwriter.h"
#include "host/study/atomicfile.h"
#include "host/study/study.h"
#include "platform/kfr/kfrexception.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <map>
#include <string>

namespace {

using namespace vrn::orlo;  // NOLINT: main's own file

template <class... Errors>
bool isAnyOf(std::exception const& error)
{
    return (... || (dynamic_cast<Errors const*>(&error) != nullptr));
}

bool isInputError(std::exception const& error)
{
    return isAnyOf<host::geometry::ImportError, host::meshing::MeshFileError,
                   host::modelfile::ModelFileError, host::study::StudyError,
                   host::study::WriteError, app::CsvError, app::UsageError>(error);
}

/// Runs a verb and turns what it throws into one line and an exit status.
template <class Verb>
int guarded(Verb const& verb)
{
    try {
        return verb();
    } catch (host::modelspace::ModelWriteError const& error) {
        app::reportError(error.what());
        return app::kModelRefused;
    } catch (std::exception const& error) {
        app::reportError(error.what());
        return isInputError(error) ? app::kBadInput : app::kToolFailed;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    CLI::App orlo("Finite-element pre-processing without a window.", "orlo");
    orlo.require_subcommand(1);
    orlo.fallthrough();  // the options of all verbs may stand after the verb
    orlo.set_version_flag("--version", "orlo 24.8.1");

    app::SessionOptions session;
    int logLevel = 4;
    CLI::Option* const level =
        orlo.add_option("--log-level", logLevel,
                        "Log what is at least that grave: debug, information, warning, error, off")
            ->transform(CLI::CheckedTransformer(std::map<std::string, int>{
                {"debug", 0}, {"information", 1}, {"warning", 2}, {"error", 3}, {"off", 4}}));
    orlo.add_option("--log-scope", session.m_logScope,
                    "Limit the debug log to these subsystems, with | between them");
    orlo.add_option("--log-folder", session.m_logFolder,
                    "Folder for log files (default: the state folder of the user)");
    orlo.add_option("--answer", session.m_answers,
                    "Answer to a message box, by its button's text or number; in their order");

    app::InspectOptions inspectOptions;
    CLI::App* const inspect =
        orlo.add_subcommand("inspect", "Tell what is in a geometry or mesh file");
    inspect
        ->add_option("FILE", inspectOptions.m_file,
                     "STEP, STL, .orlo, or a mesh: .inp, .msh, .bdf, .nas")
        ->required();
    CLI::Option* const tree =
        inspect->add_flag("--tree", inspectOptions.m_treeOnly, "Only the assembly tree");
    inspect->add_flag("--json", inspectOptions.m_json, "The whole report as JSON")->excludes(tree);

    app::RunOptions runOptions;
    CLI::App* const run = orlo.add_subcommand("run", "Take a study through");
    run->add_option("STUDY", runOptions.m_study, "Study file (YAML)")->required();
    run->add_option("--out", runOptions.m_out, "Folder for the outputs (default: out/<study>)");
    run->add_flag("--json", runOptions.m_json, "Print the report as JSON");

    app::EditOptions editOptions;
    CLI::App* const edit =
        orlo.add_subcommand("edit", "Change properties of parts and tell the events that arrive");
    edit->add_option("STUDY", editOptions.m_study, "Study file (YAML)")->required();
    edit->add_option("--set", editOptions.m_changes, "PART.property=value; may be repeated")
        ->required()
        ->allow_extra_args(false);
    edit->add_flag("--undo", editOptions.m_undo, "Take the last change back at the end");

    app::PickOptions pickOptions;
    CLI::App* const pick = orlo.add_subcommand("pick", "Pick as a user would, and sort the picks");
    app::addOptions(*pick, pickOptions);

    app::MeshVerbOptions meshOptions;
    CLI::App* const mesh = orlo.add_subcommand("mesh", "Mesh the parts of a model");
    app::addOptions(*mesh, meshOptions);

    app::QueryOptions queryOptions;
    CLI::App* const query = orlo.add_subcommand(
        "query", "Tell what the library says of an entity, an element or a node");
    app::addOptions(*query, queryOptions);

    app::SpectrumOptions spectrumOptions;
    CLI::App* const spectrum = orlo.add_subcommand("spectrum", "Transform a time signal, or back");
    spectrum->add_option("FILE", spectrumOptions.m_file, "Table of time,value (CSV)")->required();
    spectrum->add_flag("--inverse", spectrumOptions.m_inverse,
                       "From frequency,magnitude,phase to time,value");

    app::UnitsOptions unitsOptions;
    CLI::App* const units =
        orlo.add_subcommand("units", "Tell what the library makes of unit systems");
    units->add_option("LABEL", unitsOptions.m_systems,
                      "Label or name of a unit system (default: all)");
    units->add_flag("--json", unitsOptions.m_json, "Print the report as JSON");

    orlo.add_subcommand("doctor",
                        "Tell what the component says of itself and which services answer");

    try {
        orlo.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        int const status = orlo.exit(error);
        return status == 0 ? app::kDone : app::kBadInput;
    }
    if (level->count() != 0) {
        session.m_logLevel = logLevel;
    }
    if (inspect->parsed()) {
        return guarded([&] { return app::inspect(inspectOptions, session); });
    }
    if (run->parsed()) {
        return guarded([&] { return app::run(runOptions, session); });
    }
    if (edit->parsed()) {
        return guarded([&] { return app::edit(editOptions, session); });
    }
    if (pick->parsed()) {
        return guarded([&] { return app::pick(pickOptions, session); });
    }
    if (mesh->parsed()) {
        return guarded([&] { return app::mesh(meshOptions, session); });
    }
    if (query->parsed()) {
        return guarded([&] { return app::query(queryOptions, session); });
    }
    if (spectrum->parsed()) {
        return guarded([&] { return app::spectrum(spectrumOptions); });
    }
    if (units->parsed()) {
        return guarded([&] { return app::units(unitsOptions, session); });
    }
    return guarded([&] { return app::doctor(session); });
}
