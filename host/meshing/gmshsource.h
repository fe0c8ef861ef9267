/// \file
/// Sections, numbers and records of Gmsh mesh files.

#pragma once

#include "host/meshing/sourcelines.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// Reads a file of either mode. In a text, a record is a line: numbers do not come from the next
/// one.
///
/// Failure    MeshFileError for a file that is missing, a folder, unreadable or empty, and wherever
///            something else stands than what is asked for.
/// Cost       The file is read as a whole.
class GmshSource {
public:
    explicit GmshSource(std::filesystem::path const& file);

    /// The next section's name, "Nodes"; nothing at the end.
    [[nodiscard]] std::optional<std::string_view> beginSection();
    /// Expects the end of the section that began last.
    void endSection();
    /// Goes behind its end.
    void skipSection();

    /// From now on numbers are binary. The first of them is 1, and tells the order of bytes.
    void beginBinary();
    [[nodiscard]] bool isBinary() const noexcept { return m_isBinary; }

    /// Goes to the next record, in a text over blank lines.
    void beginRecord();
    /// Goes to the next line that is not blank, in either mode.
    void beginLine() { skipToText(); }
    /// In a text, nothing may follow on the line.
    void endRecord();
    /// Where the record is.
    [[nodiscard]] SourceLine line() const noexcept { return m_recordLine; }

    /// A number as text in either mode, then to the end of its line.
    [[nodiscard]] std::int64_t textCount(char const* what);
    /// As text in either mode.
    [[nodiscard]] std::int64_t textInteger(char const* what);
    [[nodiscard]] std::string_view word();
    /// Between quotation marks, up to the line's end.
    [[nodiscard]] std::string_view quoted();

    /// \param what  for the message: "number of a node"
    [[nodiscard]] std::int64_t int32(char const* what);
    [[nodiscard]] std::int64_t int64(char const* what);
    [[nodiscard]] double real(char const* what);

    /// What may still be in the file, at so many bytes each at the least; at most `count`.
    [[nodiscard]] std::size_t possible(std::int64_t count, std::size_t bytes) const;

    [[nodiscard]] SourceLines const& lines() const noexcept { return m_lines; }
    [[noreturn]] void refuse(std::string const& wrong, std::string const& mend) const
    {
        m_lines.refuse(m_recordLine, wrong, mend);
    }

private:
    template <class Number>
    [[nodiscard]] Number binary();
    template <class Number>
    [[nodiscard]] Number text(char const* what);
    /// Over blanks, but not over the end of the line.
    void skipBlanks() noexcept;
    /// Over blanks and ends of lines.
    void skipToText() noexcept;
    [[noreturn]] void refuseEnd() const;
    [[noreturn]] void refuseText(char const* what) const;

    std::string m_text;
    char const* m_at;
    char const* m_end;
    SourceLines m_lines;
    SourceLine m_line = 1;  // of m_at, in a text
    SourceLine m_recordLine = 1;
    std::string_view m_section;
    bool m_isBinary = false;
    bool m_isSwapped = false;
};

}  // namespace vrn::orlo::host::meshing
