#include "apps/orlo/csvtable.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <system_error>
#include <utility>

namespace vrn::orlo::app {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    std::size_t const first = text.find_first_not_of(blanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view withoutQuotes(std::string_view field)
{
    bool const isQuoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
    return isQuoted ? trimmed(field.substr(1, field.size() - 2)) : field;
}

/// A field as a message can show it: short, and without control characters.
std::string shown(std::string_view field)
{
    constexpr std::size_t limit = 40;
    std::string text(field.substr(0, limit));
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return "'" + text + (field.size() > limit ? "...'" : "'");
}

std::from_chars_result readNumber(std::string_view field, double& number)
{
    char const* first = field.data();
    char const* const last = first + field.size();
    if (field.size() > 1 && field[0] == '+' && field[1] != '-') {
        ++first;
    }
    std::from_chars_result result = std::from_chars(first, last, number);
    if (result.ptr != last) {
        result.ec = std::errc::invalid_argument;
    }
    return result;
}

class Parser {
public:
    Parser(std::filesystem::path const& file, std::span<std::string_view const> names)
        : m_names(names)
    {
        m_table.m_file = file;
        m_table.m_columns.resize(names.size());
    }

    CsvTable parse(std::string_view text)
    {
        reserve(text);
        while (!text.empty()) {
            std::size_t const end = std::min(text.find('\n'), text.size());
            ++m_line;
            parseLine(trimmed(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        return std::move(m_table);
    }

private:
    void reserve(std::string_view text)
    {
        auto const lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
        m_table.m_lines.reserve(lines);
        for (auto& column : m_table.m_columns) {
            column.reserve(lines);
        }
    }

    void parseLine(std::string_view line)
    {
        if (line.empty() || line.front() == '#') {
            return;
        }
        char const separator = line.find(';') != std::string_view::npos ? ';' : ',';
        bool const mayBeHeader = !std::exchange(m_headerIsPast, true);
        if (mayBeHeader && isHeader(line, separator)) {
            return;
        }
        parseRow(line, separator);
    }

    static bool isHeader(std::string_view line, char separator)
    {
        while (true) {
            std::size_t const end = std::min(line.find(separator), line.size());
            double number = 0.0;
            std::string_view const field = withoutQuotes(trimmed(line.substr(0, end)));
            if (readNumber(field, number).ec != std::errc::invalid_argument) {
                return false;
            }
            if (end == line.size()) {
                return true;
            }
            line.remove_prefix(end + 1);
        }
    }

    void parseRow(std::string_view line, char separator)
    {
        std::string_view rest = line;
        for (std::size_t column = 0; column < m_names.size(); ++column) {
            if (rest.empty()) {
                fail("the " + name(column) + " is missing; a row is " + form() +
                     ", with a comma or a semicolon between");
            }
            std::size_t const end = std::min(rest.find(separator), rest.size());
            m_table.m_columns[column].push_back(number(trimmed(rest.substr(0, end)), column));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        if (!rest.empty()) {
            fail("there are more than " + std::to_string(m_names.size()) + " columns; leave only " +
                 form());
        }
        m_table.m_lines.push_back(m_line);
    }

    double number(std::string_view field, std::size_t column) const
    {
        double number = 0.0;
        field = withoutQuotes(field);
        std::errc const error = readNumber(field, number).ec;
        if (error == std::errc() && std::isfinite(number)) {
            return number;
        }
        if (field.empty()) {
            fail("the " + name(column) + " is missing; a row is " + form());
        }
        if (error == std::errc::result_out_of_range) {
            fail("the " + name(column) + " " + shown(field) +
                 " is out of the range of a number; write 0 or change the unit");
        }
        if (error == std::errc()) {
            fail("the " + name(column) + " " + shown(field) +
                 " is not finite; take the row out or mend it");
        }
        if (field.find(',') != std::string_view::npos) {
            fail("the " + name(column) + " " + shown(field) +
                 " has a decimal comma; write a point");
        }
        fail("the " + name(column) + " " + shown(field) + " is not a number; write it like 1.5e-3");
    }

    [[nodiscard]] std::string name(std::size_t column) const
    {
        return std::string(m_names[column]);
    }

    /// The columns, as a row has them: "time,value".
    [[nodiscard]] std::string form() const
    {
        std::string text;
        for (std::string_view const name : m_names) {
            text.append(text.empty() ? "" : ",").append(name);
        }
        return text;
    }

    [[noreturn]] void fail(std::string const& text) const
    {
        throw CsvError(m_table.m_file.string() + ":" + std::to_string(m_line) + ": " + text);
    }

    std::span<std::string_view const> m_names;
    CsvTable m_table;
    std::size_t m_line = 0;
    bool m_headerIsPast = false;
};

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

/// The whole of a file, of a pipe too.
std::string contentOf(std::filesystem::path const& path)
{
    auto const fail = [&path](std::string_view text) -> void {
        throw CsvError(path.string() + ": " + std::string(text));
    };
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        fail("is a folder; name the file in it");
    }
    std::unique_ptr<std::FILE, CloseFile> const file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        fail(errno == ENOENT ? "there is no such file; check the path"
                             : std::string("cannot be opened: ") + std::strerror(errno));
    }
    std::string content;
    std::size_t count = 0;
    std::size_t constexpr block = std::size_t{1} << 20;
    do {
        std::size_t const size = content.size();
        content.resize(size + block);
        count = std::fread(content.data() + size, 1, block, file.get());
        content.resize(size + count);
    } while (count == block);
    if (std::ferror(file.get()) != 0) {
        fail(std::string("cannot be read: ") + std::strerror(errno));
    }
    return content;
}

}  // namespace

std::string CsvTable::at(std::size_t row, std::string_view text) const
{
    return m_file.string() + ":" + std::to_string(m_lines[row]) + ": " + std::string(text);
}

CsvTable readCsv(std::filesystem::path const& file, std::span<std::string_view const> columnNames)
{
    return parseCsv(contentOf(file), file, columnNames);
}

CsvTable parseCsv(std::string_view text, std::filesystem::path const& file,
                  std::span<std::string_view const> columnNames)
{
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        throw CsvError(file.string() + ": is UTF-16 text; save it as UTF-8");
    }
    if (text.starts_with(kUtf8Mark)) {
        text.remove_prefix(kUtf8Mark.size());
    }
    CsvTable table = Parser(file, columnNames).parse(text);
    if (table.rowCount() == 0) {
        throw CsvError(file.string() + ": has no rows of numbers; is it the right file?");
    }
    return table;
}

}  // namespace vrn::orlo::app
