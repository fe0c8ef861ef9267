#include "host/meshing/bulkdatascanner.h"

#include "host/meshing/meshtext.h"
#include "host/meshing/names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kColumns = 8;
constexpr std::size_t kTailColumn = 72;

bool isDigitOrPoint(char c) noexcept
{
    return (c >= '0' && c <= '9') || c == '.';
}

bool beginsWith(std::string_view line, std::string_view word) noexcept
{
    return line.size() >= word.size() && isSameName(line.substr(0, word.size()), word);
}

/// The text without what follows a dollar sign, and without blanks at the end.
std::string_view withoutComment(std::string_view line) noexcept
{
    line = line.substr(0, line.find('$'));
    while (!line.empty() && isBlank(line.back())) {
        line.remove_suffix(1);
    }
    return line;
}

std::string withoutTabs(std::string_view line)
{
    std::string expanded;
    for (char const c : line) {
        expanded.append(c == '\t' ? kColumns - expanded.size() % kColumns : 1, c == '\t' ? ' ' : c);
    }
    return expanded;
}

std::string_view columns(std::string_view line, std::size_t first, std::size_t count) noexcept
{
    return first < line.size() ? trimmed(line.substr(first, count)) : std::string_view();
}

/// "+" and "*" alone say only that a line goes on.
std::string_view nameOfContinuation(std::string_view mark) noexcept
{
    return mark.empty() ? mark : mark.substr(1);
}

}  // namespace

std::optional<double> bulkDataNumber(std::string_view field) noexcept
{
    if (field.starts_with('+')) {
        field.remove_prefix(1);
    }
    double number = 0.0;
    char const* const end = field.data() + field.size();
    auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error == std::errc() && stop == end) {
        return std::isfinite(number) ? std::optional(number) : std::nullopt;
    }
    // The exponent has a D, or nothing but its sign.
    std::array<char, 64> copy;
    if (error != std::errc() || field.size() + 1 > copy.size()) {
        return std::nullopt;
    }
    char* out = std::copy(field.data(), stop, copy.data());
    if (*stop == 'D' || *stop == 'd') {
        ++stop;
    } else if ((*stop != '+' && *stop != '-') || !isDigitOrPoint(*(stop - 1))) {
        return std::nullopt;
    }
    *out++ = 'e';
    out = std::copy(stop, end, out);
    auto const again = std::from_chars(copy.data(), out, number);
    bool const isNumber = again.ec == std::errc() && again.ptr == out && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

BulkDataScanner::BulkDataScanner(fs::path const& file)
{
    open(file, meshTextOf(file));
    skipToBulk();
    lookAhead();
}

std::size_t BulkDataScanner::fieldCount() const noexcept
{
    std::size_t count = m_fields.size();
    while (count > 0 && m_fields[count - 1].empty()) {
        --count;
    }
    return count;
}

void BulkDataScanner::checkLines() const
{
    if (m_trouble.m_line != 0) {
        m_lines.refuse(m_trouble.m_line, m_name + " " + m_trouble.m_wrong, m_trouble.m_mend);
    }
}

void BulkDataScanner::open(fs::path const& file, std::string text)
{
    m_texts.push_back(std::move(text));
    m_open.push_back({m_lines.addFile(file), m_texts.back()});
    m_lines.begin(m_line + 1, m_open.back().m_file, 1);
}

void BulkDataScanner::skipToBulk()
{
    Open const start = m_open.back();
    while (auto const line = nextLineOfFile()) {
        if (beginsWith(*line, "BEGIN") && trimmed(*line).size() > 5 && isBlank((*line)[5])) {
            return;
        }
    }
    m_open.back() = start;  // the file is bulk data from its first line on
    m_line = 0;
}

void BulkDataScanner::include(std::string_view text)
{
    std::string_view const name = trimmed(text);
    bool const isCut =
        !name.empty() && (name.front() == '\'' || name.front() == '"') && unquoted(name) == name;
    if (name.empty() || isCut) {
        m_lines.refuse(m_line, "INCLUDE names no file on its line",
                       "write INCLUDE 'name' on one line");
    }
    fs::path const file = m_lines.file(m_open.back().m_file).parent_path() / unquoted(name);
    for (Open const& outer : m_open) {
        std::error_code ignored;
        if (fs::equivalent(m_lines.file(outer.m_file), file, ignored)) {
            m_lines.refuse(
                m_line, "includes \"" + file.filename().string() + "\", in which it stands itself",
                "take out one of the two");
        }
    }
    std::string reason;
    std::string content = meshTextOf(file, reason);
    if (!reason.empty()) {
        m_lines.refuse(m_line, "includes " + file.string() + ": " + reason,
                       "put the file there or correct its name");
    }
    open(file, std::move(content));
}

std::optional<std::string_view> BulkDataScanner::nextLineOfFile()
{
    Open& file = m_open.back();
    while (file.m_at < file.m_text.size()) {
        std::size_t const end = std::min(file.m_text.find('\n', file.m_at), file.m_text.size());
        std::string_view const line =
            withoutComment(file.m_text.substr(file.m_at, end - file.m_at));
        file.m_at = end + 1;
        ++file.m_linesRead;
        ++m_line;
        if (!line.empty()) {
            return line;
        }
    }
    return std::nullopt;
}

