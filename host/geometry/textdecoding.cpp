#include "host/geometry/textdecoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <vector>

#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

namespace vrn::orlo::host::geometry {

namespace {

constexpr char const* kFallback = "windows-1252";
constexpr std::size_t kEnoughText = 256 * 1024;

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
struct CloseDetector {
    void operator()(UCharsetDetector* detector) const { ucsdet_close(detector); }
};

bool isHigh(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

bool isUtf8(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    // Only counts: the call fails at the first byte that is no UTF-8.
    u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<std::int32_t>(text.size()),
                  &status);
    return U_SUCCESS(status) || status == U_BUFFER_OVERFLOW_ERROR;
}

/// Lead and trail bytes of what is common in a two-byte encoding.
struct CommonPairs {
    char const* m_encoding;
    std::uint8_t m_firstLead, m_lastLead;  // everyday ideographs
    std::uint8_t m_firstSign, m_lastSign;  // signs and syllables
    std::uint8_t m_firstTrail, m_lastTrail;
};

// clang-format off
constexpr std::array kTwoByte{
    // encoding                ideographs  signs       trail
    CommonPairs{"Shift_JIS", 0x88, 0x97, 0x81, 0x83, 0x40, 0xFC},
    CommonPairs{"GB18030",   0xB0, 0xD7, 0xA1, 0xA9, 0xA1, 0xFE},
};
// clang-format on

/// Share of the bytes above 127 that belong to common pairs. Western text in these ranges is rare:
/// its letters stand alone between plain ones, or are leads of seldom ideographs.
double shareOfCommonPairs(std::string_view text, CommonPairs const& pairs)
{
    std::size_t common = 0;
    std::size_t all = 0;
    auto const in = [](std::uint8_t byte, std::uint8_t first, std::uint8_t last) {
        return byte >= first && byte <= last;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isHigh(text[i])) {
            continue;
        }
        ++all;
        auto const lead = static_cast<std::uint8_t>(text[i]);
        auto const trail = static_cast<std::uint8_t>(i + 1 < text.size() ? text[i + 1] : ' ');
        bool const isLead = in(lead, pairs.m_firstLead, pairs.m_lastLead) ||
                            in(lead, pairs.m_firstSign, pairs.m_lastSign);
        if (isLead && trail != 0x7F && in(trail, pairs.m_firstTrail, pairs.m_lastTrail)) {
            ++common;
            ++i;
        }
    }
    return all == 0 ? 0.0 : static_cast<double>(common) / static_cast<double>(all);
}

/// The detector's answer where it is a one-byte encoding and the detector is sure of it.
std::string surelyDetected(std::string_view text)
{
    constexpr std::int32_t kSure = 50;
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UCharsetDetector, CloseDetector> const detector(ucsdet_open(&status));
    ucsdet_setText(detector.get(), text.data(), static_cast<std::int32_t>(text.size()), &status);
    UCharsetMatch const* const match = ucsdet_detect(detector.get(), &status);
    if (U_FAILURE(status) || match == nullptr || ucsdet_getConfidence(match, &status) < kSure) {
        return kFallback;
    }
    std::string const name = ucsdet_getName(match, &status);
    bool const usable = name.starts_with("windows-") || name.starts_with("ISO-8859-") ||
                        name.starts_with("KOI8") || name.starts_with("EUC-") || name == "Big5";
    // windows-1252 is ISO-8859-1 and more.
    return !usable || U_FAILURE(status) || name == "ISO-8859-1" ? kFallback : name;
}

/// The quoted pieces of a line that hold bytes above 127. A text that goes on over the line's end
/// has its pieces on both lines: any piece between quotes or line ends is taken.
void collectQuoted(std::string_view line, std::string& texts)
{
    while (!line.empty()) {
        std::size_t const end = std::min(line.find('\''), line.size());
        std::string_view const piece = line.substr(0, end);
        if (std::any_of(piece.begin(), piece.end(), isHigh)) {
            texts.append(piece).push_back(' ');
        }
        line.remove_prefix(std::min(end + 1, line.size()));
    }
}

}  // namespace

std::string cleanName(std::string_view utf8)
{
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
    icu::UnicodeString clean;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        UChar32 const character = text.char32At(i);
        bool const plain =
            character != 0xFFFD && !u_iscntrl(character) && !U_IS_SURROGATE(character);
        clean.append(plain ? character : UChar32{' '});
    }
    clean.trim();
    std::string result;
    clean.toUTF8String(result);
    return result;
}

std::string guessEncoding(std::string_view texts)
{
    if (isUtf8(texts)) {
        return {};
    }
    constexpr double kMost = 0.8;
    CommonPairs const* best = nullptr;
    double bestShare = kMost;
    for (CommonPairs const& pairs : kTwoByte) {
        double const share = shareOfCommonPairs(texts, pairs);
        if (share >= bestShare) {
            best = &pairs;
            bestShare = share;
        }
    }
    return best != nullptr ? best->m_encoding : surelyDetected(texts);
}

std::string encodingOfQuotedTexts(std::filesystem::path const& file)
{
    std::ifstream in(file, std::ios::binary);
    std::string texts;
    std::string rest;  // the line that the last block broke off
    std::vector<char> block(1 << 20);
    while (in && texts.size() < kEnoughText) {
        in.read(block.data(), static_cast<std::streamsize>(block.size()));
        std::string_view text(block.data(), static_cast<std::size_t>(in.gcount()));
        if (std::none_of(text.begin(), text.end(), isHigh) &&
            std::none_of(rest.begin(), rest.end(), isHigh)) {
            rest.clear();
            continue;
        }
        while (!text.empty()) {
            std::size_t const end = text.find('\n');
            rest.append(text.substr(0, end));
            if (end == std::string_view::npos) {
                break;
            }
            collectQuoted(rest, texts);
            rest.clear();
            text.remove_prefix(end + 1);
        }
    }
    collectQuoted(rest, texts);
    return guessEncoding(texts);
}

std::string readAsUtf8(std::filesystem::path const& file, std::string const& encoding)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UConverter, CloseConverter> const converter(
        ucnv_open(encoding.c_str(), &status));
    std::ifstream in(file, std::ios::binary);
    std::string all;
    std::string line;
    // Line by line: no encoding here has a line feed inside of a letter, and nearly all lines are
    // plain.
    while (std::getline(in, line)) {
        if (std::any_of(line.begin(), line.end(), isHigh) && U_SUCCESS(status)) {
            UErrorCode lineStatus = U_ZERO_ERROR;
            icu::UnicodeString const text(line.data(), static_cast<std::int32_t>(line.size()),
                                          converter.get(), lineStatus);
            text.toUTF8String(all);
        } else {
            all += line;
        }
        all += '\n';
    }
    return all;
}

}  // namespace vrn::orlo::host::geometry
