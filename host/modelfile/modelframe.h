/// \file
/// What can be said of a model file before the database reads it.

#pragma once

#include <filesystem>

namespace vrn::orlo::host::modelfile {

inline constexpr int kApplicationId = 0x4F524C4F;  ///< "ORLO"; tells model files from other SQLite.
inline constexpr int kVersion = 1;                 ///< Of the tables.

/// For a file that has come to harm.
inline constexpr char const* kMakeAgain =
    "make it again with `orlo mesh`, or take a copy that is whole";

/// Refuses what is missing, a folder, unreadable, of another kind, of a newer version or cut off.
/// Reads the beginning only.
///
/// Failure    ModelFileError.
void checkFrame(std::filesystem::path const& file);

/// Refuses a file that another program is changing or has left half changed: what lies beside it
/// would be taken for a part of it.
///
/// Failure    ModelFileError.
void checkNoJournal(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::modelfile
