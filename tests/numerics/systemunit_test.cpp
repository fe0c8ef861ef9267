#include "plugins/modelingplugin/utilities/numerics/systemunit.h"

#include "tests/support/fakeunits.h"
#include "tests/support/freshprocess.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::FakeUnits;
using test::makeUnits;
using test::PlatformScope;
using test::utf8;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char const* kUnitsService = "vrn.orlo.appfw.Units";

std::vector<std::string> namesOf(SystemUnit units)
{
    KFRSequence<icu::UnicodeString> names{u"left over"};
    units.getUnitSystemNames(names);
    std::vector<std::string> texts;
    for (icu::UnicodeString const& name : std::as_const(names)) {
        texts.push_back(utf8(name));
    }
    return texts;
}

std::vector<std::string> labelsOf(SystemUnit units)
{
    KFRSequence<icu::UnicodeString> labels{u"left over"};
    units.getUnitSystemLabels(labels);
    std::vector<std::string> texts;
    for (icu::UnicodeString const& label : std::as_const(labels)) {
        texts.push_back(utf8(label));
    }
    return texts;
}

class SystemUnitTest : public ::testing::Test {
protected:
    void use(KFRSmartPointer<FakeUnits> const& units)
    {
        m_platform.services().put(kUnitsService, units);
        ServiceCacheModelingPlugin::kfrUnitsSvc_ = units;
    }

    PlatformScope m_platform;
};

TEST_F(SystemUnitTest, ListsInTheServicesOrderWhatIsSurelyCounted)
{
    auto const units = makeUnits({{u"z", u"1"}, {u"failing", u"2"}, {u"no", u"3"}, {u"a", u"4"}});
    units->m_countFails.insert(u"failing");  // its flag says yes
    units->m_uncounted.insert(u"no");
    use(units);
    EXPECT_THAT(namesOf(SystemUnit(SystemUnit::standardUnits)), ElementsAre("z", "a"));
    EXPECT_THAT(labelsOf(SystemUnit(SystemUnit::standardUnits)), ElementsAre("1", "4"));
}

TEST_F(SystemUnitTest, HidesSixSystemsFromTheMNFListOnly)
{
    use(makeUnits({{u"SI_cm", u""},
                   {u"SI_cm_ms", u""},
                   {u"SI_cm_us", u""},
                   {u"SI_mm_ms", u""},
                   {u"CGS_us", u""},
                   {u"CGS_mm", u""},
                   {u"KgForce_mm", u""},
                   {u"CGS_ms", u""},
                   {u"si_cm", u""}}));
    EXPECT_EQ(namesOf(SystemUnit(SystemUnit::standardUnits)).size(), 9U);
    EXPECT_THAT(namesOf(SystemUnit(SystemUnit::mnfUnits)),
                ElementsAre("SI_mm_ms", "CGS_mm", "si_cm"));
}

TEST_F(SystemUnitTest, IsEmptyWhenTheListFails)
{
    auto const units = makeUnits({{u"SI", u"m-kg-s-N"}});
    units->m_listResult = 5;
    use(units);
    EXPECT_THAT(namesOf(SystemUnit(SystemUnit::standardUnits)), IsEmpty());
}

TEST(SystemUnitLists, AreBuiltOnceEach)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope const platform;
        ServiceCacheModelingPlugin::kfrUnitsSvc_ = makeUnits({{u"SI_cm", u"1"}, {u"SI", u"2"}});
        EXPECT_THAT(namesOf(SystemUnit::getStandardUnit()), ElementsAre("SI_cm", "SI"));
        // The other list is not built yet, and sees the change.
        ServiceCacheModelingPlugin::kfrUnitsSvc_ = makeUnits({{u"SI_cm", u"1"}, {u"New", u"2"}});
        EXPECT_THAT(namesOf(SystemUnit::getMNFUnit()), ElementsAre("New"));
        ServiceCacheModelingPlugin::kfrUnitsSvc_ = makeUnits({});
        EXPECT_THAT(namesOf(SystemUnit::getStandardUnit()), ElementsAre("SI_cm", "SI"));
        EXPECT_THAT(namesOf(SystemUnit::getMNFUnit()), ElementsAre("New"));
    });
}

TEST(SystemUnitLists, StayEmptyWhenTheServiceComesLate)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope const platform;
        EXPECT_THAT(namesOf(SystemUnit::getStandardUnit()), IsEmpty());
        ServiceCacheModelingPlugin::kfrUnitsSvc_ = makeUnits({{u"SI", u"m-kg-s-N"}});
        EXPECT_THAT(namesOf(SystemUnit::getStandardUnit()), IsEmpty());
    });
}

