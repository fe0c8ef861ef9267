/// \file
/// The text of a study file, checked before any parser sees it.

#pragma once

#include <filesystem>
#include <string>

namespace vrn::orlo::host::study {

/// The whole file. Throws StudyError for what is missing, a folder, no regular file, unreadable,
/// or far too long for a study.
[[nodiscard]] std::string readStudyText(std::filesystem::path const& file);

/// Throws StudyError with the line for bytes that are no UTF-8, and for control characters other
/// than tab and line ends.
void checkStudyText(std::filesystem::path const& file, std::string const& text);

}  // namespace vrn::orlo::host::study
