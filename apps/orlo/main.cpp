#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/csvtable.h"
#include "apps/orlo/spectrumcommand.h"
#include "apps/orlo/unitscommand.h"
#include "host/geometry/geometryimport.h"
#include "host/kernel/componentloader.h"
#include "host/study/atomicfile.h"
#include "host/study/study.h"
#include "platform/kfr/kfrexception.h"

#include <CLI/CLI.hpp>

#include <exception>

namespace {

using namespace vrn::orlo;  // NOLINT: main's own file

/// Runs a verb and turns what it throws into one line and an exit status.
template <class Verb>
int guarded(Verb const& verb)
{
    try {
        return verb();
    } catch (host::geometry::ImportError const& error) {
        app::reportError(error.what());
        return app::kBadInput;
    } catch (host::study::StudyError const& error) {
        app::reportError(error.what());
        return app::kBadInput;
    } catch (app::CsvError const& error) {
        app::reportError(error.what());
        return app::kBadInput;
    } catch (host::study::WriteError const& error) {
        app::reportError(error.what());
        return app::kBadInput;
    } catch (std::exception const& error) {
        app::reportError(error.what());
        return app::kToolFailed;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    CLI::App orlo("Finite-element pre-processing without a window.", "orlo");
    orlo.require_subcommand(1);
    orlo.set_version_flag("--version", "orlo 24.8.1");

    app::InspectOptions inspectOptions;
    CLI::App* const inspect = orlo.add_subcommand("inspect", "Tell what is in a geometry file");
    inspect->add_option("FILE", inspectOptions.m_file, "STEP assembly or STL surface")->required();
    CLI::Option* const tree =
        inspect->add_flag("--tree", inspectOptions.m_treeOnly, "Only the assembly tree");
    inspect->add_flag("--json", inspectOptions.m_json, "The whole report as JSON")->excludes(tree);

    app::RunOptions runOptions;
    CLI::App* const run = orlo.add_subcommand("run", "Take a study through");
    run->add_option("STUDY", runOptions.m_study, "Study file (YAML)")->required();
    run->add_option("--out", runOptions.m_out, "Folder for the outputs (default: out/<study>)");
    run->add_flag("--json", runOptions.m_json, "Print the report as JSON");

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
    if (inspect->parsed()) {
        return guarded([&] { return app::inspect(inspectOptions); });
    }
    if (run->parsed()) {
        return guarded([&] { return app::run(runOptions); });
    }
    if (spectrum->parsed()) {
        return guarded([&] { return app::spectrum(spectrumOptions); });
    }
    if (units->parsed()) {
        return guarded([&] { return app::units(unitsOptions); });
    }
    return guarded([] { return app::doctor(); });
}
