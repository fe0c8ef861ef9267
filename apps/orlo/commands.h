/// \file
/// The verbs of `orlo`. Each writes its results to the standard output, and what else it has to say
/// to the standard error stream.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vrn::orlo::app {

struct SessionOptions;

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

struct EditOptions {
    std::filesystem::path m_study;
    std::vector<std::string> m_changes;  ///< "PART.property=value", in the order to be made.
    bool m_undo = false;                 ///< Take the last change back at the end.
};

/// What is in a geometry or mesh file. \return an ExitStatus
[[nodiscard]] int inspect(InspectOptions const& options, SessionOptions const& session);

/// Takes a study through. \return an ExitStatus
[[nodiscard]] int run(RunOptions const& options, SessionOptions const& session);

/// Changes properties of a study's parts by the commands that a panel would use, and tells the
/// events that arrive. Nothing is written to a file. \return an ExitStatus
[[nodiscard]] int edit(EditOptions const& options, SessionOptions const& session);

/// The component's information block, and which services answer. \return an ExitStatus
[[nodiscard]] int doctor(SessionOptions const& session);

}  // namespace vrn::orlo::app
