/// \file
/// Runs the `orlo` program as a user would.

#pragma once

#include "tests/support/temporaryfolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vrn::orlo::app {

using test::contentOf;
using test::TemporaryFolder;

/// What one run left behind.
struct OrloRun {
    int m_status = -1;  ///< Exit status; -1 when it did not exit by itself.
    std::string m_out;
    std::string m_err;
};

/// Runs `orlo` with these arguments, in `folder`.
[[nodiscard]] OrloRun runOrlo(std::vector<std::string> const& arguments,
                              std::filesystem::path const& folder = ".");

}  // namespace vrn::orlo::app
