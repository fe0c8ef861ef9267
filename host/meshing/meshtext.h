/// \file
/// The text of a mesh file, and the blanks in it.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vrn::orlo::host::meshing {

inline constexpr std::string_view kBlanks = " \t\r\f\v";

[[nodiscard]] constexpr bool isBlank(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r' && c != '\n');
}

[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) noexcept
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Between quotation marks of one kind; the text itself where there are none around it.
[[nodiscard]] constexpr std::string_view unquoted(std::string_view text) noexcept
{
    bool const isQuoted = text.size() >= 2 && text.front() == text.back() &&
                          (text.front() == '"' || text.front() == '\'');
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

/// A piece of a file as a message quotes it: at most 40 characters, with a question mark for each
/// that is not plain text.
[[nodiscard]] std::string shown(std::string_view text);

/// All of a file.
/// \param reason  receives why it cannot be had: it is missing, a folder, unreadable or blank
[[nodiscard]] std::string meshTextOf(std::filesystem::path const& file, std::string& reason);

/// The same. Failure: MeshFileError.
[[nodiscard]] std::string meshTextOf(std::filesystem::path const& file);

}  // namespace vrn::orlo::host::meshing
