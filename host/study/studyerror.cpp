#include "host/study/studyerror.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vrn::orlo::host::study {

namespace {

std::string oneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
    return text;
}

/// The text, or its beginning and dots. No character is cut in two.
std::string shortened(std::string_view text, std::size_t longest)
{
    auto const continuesACharacter = [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    };
    std::size_t length = std::min(text.size(), longest);
    while (length > 0 && length < text.size() && continuesACharacter(text[length])) {
        --length;
    }
    return std::string(text.substr(0, length)) + (length < text.size() ? "..." : "");
}

std::string messageOf(KeyPlace const& place, std::string_view reason)
{
    std::string text = place.m_file.string();
    if (place.m_line > 0) {
        text += ':' + std::to_string(place.m_line);
    }
    text += ": ";
    if (!place.m_key.empty()) {
        constexpr std::size_t kLongestKey = 120;
        text += shortened(place.m_key, kLongestKey) + ": ";
    }
    return oneLine(text.append(reason));
}

}  // namespace

StudyError::StudyError(KeyPlace place, std::string_view reason)
    : std::runtime_error(messageOf(place, reason)), m_place(std::move(place))
{
}

std::string inQuotes(std::string_view text)
{
    constexpr std::size_t kLongest = 60;
    return "'" + shortened(text, kLongest) + "'";
}

}  // namespace vrn::orlo::host::study
