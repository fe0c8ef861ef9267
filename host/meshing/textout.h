/// \file
/// A text of numbers, as mesh files are.

#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vrn::orlo::host::meshing {

/// Grows by what is put in.
class TextOut {
public:
    TextOut& operator<<(std::string_view text)
    {
        m_text += text;
        return *this;
    }
    TextOut& operator<<(std::int64_t number)
    {
        std::array<char, 24> digits;
        auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        m_text.append(digits.data(), end);
        return *this;
    }
    /// The shortest text that gives the number again.
    TextOut& operator<<(double number)
    {
        std::array<char, 32> digits;
        auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        m_text.append(digits.data(), end);
        return *this;
    }
    /// The same, with fewer digits where it would be longer than `most`, which is 20 or more.
    void real(double number, std::size_t most)
    {
        std::size_t const start = m_text.size();
        *this << number;
        for (int precision = 15; m_text.size() - start > most; --precision) {
            m_text.resize(start);
            std::array<char, 32> digits;
            auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                           std::chars_format::scientific, precision)
                                 .ptr;
            m_text.append(digits.data(), end);
        }
    }
    [[nodiscard]] std::string const& text() const noexcept { return m_text; }

private:
    std::string m_text;
};

}  // namespace vrn::orlo::host::meshing
