/// \file
/// What can be said of a geometry file before the kernel reads it. All checks throw ImportError.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace vrn::orlo::host::geometry {

enum class FileKind : std::uint8_t { step, stl };

/// Throws ImportError with "<file>: <what is wrong>".
[[noreturn]] void refuse(std::filesystem::path const& file, std::string const& reason);

/// The kind by the ending. Refuses what is missing, a folder, unreadable, empty or of another
/// ending.
[[nodiscard]] FileKind checkFile(std::filesystem::path const& file);

/// Refuses a file that does not begin as a STEP file or has no end mark. Reads both ends only.
void checkStepFrame(std::filesystem::path const& file);

/// Refuses a file that is no STL file, or that is shorter than it says. Reads both ends only.
void checkStlFrame(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::geometry
