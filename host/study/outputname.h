/// \file
/// Names of output files, which may not lead out of the output folder.

#pragma once

#include "host/study/studydocument.h"
#include "host/study/studyerror.h"

#include <filesystem>

namespace vrn::orlo::host::study {

/// The path below the output folder that the value gives, without "." and "..". Throws StudyError
/// for an absolute path, one that climbs out of the folder, and one that names no file.
[[nodiscard]] std::filesystem::path outputName(KeyPlace const& place, DocumentNode const& value);

/// The text of the value as a path. Throws StudyError for a backslash, which separates no folders
/// here.
[[nodiscard]] std::filesystem::path pathOf(KeyPlace const& place, DocumentNode const& value);

}  // namespace vrn::orlo::host::study
