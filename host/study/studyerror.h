/// \file
/// What is wrong with a study, and where.

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vrn::orlo::host::study {

/// A place in a study file.
struct KeyPlace {
    std::filesystem::path m_file;  ///< As it was given.
    int m_line = 0;                ///< From 1; 0 for the file as a whole.
    std::string
        m_key;  ///< With the keys above it: "outputs.tree", "loads[2].face"; empty for none.
};

/// A study that cannot be used.
///
/// what() is one line for the user: "FILE:LINE: key: what is wrong; what would be right". The line
/// and the key are left out where there is none.
class StudyError : public std::runtime_error {
public:
    /// \param reason what is wrong, and after a semicolon what would be right. Control characters
    ///               are shown as '?', so that the message stays one line.
    StudyError(KeyPlace place, std::string_view reason);

    [[nodiscard]] KeyPlace const& place() const noexcept { return m_place; }

private:
    KeyPlace m_place;
};

/// Text of a user as messages show it: in single quotes, cut after about 60 bytes.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace vrn::orlo::host::study
