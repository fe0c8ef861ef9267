/// \file
/// A colour of four bytes.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <array>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// A colour: alpha, red, green and blue, in this order in memory.
///
/// Units      Bytes, 0 to 255. opacity() and the rest of the float accessors: 0 to 1.
/// Order      Alpha first, except in the arguments (r, g, b, a), where it comes last.
/// Failure    A text that is no colour gives four zeros.
class MODELING_API ColorARGB {
public:
    /// Four zeros.
    ColorARGB() = default;
    explicit ColorARGB(unsigned char const (&argb)[4]) { set(argb); }
    ColorARGB(unsigned char r, unsigned char g, unsigned char b, unsigned char a)
        : m_argb{a, r, g, b}
    {
    }
    /// Opaque; the low 24 bits are red, green and blue.
    explicit ColorARGB(int rgb) { set(static_cast<unsigned int>(rgb) | 0xFF000000U); }
    /// The top byte is alpha.
    explicit ColorARGB(unsigned int argb) { set(argb); }
    /// "#RRGGBB", opaque, or "#AARRGGBB". Pairs of hexadecimal digits count up to the first that is
    /// none, so that "#FF00FF8" and "#FF00FFZZ" have three; other than three or four give zeros.
    explicit ColorARGB(std::string const& text);

    void set(unsigned char const (&argb)[4]);
    void set(unsigned char r, unsigned char g, unsigned char b, unsigned char a)
    {
        m_argb = {a, r, g, b};
    }
    /// Red, green, blue; alpha is kept.
    void set(unsigned char const (&rgb)[3]);
    /// The top byte is alpha.
    void set(unsigned int argb);

    /// Hue in degrees, saturation and lightness from 0 to 1. Opaque. Computed in single precision,
    /// with bytes truncated. A hue is brought back by one turn of a channel's place only: one far
    /// outside of 0 to 360 does not wrap.
    [[nodiscard]] static ColorARGB fromHSL(float h, float s, float l);

    [[nodiscard]] unsigned char a() const { return m_argb[0]; }
    [[nodiscard]] unsigned char r() const { return m_argb[1]; }
    [[nodiscard]] unsigned char g() const { return m_argb[2]; }
    [[nodiscard]] unsigned char b() const { return m_argb[3]; }
    [[nodiscard]] unsigned char& a() { return m_argb[0]; }
    [[nodiscard]] unsigned char& r() { return m_argb[1]; }
    [[nodiscard]] unsigned char& g() { return m_argb[2]; }
    [[nodiscard]] unsigned char& b() { return m_argb[3]; }
    /// Not checked: 0 to 3 for alpha, red, green, blue.
    [[nodiscard]] unsigned char operator[](unsigned int index) const { return m_argb[index]; }
    [[nodiscard]] unsigned char& operator[](unsigned int index) { return m_argb[index]; }
    /// The four bytes from alpha on.
    [[nodiscard]] unsigned char const* argb() const { return m_argb.data(); }
    [[nodiscard]] unsigned char* argb() { return m_argb.data(); }
    /// The three bytes from red on.
    [[nodiscard]] unsigned char const* rgb() const { return m_argb.data() + 1; }
    [[nodiscard]] unsigned char* rgb() { return m_argb.data() + 1; }

    [[nodiscard]] float rf() const { return share(r()); }
    [[nodiscard]] float gf() const { return share(g()); }
    [[nodiscard]] float bf() const { return share(b()); }
    [[nodiscard]] float opacity() const { return share(a()); }

    /// Alpha, red, green, blue from the top byte down.
    [[nodiscard]] unsigned int toInt() const;
    /// Red, green, blue in the low 24 bits.
    [[nodiscard]] int toIntRGB() const;
    /// "#AARRGGBB", upper case.
    [[nodiscard]] std::string toString() const;

    friend bool operator==(ColorARGB const&, ColorARGB const&) = default;

private:
    [[nodiscard]] static float share(unsigned char byte)
    {
        return static_cast<float>(byte / 255.0);
    }

    std::array<unsigned char, 4> m_argb{};
};

static_assert(sizeof(ColorARGB) == 4);

}  // namespace vrn::orlo::plugin::modeling
