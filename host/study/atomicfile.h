/// \file
/// Result files that are whole or not there.

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace vrn::orlo::host::study {

/// A file that could not be written. what() is one line: the path and the system's reason.
class WriteError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Writes a file so that nobody ever sees half of it: into a temporary file beside it, flushed to
/// the disk, then renamed. What was there before stays until then, and stays for good on failure.
///
/// Shape      The bytes of the text, as they are. Missing folders are made. A symbolic link stays
///            one: its target is replaced. A file that was there passes on its permissions.
/// Failure    WriteError; the temporary file is gone then. Refuses a folder, and what is no regular
///            file, such as a device. Only a process that is killed leaves its temporary file,
///            which is named .orlo-*.tmp.
/// Threads    Any. Of two writers to one path, the last to finish wins, whole.
void writeFileAtomically(std::filesystem::path const& file, std::string_view text);

}  // namespace vrn::orlo::host::study
