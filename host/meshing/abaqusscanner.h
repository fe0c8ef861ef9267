/// \file
/// Keywords and data lines of Abaqus input files.

#pragma once

#include "host/meshing/sourcelines.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// A keyword line.
struct Keyword {
    std::string m_name;   ///< Without star and blanks, in capitals: "ELEMENT", "ENDPART".
    std::string m_title;  ///< The same with its blanks: "END PART".
    SourceLine m_line = 0;
    /// Names without blanks in capitals; values without blanks and quotes around them.
    std::vector<std::pair<std::string, std::string>> m_parameters;

    /// Nothing where the keyword has no such parameter; empty for one without a value.
    [[nodiscard]] std::optional<std::string> value(std::string_view parameter) const;
};

/// Comma-separated fields of a data line.
class Fields {
public:
    explicit Fields(std::string_view line) noexcept : m_rest(line) {}

    /// Whether nothing is left. True also after a comma at the end.
    [[nodiscard]] bool atEnd() const noexcept { return m_rest.empty(); }
    /// The next field without blanks around it.
    [[nodiscard]] std::string_view next() noexcept;
    /// Whether the field that was read last has a comma behind it.
    [[nodiscard]] bool afterComma() const noexcept { return m_afterComma; }

private:
    std::string_view m_rest;
    bool m_afterComma = false;
};

/// A whole number above 0; nothing for anything else.
[[nodiscard]] std::optional<std::int64_t> idIn(std::string_view field) noexcept;

/// A finite number, also with a D for its exponent; 0 for a blank field.
[[nodiscard]] std::optional<double> numberIn(std::string_view field);

/// Goes through a file and what it includes, without comments and blank lines.
///
/// Failure    MeshFileError for a file that is missing, a folder, unreadable or empty, and for one
///            that includes itself.
/// Cost       Files are read as a whole and given up at their ends.
class AbaqusScanner {
public:
    explicit AbaqusScanner(std::filesystem::path const& file);

    enum class Kind : std::uint8_t { keyword, data, end };
    /// The next line. Lines of included files stand where they are included.
    Kind next();
    /// Lets the lines of another file come next.
    /// \param name  from the folder of the file that names it
    void include(std::string const& name);

    /// Of the keyword that next() told of.
    [[nodiscard]] Keyword const& keyword() const noexcept { return m_keyword; }
    /// The data that next() told of, without blanks around; until the next call.
    [[nodiscard]] std::string_view data() const noexcept { return m_data; }
    [[nodiscard]] SourceLine line() const noexcept { return m_line; }
    [[nodiscard]] SourceLines const& lines() const noexcept { return m_lines; }

    [[noreturn]] void refuse(std::string const& wrong, std::string const& mend) const
    {
        m_lines.refuse(m_line, wrong, mend);
    }

private:
    struct Open {
        std::size_t m_file;
        std::string m_text;
        std::size_t m_at = 0;
        unsigned m_linesRead = 0;
    };

    /// A line that is neither blank nor comment; nothing at the end of all files.
    std::optional<std::string_view> nextLine();
    /// The same within the innermost file.
    std::optional<std::string_view> nextLineOfFile();
    void readKeyword(std::string_view text);

    SourceLines m_lines;
    std::vector<Open> m_open;
    SourceLine m_line = 0;
    Keyword m_keyword;
    std::string_view m_data;
};

}  // namespace vrn::orlo::host::meshing