void BulkDataScanner::lookAhead()
{
    m_hasAhead = false;
    while (!m_open.empty()) {
        auto const line = nextLineOfFile();
        if (!line.has_value()) {
            m_open.pop_back();
            if (!m_open.empty()) {
                m_lines.begin(m_line + 1, m_open.back().m_file, m_open.back().m_linesRead + 1);
            }
        } else if (beginsWith(*line, "INCLUDE")) {
            include(line->substr(7));
        } else if (beginsWith(*line, "ENDDATA")) {
            return;
        } else {
            m_hasAhead = true;
            split(*line);
            return;
        }
    }
}

void BulkDataScanner::split(std::string_view text)
{
    m_ahead = {};
    if (text.find(',') != text.npos) {
        splitFree(text);
    } else if (text.find('\t') != text.npos) {
        m_expanded.push_back(withoutTabs(text));
        splitFixed(m_expanded.back());
    } else {
        splitFixed(text);
    }
    m_ahead.m_isContinuation =
        m_ahead.m_head.empty() || m_ahead.m_head.front() == '+' || m_ahead.m_head.front() == '*';
}

void BulkDataScanner::splitFixed(std::string_view text)
{
    m_ahead.m_head = columns(text, 0, kColumns);
    m_ahead.m_isLarge = m_ahead.m_head.starts_with('*') || m_ahead.m_head.ends_with('*');
    m_ahead.m_count = m_ahead.m_isLarge ? 4 : 8;
    std::size_t const width = m_ahead.m_isLarge ? 2 * kColumns : kColumns;
    std::size_t column = kColumns;
    for (std::size_t i = 0; i < m_ahead.m_count && column < text.size(); ++i, column += width) {
        m_ahead.m_fields[i] = trimmed(text.substr(column, width));
    }
    // Old files number their lines there: only a mark makes it the name of a continuation.
    std::string_view const tail = columns(text, kTailColumn, kColumns);
    if (tail.starts_with('+') || tail.starts_with('*')) {
        m_ahead.m_tail = tail;
    }
}

void BulkDataScanner::splitFree(std::string_view text)
{
    std::size_t comma = text.find(',');
    m_ahead.m_head = trimmed(text.substr(0, comma));
    m_ahead.m_isLarge = m_ahead.m_head.starts_with('*') || m_ahead.m_head.ends_with('*');
    m_ahead.m_count = m_ahead.m_isLarge ? 4 : 8;
    for (std::size_t i = 0; comma != text.npos; ++i) {
        text.remove_prefix(comma + 1);
        comma = text.find(',');
        std::string_view const field = trimmed(text.substr(0, comma));
        if (i < m_ahead.m_count) {
            m_ahead.m_fields[i] = field;
        } else if (i == m_ahead.m_count) {
            m_ahead.m_tail = field;
        } else if (!field.empty()) {
            m_ahead.m_hasTooMany = true;
        }
    }
}

bool BulkDataScanner::next()
{
    if (!m_hasAhead) {
        return false;
    }
    if (m_expanded.size() > 1) {  // the last may be of the line ahead
        m_expanded.erase(m_expanded.begin(), m_expanded.end() - 1);
    }
    m_name.assign(m_ahead.m_head.substr(0, m_ahead.m_head.find_first_of(" \t*")));
    std::transform(m_name.begin(), m_name.end(), m_name.begin(),
                   [](char c) { return inCapitals(c); });
    m_cardLine = m_line;
    if (m_name.starts_with('=')) {
        refuse("\"=\" repeats fields of the card above, and is not read", "write the cards out");
    }
    m_fields.clear();
    m_trouble = {};
    m_isHalfLarge = false;
    if (m_ahead.m_isContinuation) {
        refuse("the line continues no card",
               "begin it with the name of a card, or put the card's first line above it");
    }
    take();
    while (m_hasAhead && m_ahead.m_isContinuation) {
        checkTail(true);
        take();
    }
    checkTail(false);
    return true;
}

void BulkDataScanner::take()
{
    if (m_ahead.m_hasTooMany) {
        note("has more than ten fields on a line", "go on in a second line, which begins with +");
    }
    if (m_isHalfLarge && !m_ahead.m_isLarge) {
        note("goes on from fields of 16 columns without an asterisk",
             "begin the line with *, and use fields of 16 columns in it");
    }
    m_fields.insert(m_fields.end(), m_ahead.m_fields, m_ahead.m_fields + m_ahead.m_count);
    m_isHalfLarge = m_ahead.m_isLarge && !m_isHalfLarge;
    m_tail = m_ahead.m_tail;
    lookAhead();
}

void BulkDataScanner::checkTail(bool isContinued)
{
    std::string_view const wanted = nameOfContinuation(m_tail);
    std::string_view const given =
        isContinued ? nameOfContinuation(m_ahead.m_head) : std::string_view();
    bool const isOther = !given.empty() && !wanted.empty() && !isSameName(wanted, given);
    bool const isMissing =
        !isContinued && (!wanted.empty() || (!m_tail.empty() && isDigitOrPoint(m_tail.front())));
    if (!m_tail.empty() && (isOther || isMissing)) {
        note("names a continuation that does not follow",
             "put the line that continues it right below");
    }
}

void BulkDataScanner::note(char const* wrong, char const* mend)
{
    if (m_trouble.m_line == 0) {
        m_trouble = {m_cardLine, wrong, mend};
    }
}

}  // namespace vrn::orlo::host::meshing
