/// \file
/// Names of parts, sets and types: letters A to Z count the same in either case.

#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace vrn::orlo::host::meshing {

[[nodiscard]] constexpr char inCapitals(char c) noexcept
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[nodiscard]] inline std::string inCapitals(std::string_view text)
{
    std::string capitals(text);
    for (char& c : capitals) {
        c = inCapitals(c);
    }
    return capitals;
}

[[nodiscard]] constexpr bool isSameName(std::string_view left, std::string_view right) noexcept
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return inCapitals(a) == inCapitals(b); });
}

}  // namespace vrn::orlo::host::meshing
