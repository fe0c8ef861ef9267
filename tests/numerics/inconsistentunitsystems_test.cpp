#include "plugins/modelingplugin/utilities/numerics/inconsistentunitsystems.h"

#include "tests/support/fakeunits.h"
#include "tests/support/freshprocess.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {

void PrintTo(UnitSysUnitIDs const& ids, std::ostream* out)
{
    *out << ids.m_length << ' ' << ids.m_mass << ' ' << ids.m_time << ' ' << ids.m_force << ' '
         << ids.m_angle;
}

namespace {

using test::makeUnits;
using test::PlatformScope;
using test::utf8;
using ::testing::ElementsAre;

InconsistentUnitSystems& systems()
{
    return *InconsistentUnitSystems::instance();
}

// clang-format off
struct {
    char const* name;
    unsigned short kind;
    wchar_t const* text;
    unsigned short unit;
} const kTexts[] = {
    {"Khyl",                    2, L"khyl",              26},
    {"MassIsNoLength",          1, L"kg",                 0},
    {"NoSuchKind",              9, L"m",                  0},
    {"KindZero",                0, L"m",                  0},
    {"CapitalsDiffer",          4, L"n",                  0},
    {"MicrosecondAsSpelled",    3, L"\u00A6\u00CCs",     33},
    {"MicrosecondMicroSign",    3, L"\u00B5s",            0},
    {"MicrosecondLetterU",      3, L"us",                 0},
    {"MicronewtonAsSpelled",    4, L"\u00A6\u00CCN",     44},
    {"MicronewtonLetterU",      4, L"uN",                 0},
    {"MillinewtonIsNoMega",     4, L"mN",                43},
    {"TenToTheFourth",          4, L"10\u2074N",         47},
    {"TenToTheTenth",           4, L"10\u00B9\u2070N",   51},
    {"PlainDigits",             4, L"104N",               0},
    {"Degree",                  5, L"deg",               62},
};
// clang-format on

TEST(UnitTexts, AreKnownToTheLetterWithinTheirKind)
{
    for (auto const& row : kTexts) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(systems().resolveUnitIDFromWString(row.kind, row.text), row.unit);
    }
}

// clang-format off
struct {
    char const* name;
    char16_t const* label;
    UnitSysUnitIDs ids;
} const kLabels[] = {
    {"FourTokens",         u"in-slinch-s-lbf",   {6, 24, 31, 52, 0}},
    {"Degrees",            u"m-kg-s-N-deg",      {1, 16, 31, 41, 62}},
    {"FifthIsNoAngle",     u"ft-lb-s-lbf-BTU",   {7, 21, 31, 52, 0}},
    {"SixTokens",          u"m-kg-s-N-deg-BTU",  {1, 16, 31, 41, 0}},
    {"FiveWithEmptyLast",  u"m-kg-s-N-",         {1, 16, 31, 41, 0}},
    {"EmptyTokensCount",   u"--s-N",             {0, 0, 31, 41, 0}},
    {"ThreeTokens",        u"m-kg-s",            {}},
    {"Empty",              u"",                  {}},
    {"OtherMegaSpelling",  u"cm-g-us-daMN",      {2, 17, 0, 0, 0}},
    {"OtherKiloSpelling",  u"cm-kg-ms-dakN",     {2, 16, 32, 0, 0}},
    {"OrderCounts",        u"kg-m-s-N",          {0, 0, 31, 41, 0}},
};
// clang-format on

TEST(Labels, TellTheirUnits)
{
    for (auto const& row : kLabels) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(systems().getUnitIDsFromUnitSystem(row.label), row.ids);
    }
}

TEST(UnitFactors, AreTheLibrarysOwnDigitForDigitAndOneForMassAngleAndTheUnknown)
{
    struct {
        unsigned short kind, unit;
        double factor;
    } const rows[] = {{4, 52, 4.448222},  // not 4.4482216152605
                      {4, 54, 9.80665},  {4, 51, 1e10}, {3, 33, 1e-6}, {1, 7, 0.3048}, {2, 17, 1},
                      {5, 62, 1},        {9, 7, 1},     {4, 0, 1},     {4, 40, 1},     {4, 48, 1},
                      {4, 50, 1},        {4, 55, 1},    {4, 7, 1}};
    for (auto const& [kind, unit, factor] : rows) {
        EXPECT_EQ(systems().getRelativeValueOfUnit(kind, unit), factor) << kind << ' ' << unit;
    }
}

TEST(WTMASS, IsWeightTimesLengthOverForceGravityAndTimeSquared)
{
    EXPECT_EQ(systems().getWTMASS(u"m-kg-s-N", u"kgf"), 1.0);
    EXPECT_EQ(systems().getWTMASS(u"m-kg-s-N", u"N"), 1.0 / 9.80665);
    EXPECT_EQ(systems().getWTMASS(u"mm-kg-ms-kN", u"lbf"),
              (4.448222 * 0.001) / (1000.0 * 9.80665 * 0.001 * 0.001));
    EXPECT_EQ(systems().getWTMASS(u"in-slinch-s-lbf", u"lbf"),
              (4.448222 * 0.0254) / (4.448222 * 9.80665));
}

TEST(WTMASS, TakesWhatItDoesNotKnowForTheSIUnit)
{
    double const newtonInSI = systems().getWTMASS(u"m-kg-s-N", u"N");
    EXPECT_EQ(systems().getWTMASS(u"m-kg-s-N", u""), newtonInSI);
    EXPECT_EQ(systems().getWTMASS(u"m-kg-s-N", u"kg"), newtonInSI);  // a mass is no force unit
    EXPECT_EQ(systems().getWTMASS(u"m-kg-s-uN", u"N"), newtonInSI);
    EXPECT_EQ(systems().getWTMASS(u"no label", u"N"), newtonInSI);
    EXPECT_EQ(systems().getUnitIDFromMassAsWeight(u"\u00A6\u00CCN"), 44);
}

TEST(OverrideUnits, AreTheForcesOfFourTokenLabelsAscending)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope const platform;
        ServiceCacheModelingPlugin::kfrUnitsSvc_ =
            makeUnits({{u"a", u"mm-t-s-kN"},
                       {u"b", u"m-kg-s-N"},
                       {u"c", u"ft-lb-s-lbf-BTU"},
                       {u"d", u"m-kg-s"},
                       {u"SI_cm", u"cm-kg-s-N"},
                       {u"KgForce_mm", u"mm-khyl-s-kgf"}});  // the MNF list has it not
        std::vector<std::string> labels;
        for (OverrideUnit const& unit : systems().getOverrideBaseMassUnits()) {
            EXPECT_EQ(unit.m_kind, 2);
            labels.push_back(utf8(unit.m_label));
        }
        EXPECT_THAT(labels, ElementsAre("N", "kN", "kgf"));
        ServiceCacheModelingPlugin::kfrUnitsSvc_ = KFR::NULLSP;
        EXPECT_EQ(systems().getOverrideBaseMassUnits().size(), 3U);
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
