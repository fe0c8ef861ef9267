/// \file
/// Folders of the program.

#pragma once

#include <filesystem>

namespace vrn::orlo::app {

/// The shipped texts and settings: $ORLO_RESOURCES, else "share/orlo" beside the program's folder.
[[nodiscard]] std::filesystem::path resourceFolder();

/// Where the program keeps logs: $ORLO_STATE, else "orlo" below $XDG_STATE_HOME or
/// ~/.local/state, else below the folder for temporary files.
[[nodiscard]] std::filesystem::path stateFolder();

}  // namespace vrn::orlo::app
