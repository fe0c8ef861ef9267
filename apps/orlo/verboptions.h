/// \file
/// Options of the command line that several verbs have, or that are many.

#pragma once

#include <CLI/CLI.hpp>

namespace vrn::orlo::app {

struct MeshArguments;
struct MeshVerbOptions;
struct PickOptions;
struct PixelOptions;
struct QueryOptions;

/// The sizes and kinds of a mesh.
void addMeshOptions(CLI::App& verb, MeshArguments& mesh);
/// A pixel and the view that it is of.
void addPixelOptions(CLI::App& verb, PixelOptions& pixel);

// All options of a verb.
void addOptions(CLI::App& verb, MeshVerbOptions& options);
void addOptions(CLI::App& verb, PickOptions& options);
void addOptions(CLI::App& verb, QueryOptions& options);

}  // namespace vrn::orlo::app
