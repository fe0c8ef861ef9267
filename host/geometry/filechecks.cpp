#include "host/geometry/filechecks.h"

#include "host/geometry/geometryimport.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <cstring>
#include <fstream>
#include <string_view>
#include <system_error>

namespace vrn::orlo::host::geometry {

namespace {

namespace fs = std::filesystem;

struct EndingRow {
    std::string_view m_ending;
    FileKind m_kind;
};

constexpr std::array kEndings{EndingRow{".stp", FileKind::step}, EndingRow{".step", FileKind::step},
                              EndingRow{".p21", FileKind::step}, EndingRow{".stl", FileKind::stl}};

constexpr std::streamoff kFrame = 64 * 1024;  // of either end; more than any header or signature

/// Up to kFrame bytes from the beginning or from the end.
std::string frameOf(fs::path const& file, bool fromEnd)
{
    std::ifstream in(file, std::ios::binary);
    auto const size = static_cast<std::streamoff>(fs::file_size(file));
    std::string text(static_cast<std::size_t>(std::min(size, kFrame)), '\0');
    in.seekg(fromEnd ? size - static_cast<std::streamoff>(text.size()) : 0);
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    return text;
}

bool isBlank(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/// Without byte-order mark, blanks and comments in front.
std::string_view withoutPreamble(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    for (;;) {
        text.remove_prefix(static_cast<std::size_t>(
            std::find_if_not(text.begin(), text.end(), isBlank) - text.begin()));
        std::size_t const end = text.starts_with("/*") ? text.find("*/", 2) : text.npos;
        if (end == text.npos) {
            return text;
        }
        text.remove_prefix(end + 2);
    }
}

std::string lowered(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) {
        return static_cast<char>(c < 0x80 ? std::tolower(c) : c);
    });
    return text;
}

}  // namespace

void refuse(fs::path const& file, std::string const& reason)
{
    throw ImportError(file.string() + ": " + reason);
}

FileKind checkFile(fs::path const& file)
{
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (!fs::exists(status)) {
        refuse(file, error && status.type() != fs::file_type::not_found
                         ? "cannot be reached: " + error.message()
                         : "there is no such file");
    }
    if (fs::is_directory(status)) {
        refuse(file, "is a folder, not a geometry file");
    }
    std::string const ending = lowered(file.extension().string());
    auto const row = std::find_if(kEndings.begin(), kEndings.end(),
                                  [&](EndingRow const& r) { return r.m_ending == ending; });
    if (row == kEndings.end()) {
        refuse(file, "is of no known kind; geometry files end in .step, .stp, .p21 or .stl");
    }
    if (!fs::is_regular_file(status) || !std::ifstream(file, std::ios::binary)) {
        refuse(file, "cannot be read; are you allowed to read it?");
    }
    if (fs::file_size(file, error) == 0 || error) {
        refuse(file, "is empty");
    }
    return row->m_kind;
}

void checkStepFrame(fs::path const& file)
{
    std::string const head = frameOf(file, false);
    if (!withoutPreamble(head).starts_with("ISO-10303-21")) {
        refuse(file, "is no STEP file: it does not begin with ISO-10303-21");
    }
    if (frameOf(file, true).find("END-ISO-10303-21") == std::string::npos) {
        refuse(file, "is cut off: END-ISO-10303-21 is missing at its end; copy or export it again");
    }
}

void checkStlFrame(fs::path const& file)
{
    constexpr std::uintmax_t kHeader = 84;
    constexpr std::uintmax_t kTriangle = 50;
    std::string const head = frameOf(file, false);
    std::uintmax_t const size = fs::file_size(file);
    bool const saysSolid = lowered(std::string(withoutPreamble(head).substr(0, 5))) == "solid";
    // Text has no zero bytes; binary files often begin with "solid" too.
    bool const isText = saysSolid && head.find('\0') == std::string::npos;
    if (isText) {
        if (lowered(head).find("facet") == std::string::npos) {
            refuse(file, "is no STL file, or holds no triangles");
        }
        if (lowered(frameOf(file, true)).find("endsolid") == std::string::npos) {
            refuse(file, "is cut off: endsolid is missing at its end; copy or export it again");
        }
        return;
    }
    bool const printable = std::none_of(head.begin(), head.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && !isBlank(c);
    });
    if (printable || size < kHeader) {
        refuse(file, "is no STL file: it is neither a text of facets nor binary triangles");
    }
    static_assert(std::endian::native == std::endian::little, "the count is stored that way");
    std::uint32_t triangles = 0;
    std::memcpy(&triangles, head.data() + kHeader - sizeof triangles, sizeof triangles);
    if (triangles == 0) {
        refuse(file, "holds no triangles");
    }
    if (size < kHeader + kTriangle * triangles) {
        refuse(file, "is cut off: it says it holds " + std::to_string(triangles) +
                         " triangles and has room for " +
                         std::to_string((size - kHeader) / kTriangle) +
                         "; copy or export it again");
    }
}

}  // namespace vrn::orlo::host::geometry
