#include "plugins/modelingplugin/utilities/numerics/systemunit.h"

#include "tests/support/fakeunits.h"
#include "tests/support/freshprocess.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
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

std::vector<std::string> namesOf(SystemUnit units, bool labels = false)
{
    KFRSequence<icu::UnicodeString> names{u"left over"};
    labels ? units.getUnitSystemLabels(names) : units.getUnitSystemNames(names);
    std::vector<std::string> texts;
    for (icu::UnicodeString const& name : std::as_const(names)) {
        texts.push_back(utf8(name));
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
    EXPECT_THAT(namesOf(SystemUnit(SystemUnit::standardUnits), true), ElementsAre("1", "4"));
}

TEST_F(SystemUnitTest, HidesSixSystemsFromTheMNFListOnly)
{
    auto const units = makeUnits({});
    for (char16_t const* const name : {u"SI_cm", u"SI_cm_ms", u"SI_cm_us", u"SI_mm_ms", u"CGS_us",
                                       u"CGS_mm", u"KgForce_mm", u"CGS_ms", u"si_cm"}) {
        units->m_systems.append(FakeUnits::Info{name, u""});
    }
    use(units);
    EXPECT_EQ(namesOf(SystemUnit(SystemUnit::standardUnits)).size(), 9U);
    EXPECT_THAT(namesOf(SystemUnit(SystemUnit::mnfUnits)),
                ElementsAre("SI_mm_ms", "CGS_mm", "si_cm"));
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
    units->m_listResult = 5;
    EXPECT_THAT(namesOf(SystemUnit(SystemUnit::standardUnits)), IsEmpty());
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

TEST_F(SystemUnitTest, TakesItsBaseSystemByTheCurrentLength)
{
    struct {
        char const* name;
        unsigned short unit;
        bool isMetre;
        char const* baseSystem;
    } const rows[] = {{"Metre", 1, true, "SI"},
                      {"Millimetre", 3, false, "SI_mm"},
                      {"Centimetre", 2, false, "SI"}};
    auto const units = makeUnits({});
    use(units);
    for (auto const& [name, unit, isMetre, baseSystem] : rows) {
        SCOPED_TRACE(name);
        units->m_currentUnits = {{1, unit}, {2, 1}};
        EXPECT_EQ(SystemUnit::lengthUnit(), unit);
        EXPECT_EQ(SystemUnit::isUseMeter(), isMetre);
        UnitSystemData data;
        SystemUnit::getBaseUnitSystem(data);
        EXPECT_EQ(utf8(data.m_name), baseSystem);
    }
}

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
