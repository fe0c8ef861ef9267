#include "plugins/modelingplugin/utilities/numerics/colorargb.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

TEST(ColorARGB, KeepsAlphaRedGreenBlueInMemoryAndAlphaWhenThreeBytesAreSet)
{
    ColorARGB color(1, 2, 3, 4);  // alpha last
    unsigned char const expected[4] = {4, 1, 2, 3};
    EXPECT_EQ(std::memcmp(&color, expected, 4), 0);
    EXPECT_EQ(ColorARGB(expected), color);
    EXPECT_EQ(color.argb()[0], 4);
    EXPECT_EQ(color.rgb()[0], 1);
    EXPECT_EQ(color[3], 3);
    EXPECT_EQ(color.toInt(), 0x04010203u);
    EXPECT_EQ(color.toIntRGB(), 0x010203);
    unsigned char const rgb[3] = {7, 8, 9};
    color.set(rgb);
    EXPECT_EQ(color.toInt(), 0x04070809u);
    color.set(0x80FF0001u);
    EXPECT_EQ(color.toString(), "#80FF0001");
    EXPECT_EQ(ColorARGB(0x123456).toInt(), 0xFF123456u);  // signed: opaque
    EXPECT_EQ(ColorARGB(0x123456u).toInt(), 0x00123456u);
    EXPECT_EQ(ColorARGB(0x7F000000).toInt(), 0xFF000000u);
}

TEST(ColorARGB, ReadsPairsUpToTheFirstThatIsNone)
{
    // clang-format off
    constexpr struct {
        char const* m_text;
        unsigned int m_argb;
    } kRows[] = {
        {"", 0}, {"#", 0}, {"FF0000FF", 0}, {" #FF0000", 0},
        {"#FF00", 0},
        {"#FF8001", 0xFFFF8001},
        {"#ff8aBc", 0xFFFF8ABC},
        {"#80FF0102", 0x80FF0102},
        {"#FF00FF8", 0xFFFF00FF},     // a digit without its pair
        {"#FF00FFZZ", 0xFFFF00FF},    // the bad pair ends three good ones
        {"#80FF0102ZZ", 0x80FF0102},
        {"#80FF010203", 0},           // five
        {"#FF+1FF", 0}, {"#FF 1FF", 0}, {"#0x1234", 0}, {"#-1-1-1", 0}, {"#FFFF-1", 0},
    };
    // clang-format on
    for (auto const& [text, argb] : kRows) {
        EXPECT_EQ(ColorARGB(std::string(text)).toInt(), argb) << text;
    }
}

TEST(ColorARGB, SharesAreDividedInDoublePrecision)
{
    ColorARGB color;
    for (int byte = 0; byte < 256; ++byte) {
        auto const value = static_cast<unsigned char>(byte);
        color.set(value, 0, 255, value);
        EXPECT_EQ(color.rf(), static_cast<float>(static_cast<double>(byte) / 255.0));
        EXPECT_EQ(color.opacity(), color.rf());
        EXPECT_EQ(color.gf(), 0.0F);
        EXPECT_EQ(color.bf(), 1.0F);
    }
}

TEST(ColorARGB, OfHslTruncatesAndTurnsBackOnce)
{
    // clang-format off
    constexpr struct {
        float m_h, m_s, m_l;
        unsigned int m_argb;
    } kRows[] = {
        {  0, 1, 0.5F, 0xFFFF0000},
        {180, 1, 0.5F, 0xFF00FFFE},  // single precision, truncated
        {300, 1, 0.5F, 0xFFFE00FF},
        {720, 1, 0.5F, 0xFF000000},  // two turns away
        {  0, 0, 0.5F, 0xFF7F7F7F},
        {  0, 0, 1.0F, 0xFFFFFFFF},
        { 77, 1, 0.0F, 0xFF000000},
    };
    // clang-format on
    for (auto const& [h, s, l, argb] : kRows) {
        EXPECT_EQ(ColorARGB::fromHSL(h, s, l).toInt(), argb) << h << ' ' << s << ' ' << l;
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
