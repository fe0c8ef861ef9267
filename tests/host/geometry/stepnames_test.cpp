#include "host/geometry/testfiles.h"

#include "host/geometry/textdecoding.h"

#include <ostream>

namespace vrn::orlo::host::geometry {
namespace {

struct NameRow {
    char const* m_name;
    std::string m_inFile;
    char const* m_expected;
};

void PrintTo(NameRow const& row, std::ostream* out)
{
    *out << row.m_name;
}

class StepName : public WithFolder, public ::testing::WithParamInterface<NameRow> {};

TEST_P(StepName, ComesOutAsUtf8)
{
    auto const file = writeStep("plain.step", cube(1.0));
    std::string const text = replaced(contentOf(file), "'piece'", "'" + GetParam().m_inFile + "'");
    EXPECT_EQ(importGeometry(write("named.step", text)).m_parts.at(0).m_name,
              GetParam().m_expected);
}

// clang-format off
NameRow const kNames[] = {
    {"OneByteEscape",        R"(L\X\FCfter)",                    "Lüfter"},
    {"TwoByteEscape",        R"(\X2\87BA6813\X0\-8)",            "螺栓-8"},
    {"FourByteEscape",       R"(\X4\0001F529\X0\ M8)",           "🔩 M8"},
    {"SurrogatesInEscape",   R"(\X2\D83DDD29\X0\)",              "🔩"},
    {"ShiftEscape",          R"(M\S\|ller)",                     "Müller"},
    {"OtherAlphabet",        R"(\PE\\S\P\S\Q)",                  "аб"},
    {"DoubledMarks",         R"(it''s C:\\dir)",                 "it's C:\\dir"},
    {"LineBreakInName",      R"(upper\N\lower)",                 "upper lower"},
    {"RawUtf8",              "Lüfter 電",                        "Lüfter 電"},
    {"RawWestern",           "L\xFC" "fter \xD8" "20",           "Lüfter Ø20"},
    {"RawJapanese",          "\x95\x5C\x96\xCA\x83\x65\x83\x58\x83\x67", "表面テスト"},
    {"RawChinese",           "\xC2\xDD\xCB\xA8 M8",              "螺栓 M8"},
    {"EmptyName",            "",                                 "part-1"},
    {"BlankName",            "  ",                               "part-1"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Encodings, StepName, ::testing::ValuesIn(kNames),
                         [](auto const& row) { return std::string(row.param.m_name); });

TEST(GuessEncoding, PrefersWesternForSingleLettersAmongPlainOnes)
{
    EXPECT_EQ(guessEncoding("B\xFCgelgr\xF6\xDF"
                            "e"),
              "windows-1252");
    EXPECT_EQ(guessEncoding("90\xB0 elbow"), "windows-1252");
    EXPECT_EQ(guessEncoding("Geh\xE4use f\xFCr \xC4nderung"), "windows-1252");
}

TEST(GuessEncoding, LeavesUtf8AndPlainTextAlone)
{
    EXPECT_EQ(guessEncoding("Gehäuse"), "");
    EXPECT_EQ(guessEncoding("plain"), "");
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
