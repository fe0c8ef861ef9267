#include "plugins/modelingplugin/utilities/numerics/colorargb.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace vrn::orlo::plugin::modeling {

namespace {

/// Value of a hexadecimal digit; -1 for another character.
int hexDigit(char digit)
{
    int value = -1;
    std::from_chars(&digit, &digit + 1, value, 16);  // takes no sign for a single character
    return value;
}

/// One byte of a colour from a place on the hue circle, given in turns.
unsigned char channel(float p, float q, float x)
{
    if (x < 0.0F) {
        x += 1.0F;
    } else if (x > 1.0F) {
        x -= 1.0F;
    }
    float value = p;
    if (x < 0.16666667F) {
        value = (q - p) * 6.0F * x + p;
    } else if (x < 0.5F) {
        value = q;
    } else if (x < 0.6666667F) {
        value = (q - p) * 6.0F * (0.6666667F - x) + p;
    }
    // By way of int: saturation and lightness outside of their range give a byte all the same.
    return static_cast<unsigned char>(static_cast<int>(value * 255.0F));
}

}  // namespace

ColorARGB::ColorARGB(std::string const& text)
{
    if (text.empty() || text.front() != '#') {
        return;
    }
    std::array<unsigned char, 4> numbers{};
    std::size_t count = 0;
    for (std::size_t i = 1; i + 1 < text.size(); i += 2) {
        int const high = hexDigit(text[i]);
        int const low = hexDigit(text[i + 1]);
        if (high < 0 || low < 0) {
            break;
        }
        if (count == numbers.size()) {
            return;
        }
        numbers[count++] = static_cast<unsigned char>(16 * high + low);
    }
    if (count == 3) {
        m_argb = {255, numbers[0], numbers[1], numbers[2]};
    } else if (count == 4) {
        m_argb = numbers;
    }
}

void ColorARGB::set(unsigned char const (&argb)[4])
{
    std::copy_n(argb, 4, m_argb.begin());
}

void ColorARGB::set(unsigned char const (&rgb)[3])
{
    std::copy_n(rgb, 3, m_argb.begin() + 1);
}

void ColorARGB::set(unsigned int argb)
{
    m_argb = {static_cast<unsigned char>(argb >> 24), static_cast<unsigned char>(argb >> 16),
              static_cast<unsigned char>(argb >> 8), static_cast<unsigned char>(argb)};
}

ColorARGB ColorARGB::fromHSL(float h, float s, float l)
{
    float const q = l < 0.5F ? (s + 1.0F) * l : s + l - s * l;
    float const p = 2.0F * l - q;
    float const t = h / 360.0F;
    return {channel(p, q, t + 0.33333334F), channel(p, q, t), channel(p, q, t - 0.33333334F), 255};
}

unsigned int ColorARGB::toInt() const
{
    return static_cast<unsigned int>(a()) << 24 | static_cast<unsigned int>(toIntRGB());
}

int ColorARGB::toIntRGB() const
{
    return r() << 16 | g() << 8 | b();
}

std::string ColorARGB::toString() const
{
    constexpr char const* kDigits = "0123456789ABCDEF";
    std::string text = "#";
    for (unsigned char const byte : m_argb) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

}  // namespace vrn::orlo::plugin::modeling
