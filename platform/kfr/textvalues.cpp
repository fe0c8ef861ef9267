#include "platform/kfr/textvalues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace KFR {

namespace {

constexpr std::array<std::string_view, 4> kTrue{"true", "yes", "on", "1"};
constexpr std::array<std::string_view, 4> kFalse{"false", "no", "off", "0"};

constexpr char lower(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isOneOf(std::string_view text, std::array<std::string_view, 4> const& words) noexcept
{
    return std::ranges::any_of(
        words, [text](std::string_view word) { return std::ranges::equal(text, word, {}, lower); });
}

}  // namespace

bool stringToBool(std::string_view text) noexcept
{
    return isOneOf(text, kTrue);
}

std::optional<bool> readBool(std::string_view text) noexcept
{
    if (isOneOf(text, kTrue)) {
        return true;
    }
    return isOneOf(text, kFalse) ? std::optional(false) : std::nullopt;
}

float stringToReal32(std::string_view text) noexcept
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    float value = 0.0F;
    auto const read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc() ? value : 0.0F;
}

}  // namespace KFR
