#include "platform/kfr/numbertext.h"

#include <array>
#include <charconv>

namespace KFR {

std::string numberText(double value)
{
    std::array<char, 32> text;  // the longest shortest text of a double has 24 characters
    auto const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

}  // namespace KFR
