#include "host/meshing/gmshsource.h"

#include "host/meshing/meshtext.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>
#include <type_traits>

namespace vrn::orlo::host::meshing {

namespace {

constexpr char const* kCutMend = "write it again, as it seems to be cut";

bool endsWord(char c) noexcept
{
    return c == '\n' || isBlank(c);
}

}  // namespace

GmshSource::GmshSource(std::filesystem::path const& file)
    : m_text(meshTextOf(file)), m_at(m_text.data()), m_end(m_at + m_text.size())
{
    m_lines.begin(1, m_lines.addFile(file), 1);
}

void GmshSource::skipBlanks() noexcept
{
    while (m_at != m_end && isBlank(*m_at)) {
        ++m_at;
    }
}

void GmshSource::skipToText() noexcept
{
    for (; m_at != m_end && endsWord(*m_at); ++m_at) {
        m_line += *m_at == '\n' ? 1 : 0;
    }
    m_recordLine = m_isBinary ? static_cast<SourceLine>(m_at - m_text.data()) : m_line;
}

std::optional<std::string_view> GmshSource::beginSection()
{
    skipToText();
    if (m_at == m_end) {
        return std::nullopt;
    }
    if (*m_at != '$') {
        refuse("a section should begin here, with a $ and its name",
               "is it a Gmsh mesh? If so, write it again");
    }
    ++m_at;
    m_section = word();
    if (m_isBinary) {  // what follows the end of the line may look like blanks
        m_at = std::find(m_at, m_end, '\n');
        m_at += m_at != m_end ? 1 : 0;
    }
    return m_section;
}

void GmshSource::endSection()
{
    skipToText();
    if (m_at == m_end) {
        refuseEnd();
    }
    std::string const end = "$End" + std::string(m_section);
    if (word() != end) {
        refuse("more follows in $" + std::string(m_section) + " than it announces",
               "correct the count, or write the file again");
    }
}

void GmshSource::skipSection()
{
    std::string const end = "\n$End" + std::string(m_section);
    std::string_view const rest(m_at, static_cast<std::size_t>(m_end - m_at));
    std::size_t const found = rest.find(end);
    if (found == rest.npos) {
        refuseEnd();
    }
    char const* const behind = m_at + found + end.size();
    m_line += static_cast<SourceLine>(std::count(m_at, behind, '\n'));
    m_at = behind;
}

void GmshSource::beginBinary()
{
    m_isBinary = true;
    m_lines.beginBytes(0);
    beginRecord();
    auto const one = binary<std::uint32_t>();
    if (one != 1U && one != 0x01000000U) {
        refuse("the mark of the order of bytes is neither 1 nor 1 turned about",
               "write the file again");
    }
    m_isSwapped = one != 1U;
}

void GmshSource::beginRecord()
{
    if (m_isBinary) {
        m_recordLine = static_cast<SourceLine>(m_at - m_text.data());
    } else {
        skipToText();
    }
}

void GmshSource::endRecord()
{
    if (m_isBinary) {
        return;
    }
    skipBlanks();
    if (m_at != m_end && *m_at != '\n') {
        refuse("\"" + shown(word()) + "\" is one number too many on its line",
               "take it out, or correct the type of the element");
    }
}

std::string_view GmshSource::word()
{
    skipBlanks();
    char const* const start = m_at;
    while (m_at != m_end && !endsWord(*m_at)) {
        ++m_at;
    }
    return {start, static_cast<std::size_t>(m_at - start)};
}

std::string_view GmshSource::quoted()
{
    skipBlanks();
    char const* const lineEnd = std::find(m_at, m_end, '\n');
    std::string_view const rest = trimmed({m_at, static_cast<std::size_t>(lineEnd - m_at)});
    m_at = lineEnd;
    return unquoted(rest);
}

std::int64_t GmshSource::textInteger(char const* what)
{
    return text<std::int64_t>(what);
}

std::int64_t GmshSource::textCount(char const* what)
{
    skipToText();
    auto const count = text<std::int64_t>(what);
    while (m_at != m_end && *m_at != '\n') {
        ++m_at;
    }
    if (m_at != m_end) {
        ++m_at;
        ++m_line;
    }
    return count;
}

std::int64_t GmshSource::int32(char const* what)
{
    return m_isBinary ? binary<std::int32_t>() : text<std::int64_t>(what);
}

std::int64_t GmshSource::int64(char const* what)
{
    return m_isBinary ? binary<std::int64_t>() : text<std::int64_t>(what);
}

double GmshSource::real(char const* what)
{
    double const number = m_isBinary ? binary<double>() : text<double>(what);
    if (!std::isfinite(number)) {
        refuse(std::string("a ") + what + " is not finite", "write a number");
    }
    return number;
}

template <class Number>
Number GmshSource::binary()
{
    if (static_cast<std::size_t>(m_end - m_at) < sizeof(Number)) {
        refuseEnd();
    }
    char bytes[sizeof(Number)];
    std::memcpy(bytes, m_at, sizeof(Number));
    m_at += sizeof(Number);
    if (m_isSwapped) {
        std::reverse(bytes, bytes + sizeof(Number));
    }
    Number number;
    std::memcpy(&number, bytes, sizeof(Number));
    return number;
}

template <class Number>
Number GmshSource::text(char const* what)
{
    skipBlanks();
    Number number{};
    char const* const start = m_at + (m_at != m_end && *m_at == '+' ? 1 : 0);
    auto const [stop, error] = std::from_chars(start, m_end, number);
    if (error != std::errc() || (stop != m_end && !endsWord(*stop))) {
        refuseText(what);
    }
    m_at = stop;
    return number;
}

std::size_t GmshSource::possible(std::int64_t count, std::size_t bytes) const
{
    auto const most = static_cast<std::size_t>(m_end - m_at) / bytes;
    return std::min(most, static_cast<std::size_t>(std::max(count, std::int64_t{0})));
}

void GmshSource::refuseEnd() const
{
    m_lines.refuse(m_isBinary ? m_text.size() : m_line, "the file ends inside $" + shown(m_section),
                   kCutMend);
}

void GmshSource::refuseText(char const* what) const
{
    std::string_view const rest = std::string_view(m_at, static_cast<std::size_t>(m_end - m_at));
    if (rest.find_first_not_of("\n" + std::string(kBlanks)) == rest.npos) {
        refuseEnd();
    }
    std::string const found(rest.substr(0, std::min(rest.find_first_of(" \t\r\n"), rest.size())));
    if (found.starts_with('$')) {
        refuse("$" + std::string(m_section) + " ends before all that it announces",
               "correct the count, or write the file again");
    }
    if (found.empty()) {
        refuse(std::string("a ") + what + " is missing on the line",
               "add it, or correct the type of the element");
    }
    refuse("\"" + shown(found) + "\" is no " + what, "write a number there");
}

}  // namespace vrn::orlo::host::meshing
