#include "apps/orlo/resources.h"

#include <cstdlib>
#include <optional>

namespace vrn::orlo::app {

namespace {

namespace fs = std::filesystem;

/// An absolute path from the environment; others say nothing.
std::optional<fs::path> folderFrom(char const* variable)
{
    char const* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') {
        return std::nullopt;
    }
    return fs::absolute(value);
}

}  // namespace

fs::path resourceFolder()
{
    if (auto const given = folderFrom("ORLO_RESOURCES")) {
        return *given;
    }
    return fs::canonical("/proc/self/exe").parent_path().parent_path() / "share/orlo";
}

fs::path stateFolder()
{
    if (auto const given = folderFrom("ORLO_STATE")) {
        return *given;
    }
    if (auto const state = folderFrom("XDG_STATE_HOME")) {
        return *state / "orlo";
    }
    if (auto const home = folderFrom("HOME")) {
        return *home / ".local/state/orlo";
    }
    return fs::temp_directory_path() / "orlo";
}

}  // namespace vrn::orlo::app
