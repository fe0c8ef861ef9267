#include "host/meshing/abaqusscanner.h"

#include "host/meshing/meshtext.h"
#include "host/meshing/names.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace vrn::orlo::host::meshing {

namespace fs = std::filesystem;

namespace {

std::string keyOf(std::string_view text)
{
    std::string key = inCapitals(text);
    std::erase_if(key, isBlank);
    return key;
}

}  // namespace

std::optional<std::int64_t> idIn(std::string_view field) noexcept
{
    std::int64_t id = 0;
    char const* const end = field.data() + field.size();
    auto const [stop, error] = std::from_chars(field.data(), end, id);
    return error == std::errc() && stop == end && id > 0 ? std::optional(id) : std::nullopt;
}

std::optional<double> numberIn(std::string_view field)
{
    if (field.empty()) {
        return 0.0;
    }
    if (field.front() == '+' && field.size() > 1 && field[1] != '-') {
        field.remove_prefix(1);
    }
    double number = 0.0;
    char const* const end = field.data() + field.size();
    auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error == std::errc() && stop != end && (*stop == 'D' || *stop == 'd')) {
        std::string copy(field);
        copy[static_cast<std::size_t>(stop - field.data())] = 'e';
        auto const again = std::from_chars(copy.data(), copy.data() + copy.size(), number);
        error = again.ec;
        stop = field.data() + (again.ptr - copy.data());
    }
    bool const isNumber = error == std::errc() && stop == end && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<std::string> Keyword::value(std::string_view parameter) const
{
    for (auto const& [name, value] : m_parameters) {
        if (name == parameter) {
            return value;
        }
    }
    return std::nullopt;
}

std::string_view Fields::next() noexcept
{
    std::size_t const comma = m_rest.find(',');
    m_afterComma = comma != m_rest.npos;
    std::string_view const field = trimmed(m_rest.substr(0, comma));
    m_rest = m_afterComma ? trimmed(m_rest.substr(comma + 1)) : std::string_view();
    return field;
}

AbaqusScanner::AbaqusScanner(fs::path const& file)
{
    m_open.push_back({m_lines.addFile(file), meshTextOf(file)});
    m_lines.begin(1, m_open.back().m_file, 1);
}

void AbaqusScanner::include(std::string const& name)
{
    fs::path const file = m_lines.file(m_open.back().m_file).parent_path() / name;
    for (Open const& outer : m_open) {
        std::error_code ignored;
        if (fs::equivalent(m_lines.file(outer.m_file), file, ignored)) {
            refuse("includes \"" + name + "\", in which it stands itself",
                   "take out one of the two");
        }
    }
    std::string reason;
    std::string text = meshTextOf(file, reason);
    if (!reason.empty()) {
        refuse("includes " + file.string() + ": " + reason,
               "put the file there or correct its name");
    }
    m_open.push_back({m_lines.addFile(file), std::move(text)});
    m_lines.begin(m_line + 1, m_open.back().m_file, 1);
}

AbaqusScanner::Kind AbaqusScanner::next()
{
    while (auto const text = nextLine()) {
        if (text->front() != '*') {
            m_data = *text;
            return Kind::data;
        }
        readKeyword(*text);
        if (m_keyword.m_name != "INCLUDE") {
            return Kind::keyword;
        }
        auto const input = m_keyword.value("INPUT");
        if (!input.has_value() || input->empty()) {
            refuse("*INCLUDE names no file", "write *INCLUDE, INPUT=name");
        }
        include(*input);
    }
    return Kind::end;
}

std::optional<std::string_view> AbaqusScanner::nextLine()
{
    for (;;) {
        if (auto const line = nextLineOfFile()) {
            return line;
        }
        if (m_open.size() == 1) {
            return std::nullopt;
        }
        m_open.pop_back();
        m_lines.begin(m_line + 1, m_open.back().m_file, m_open.back().m_linesRead + 1);
    }
}

std::optional<std::string_view> AbaqusScanner::nextLineOfFile()
{
    Open& file = m_open.back();
    std::string_view const text = file.m_text;
    while (file.m_at < text.size()) {
        std::size_t const end = std::min(text.find('\n', file.m_at), text.size());
        std::string_view const line = trimmed(text.substr(file.m_at, end - file.m_at));
        file.m_at = end + 1;
        ++file.m_linesRead;
        ++m_line;
        if (!line.empty() && !line.starts_with("**")) {
            return line;
        }
    }
    return std::nullopt;
}

void AbaqusScanner::readKeyword(std::string_view text)
{
    m_keyword = {};
    m_keyword.m_line = m_line;
    std::string whole(text.substr(1));
    while (whole.ends_with(',')) {
        // The line goes on, unless the comma is one too many and another keyword follows.
        Open& file = m_open.back();
        std::size_t const at = file.m_at;
        unsigned const read = file.m_linesRead;
        auto const more = nextLineOfFile();
        if (!more.has_value() || more->front() == '*') {
            m_line -= file.m_linesRead - read;
            file.m_at = at;
            file.m_linesRead = read;
            break;
        }
        whole += *more;
    }
    Fields fields(whole);
    std::string_view const title = fields.next();
    m_keyword.m_name = keyOf(title);
    m_keyword.m_title = inCapitals(title);
    while (!fields.atEnd()) {
        std::string_view const field = fields.next();
        std::size_t const equals = field.find('=');
        std::string_view const value =
            equals != field.npos ? field.substr(equals + 1) : std::string_view();
        m_keyword.m_parameters.emplace_back(keyOf(field.substr(0, equals)),
                                            unquoted(trimmed(value)));
    }
}

}  // namespace vrn::orlo::host::meshing
