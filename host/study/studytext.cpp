#include "host/study/studytext.h"

#include "host/study/studyerror.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string_view>
#include <system_error>

namespace vrn::orlo::host::study {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLongestStudy = 1024 * 1024;  // bytes; real ones have a few thousand

/// One form of a UTF-8 character: its first byte's range, the second byte's range, its length.
struct Utf8Row {
    unsigned m_firstMin;
    unsigned m_firstMax;
    unsigned m_secondMin;
    unsigned m_secondMax;
    std::size_t m_length;
};

// clang-format off
constexpr std::array kUtf8Forms{
    Utf8Row{0x00, 0x7F, 0x00, 0x00, 1},
    Utf8Row{0xC2, 0xDF, 0x80, 0xBF, 2},
    Utf8Row{0xE0, 0xE0, 0xA0, 0xBF, 3},  // no longer form than needed
    Utf8Row{0xE1, 0xEC, 0x80, 0xBF, 3},
    Utf8Row{0xED, 0xED, 0x80, 0x9F, 3},  // no halves of surrogate pairs
    Utf8Row{0xEE, 0xEF, 0x80, 0xBF, 3},
    Utf8Row{0xF0, 0xF0, 0x90, 0xBF, 4},
    Utf8Row{0xF1, 0xF3, 0x80, 0xBF, 4},
    Utf8Row{0xF4, 0xF4, 0x80, 0x8F, 4},  // nothing above U+10FFFF
};
// clang-format on

bool isBetween(char c, unsigned low, unsigned high)
{
    auto const byte = static_cast<unsigned char>(c);
    return byte >= low && byte <= high;
}

/// Bytes of the character that a text begins with; 0 when it is none.
std::size_t lengthOfCharacter(std::string_view text)
{
    auto const row = std::find_if(kUtf8Forms.begin(), kUtf8Forms.end(), [&](Utf8Row const& form) {
        return isBetween(text.front(), form.m_firstMin, form.m_firstMax);
    });
    if (row == kUtf8Forms.end() || text.size() < row->m_length) {
        return 0;
    }
    for (std::size_t i = 1; i < row->m_length; ++i) {
        bool const second = i == 1;
        if (!isBetween(text[i], second ? row->m_secondMin : 0x80U,
                       second ? row->m_secondMax : 0xBFU)) {
            return 0;
        }
    }
    return row->m_length;
}

bool isForbidden(char c)
{
    return (isBetween(c, 0x00, 0x1F) && c != '\t' && c != '\n' && c != '\r') || c == '\x7F';
}

[[noreturn]] void refuse(fs::path const& file, std::string_view reason, int line = 0)
{
    throw StudyError({file, line, {}}, reason);
}

}  // namespace

std::string readStudyText(fs::path const& file)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (!fs::exists(status)) {
        refuse(file, status.type() == fs::file_type::not_found
                         ? "there is no such file; give the path of a study file"
                         : "cannot be reached: " + error.message());
    }
    if (fs::is_directory(status)) {
        refuse(file, "is a folder; give the study file in it, for instance " +
                         inQuotes((file / "study.yaml").string()));
    }
    if (!fs::is_regular_file(status)) {
        refuse(file, "is no regular file; give the path of a study file");
    }
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        refuse(file, std::string("cannot be read: ") + std::strerror(errno));
    }
    if (fs::file_size(file, error) > kLongestStudy || error) {
        refuse(file,
               "is longer than 1 MiB, so it is no study; give the YAML file that names the "
               "geometry, not the geometry itself");
    }
    std::string text(static_cast<std::size_t>(kLongestStudy), '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (in.bad()) {
        refuse(file, "cannot be read to its end");
    }
    text.resize(static_cast<std::size_t>(in.gcount()));
    return text;
}

void checkStudyText(fs::path const& file, std::string const& text)
{
    std::string_view rest = text;
    int line = 1;
    while (!rest.empty()) {
        std::size_t const length = lengthOfCharacter(rest);
        if (length == 0) {
            refuse(file, "is not UTF-8 text; save it with the encoding UTF-8", line);
        }
        if (isForbidden(rest.front())) {
            refuse(file, "holds a control character; a study is plain text", line);
        }
        line += rest.front() == '\n' ? 1 : 0;
        rest.remove_prefix(length);
    }
}

}  // namespace vrn::orlo::host::study