TEST_F(SystemUnitTest, LooksDataUpByPlaceAndGivesTheServicesOutcome)
{
    auto const units = makeUnits({{u"no", u"1"}, {u"yes", u"2"}});
    units->m_uncounted.insert(u"no");
    use(units);
    SystemUnit list(SystemUnit::standardUnits);
    UnitSystemData data;
    EXPECT_EQ(list.getUnitSystemDataByLocalID(0, data).getCode(), 22);
    EXPECT_EQ(utf8(data.m_name), "yes");

    UnitSystemData const kept = data;
    for (int const index : {-1, 1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(list.getUnitSystemDataByLocalID(index, data).getCode(), KFR::notDone) << index;
    }
    ServiceCacheModelingPlugin::kfrUnitsSvc_ = KFR::NULLSP;
    EXPECT_EQ(list.getUnitSystemDataByLocalID(0, data).getCode(), KFR::notDone);
    EXPECT_EQ(data, kept);
}

struct LengthCase {
    char const* name;
    unsigned short unit;
    bool isMetre;
    char const* baseSystem;
};

void PrintTo(LengthCase const& row, std::ostream* out)
{
    *out << row.name;
}

class CurrentLength : public SystemUnitTest, public ::testing::WithParamInterface<LengthCase> {};

TEST_P(CurrentLength, DecidesTheBaseSystem)
{
    auto const units = makeUnits({});
    units->m_currentUnits = {{1, GetParam().unit}, {2, 1}};
    use(units);
    EXPECT_EQ(SystemUnit::lengthUnit(), GetParam().unit);
    EXPECT_EQ(SystemUnit::isUseMeter(), GetParam().isMetre);
    UnitSystemData data;
    SystemUnit::getBaseUnitSystem(data);
    EXPECT_EQ(utf8(data.m_name), GetParam().baseSystem);
}

INSTANTIATE_TEST_SUITE_P(Units, CurrentLength,
                         ::testing::Values(LengthCase{"Metre", 1, true, "SI"},
                                           LengthCase{"Millimetre", 3, false, "SI_mm"},
                                           LengthCase{"Centimetre", 2, false, "SI"},
                                           LengthCase{"Inch", 6, false, "SI"}),
                         [](auto const& row) { return std::string(row.param.name); });

TEST_F(SystemUnitTest, ConvertsToTheCurrentUnitAndPassesTheHeadOn)
{
    auto const units = makeUnits({});
    units->m_quantities = {{1, 9}};
    units->m_currentUnits = {{9, 3}};
    use(units);
    FloatValue value{1, 0xAB, 0xFF, 2.5};
    EXPECT_TRUE(SystemUnit::convertToCurrentFloatValue(value, value).isOk());
    EXPECT_EQ(value, (FloatValue{3, 0xAB, 0xFF, 2500.0}));
}

TEST_F(SystemUnitTest, StopsAConversionAtTheFirstFailure)
{
    auto const units = makeUnits({});
    use(units);
    FloatValue const in{1, 0, 0, 2.5};
    FloatValue out{8, 7, 6, 5.0};
    EXPECT_EQ(SystemUnit::convertToCurrentFloatValue(in, out).getCode(), 24);
    units->m_quantities = {{1, 9}};
    EXPECT_EQ(SystemUnit::convertToCurrentFloatValue(in, out).getCode(), 23);
    units->m_currentUnits = {{9, 3}};
    units->m_convertResult = 25;
    EXPECT_EQ(SystemUnit::convertToCurrentFloatValue(in, out).getCode(), 25);
    EXPECT_EQ(out, (FloatValue{8, 7, 6, 5.0}));
}

TEST_F(SystemUnitTest, LivesWithoutServicesAndWithStrangersInTheirPlace)
{
    for (bool const isStranger : {false, true}) {
        if (isStranger) {
            m_platform.services().putStranger(kUnitsService);
        }
        UnitSystemData data;
        FloatValue value;
        EXPECT_THAT(namesOf(SystemUnit(SystemUnit::standardUnits)), IsEmpty());
        EXPECT_EQ(SystemUnit::lengthUnit(), 0);
        EXPECT_FALSE(SystemUnit::isUseMeter());
        EXPECT_NO_THROW(SystemUnit::getBaseUnitSystem(data));
        EXPECT_EQ(data, UnitSystemData());
        EXPECT_EQ(SystemUnit::convertToCurrentFloatValue(value, value).getCode(), KFR::notDone);
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
