// The catalogue's conversions, against UDUNITS and against themselves.

#include "host/units/unitcatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <udunits2.h>

#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>

namespace vrn::orlo::host::units {
namespace {

/// Our units in the words of UDUNITS. Its slug is rounded, so that slugs are spelled out.
class Udunits {
public:
    using UnitHandle = std::unique_ptr<ut_unit, decltype(&ut_free)>;

    Udunits()
        : m_system((ut_set_error_message_handler(ut_ignore), ut_read_xml(nullptr)), &ut_free_system)
    {
    }

    [[nodiscard]] bool isReady() const { return m_system != nullptr; }
    [[nodiscard]] UnitHandle unit(std::string const& text) const
    {
        // clang-format off
        static std::map<std::string, std::string> const words{
            {"m", "meter"}, {"cm", "centimeter"}, {"mm", "millimeter"}, {"in", "inch"},
            {"ft", "international_foot"},
            {"kg", "kilogram"}, {"g", "gram"}, {"lb", "pound"}, {"t", "metric_ton"},
            {"slug", "(pound_force*second^2/international_foot)"},
            {"slinch", "(pound_force*second^2/inch)"},
            {"khyl", "(kilogram_force*second^2/millimeter)"},
            {"s", "second"}, {"ms", "millisecond"}, {"us", "microsecond"},
            {"N", "newton"}, {"cN", "centinewton"}, {"mN", "millinewton"}, {"uN", "micronewton"},
            {"daN", "dekanewton"}, {"kN", "kilonewton"},
            {"dakN", "(1e4 newton)"}, {"daMN", "(1e7 newton)"}, {"daGN", "(1e10 newton)"},
            {"lbf", "pound_force"}, {"dyn", "dyne"}, {"kgf", "kilogram_force"},
            {"rad", "radian"}, {"deg", "arc_degree"}, {"Pa", "pascal"}, {"J", "joule"},
            {"BTU", "Btu"},
        };
        // clang-format on
        std::string expression;
        static std::regex const word("[A-Za-z]+");
        auto end = text.begin();
        for (std::sregex_iterator it(text.begin(), text.end(), word), last; it != last; ++it) {
            expression.append(end, (*it)[0].first);
            auto const found = words.find(it->str());
            expression += found == words.end() ? "unknown" : found->second;
            end = text.begin() + (it->position() + it->length());
        }
        expression.append(end, text.end());
        return {ut_parse(m_system.get(), expression.c_str(), UT_ASCII), &ut_free};
    }

private:
    std::unique_ptr<ut_system, decltype(&ut_free_system)> m_system;
};

TEST(Conversions, AgreeWithUdunitsForEveryPairOfUnitsOfAQuantity)
{
    Udunits const udunits;
    ASSERT_TRUE(udunits.isReady());
    UnitCatalogue const catalogue;
    std::size_t pairs = 0;
    for (Unit const& from : catalogue.units()) {
        if (from.m_quantity == kNone || from.m_quantity == kMemory) {
            continue;  // UDUNITS has neither
        }
        auto const fromUnit = udunits.unit(from.m_text);
        ASSERT_NE(fromUnit, nullptr) << from.m_text;
        for (Unit const& to : catalogue.units()) {
            if (to.m_quantity != from.m_quantity) {
                continue;
            }
            auto const toUnit = udunits.unit(to.m_text);
            ASSERT_NE(toUnit, nullptr) << to.m_text;
            std::unique_ptr<cv_converter, decltype(&cv_free)> const converter(
                ut_get_converter(fromUnit.get(), toUnit.get()), &cv_free);
            ASSERT_NE(converter, nullptr) << from.m_text << " to " << to.m_text;
            double const theirs = cv_convert_double(converter.get(), 1.75);
            // UDUNITS multiplies chains of rounded factors, hence some units in the last place.
            EXPECT_NEAR(converted(1.75, from, to) / theirs, 1.0, 4e-15)
                << from.m_text << " to " << to.m_text;
            ++pairs;
        }
    }
    EXPECT_GT(pairs, 1000U);
}

TEST(Conversions, AreExactWhereTheDefinitionsAre)
{
    UnitCatalogue const catalogue;
    auto const convert = [&](double value, unsigned short from, unsigned short to) {
        return converted(value, *catalogue.unit(from), *catalogue.unit(to));
    };
    EXPECT_EQ(convert(1000.0, 3, 1), 1.0);
    EXPECT_EQ(convert(0.3, 1, 3), 300.0);
    EXPECT_EQ(convert(12.0, 6, 7), 1.0);
    EXPECT_EQ(convert(1.0, 52, 41), 4.4482216152605);  // not the 4.448222 of the solver decks
    EXPECT_EQ(convert(1.0, 54, 41), 9.80665);
    EXPECT_EQ(convert(1.0, 21, 16), 0.45359237);
    EXPECT_EQ(convert(1.0, 24, 23), 12.0);
    EXPECT_EQ(convert(1.0, kBtu, *catalogue.system("SI")->unitOf(kEnergy)), 1055.05585262);
}

TEST(Conversions, KeepZeroInfinityAndNumbersAtTheEndsOfTheRange)
{
    UnitCatalogue const catalogue;
    Unit const& pound = *catalogue.unit(52);
    Unit const& newton = *catalogue.unit(41);
    EXPECT_TRUE(std::signbit(converted(-0.0, pound, newton)));
    EXPECT_EQ(converted(std::numeric_limits<double>::infinity(), pound, newton),
              std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(converted(std::nan(""), pound, newton)));
    EXPECT_DOUBLE_EQ(converted(1e300, pound, newton), 4.4482216152605e300);
    EXPECT_DOUBLE_EQ(converted(1e-300, newton, pound), 1e-300 / 4.4482216152605);
    double const small = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(converted(small, newton, newton), small);
}

TEST(Catalogue, HasEveryIdAndEverySystemOnce)
{
    UnitCatalogue const catalogue;
    std::set<unsigned short> ids;
    for (Unit const& unit : catalogue.units()) {
        EXPECT_TRUE(ids.insert(unit.m_id).second) << unit.m_id;
        EXPECT_EQ(catalogue.unit(unit.m_id), &unit);
    }
    std::set<std::string_view> words;
    for (System const& system : catalogue.systems()) {
        EXPECT_TRUE(words.insert(system.m_name).second) << system.m_name;
        EXPECT_TRUE(words.insert(system.m_label).second) << system.m_label;
    }
    EXPECT_EQ(words.size(), 52U);
    EXPECT_EQ(catalogue.unit(65535), nullptr);
    EXPECT_EQ(catalogue.system("SI_nn"), nullptr);
}

TEST(Catalogue, GivesEverySystemAUnitOfEveryQuantityThatMeasuresIt)
{
    UnitCatalogue const catalogue;
    std::set<unsigned short> quantities;
    for (Unit const& unit : catalogue.units()) {
        quantities.insert(unit.m_quantity);
    }
    EXPECT_EQ(quantities.size(), 18U);
    for (System const& system : catalogue.systems()) {
        for (unsigned short const quantity : quantities) {
            unsigned short const* const unit = system.unitOf(quantity);
            ASSERT_NE(unit, nullptr) << system.m_name << ' ' << quantity;
            EXPECT_EQ(catalogue.unit(*unit)->m_quantity, quantity) << system.m_name;
        }
        EXPECT_EQ(system.unitOf(999), nullptr);
    }
}

// In a consistent system the force unit is mass times length over time squared; three of the
// labels' families are not so, and no other may become so by a slip in the table.
TEST(Catalogue, HasTheForceThatABaseImpliesInConsistentSystemsOnly)
{
    UnitCatalogue const catalogue;
    std::set<std::string_view> inconsistent;
    for (System const& system : catalogue.systems()) {
        auto const size = [&](unsigned short quantity) {
            Unit const& unit = *catalogue.unit(*system.unitOf(quantity));
            return unit.m_numerator / unit.m_denominator;
        };
        double const implied = size(kMass) * size(kLength) / (size(kTime) * size(kTime));
        if (std::abs(implied / size(kForce) - 1.0) > 1e-12) {
            inconsistent.insert(system.m_name);
        }
    }
    EXPECT_THAT(inconsistent, ::testing::ElementsAre("English", "English_BTU", "English_in_BTU",
                                                     "SI_mm_N", "SI_mm_N_deg"));
}

}  // namespace
}  // namespace vrn::orlo::host::units
