/// \file
/// Columns of numbers from a text file.

#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::app {

/// A table that cannot be used: one line that names the file and row, and what to do.
class CsvError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The numbers of a file, by column.
struct CsvTable {
    std::filesystem::path m_file;
    std::vector<std::vector<double>> m_columns;  ///< All of one length, finite.
    std::vector<std::size_t> m_lines;            ///< Where each row stands in the file, from 1.

    [[nodiscard]] std::size_t rowCount() const noexcept { return m_lines.size(); }
    /// "file:line: " and the text, for a message on a row.
    [[nodiscard]] std::string at(std::size_t row, std::string_view text) const;
};

/// Reads rows of as many numbers as there are names.
///
/// A row has its fields between commas, or between semicolons if there is one in it, and may end in
/// one more separator. Blank lines, lines that begin with '#', quotes round a field, CRLF and the
/// mark of UTF-8 at the start are passed over; so is the first line if none of its fields is a
/// number.
///
/// \throws CsvError
[[nodiscard]] CsvTable readCsv(std::filesystem::path const& file,
                               std::span<std::string_view const> columnNames);

/// The table in a text, with the path for the messages. \throws CsvError
[[nodiscard]] CsvTable parseCsv(std::string_view text, std::filesystem::path const& file,
                                std::span<std::string_view const> columnNames);

}  // namespace vrn::orlo::app
