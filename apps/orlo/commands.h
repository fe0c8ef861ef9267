/// \file
/// The verbs of `orlo`. Each writes its results to the standard output, and what else it has to say
/// to the standard error stream.

#pragma once

#include <filesystem>

namespace vrn::orlo::app {

struct InspectOptions {
    std::filesystem::path m_file;
    bool m_treeOnly = false;
    bool m_json = false;
};

struct RunOptions {
    std::filesystem::path m_study;
    std::filesystem::path
        m_out;            ///< Output folder; empty for "out/<study>" below the working folder.
    bool m_json = false;  ///< Print the JSON report instead of the tree.
};

/// What is in a geometry file. \return an ExitStatus
[[nodiscard]] int inspect(InspectOptions const& options);

/// Takes a study through. \return an ExitStatus
[[nodiscard]] int run(RunOptions const& options);

/// The component's information block, and which services answer. \return an ExitStatus
[[nodiscard]] int doctor();

}  // namespace vrn::orlo::app
