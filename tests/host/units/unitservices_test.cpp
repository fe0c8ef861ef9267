#include "host/units/unitservices.h"

#include "host/kernel/servicename.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"

#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::host::units {
namespace {

using KFR::Util::Units::FloatValue;
using KFR::Util::Units::UnitSystemData;
using KFR::Util::Units::UnitSystemInfo;
using Holder = plugin::modeling::ServiceCacheModelingPlugin;

// clang-format off
struct {
    char const* name;
    unsigned short unit;
    unsigned short quantity;
    char const* text;
} const kValueUnits[] = {
    {"None",        0,    kNone,       ""},
    {"Memory",      962,  kMemory,     "MB"},
    {"MassMoment",  975,  kMassMoment, "kg*m^2"},
    {"Stress",      988,  kStress,     "Pa"},
    {"Density",     993,  kDensity,    "kg/m^3"},
    {"Mass",        999,  kMass,       "kg"},
    {"Length",      1000, kLength,     "m"},
};
// clang-format on

TEST(ValueUnits, AreCurrentOrConvertibleInSI)
{
    for (auto const& row : kValueUnits) {
        SCOPED_TRACE(row.name);
        auto const units = KFR::make<UnitServices>();
        unsigned short quantity = 99;
        ASSERT_TRUE(units->getQuantity(row.unit, quantity).isOk());
        EXPECT_EQ(quantity, row.quantity);
        EXPECT_EQ(units->catalogue().unit(row.unit)->m_text, row.text);
        unsigned short current = 0;
        ASSERT_TRUE(units->getCurrentUnit(quantity, current).isOk());
        double value = 0.0;
        ASSERT_TRUE(units->convert(0.1, row.unit, current, value).isOk());
        EXPECT_EQ(value, 0.1);  // what ranges are stated in is SI
    }
}

TEST(UnitServices, FollowTheCurrentSystem)
{
    auto const units = KFR::make<UnitServices>();
    unsigned short unit = 0;
    double value = 0.0;
    EXPECT_TRUE(units->getCurrentUnit(kLength, unit).isOk());
    EXPECT_EQ(unit, 1);

    EXPECT_TRUE(units->setCurrentSystem("mm-t-s-N-deg").isOk());
    EXPECT_EQ(units->currentSystem().m_name, "SI_mm_t_deg");
    EXPECT_TRUE(units->getCurrentUnit(kLength, unit).isOk());
    EXPECT_EQ(unit, 3);
    EXPECT_TRUE(units->getCurrentUnit(kAngle, unit).isOk());
    EXPECT_EQ(unit, 62);
    EXPECT_TRUE(units->getCurrentUnit(kDensity, unit).isOk());
    EXPECT_TRUE(units->convert(7850.0, 993, unit, value).isOk());
    EXPECT_DOUBLE_EQ(value, 7.85e-9);
    EXPECT_TRUE(units->getCurrentUnit(kStress, unit).isOk());
    EXPECT_TRUE(units->convert(2.1e11, 988, unit, value).isOk());
    EXPECT_EQ(value, 2.1e5);

    EXPECT_TRUE(units->setCurrentSystem("English_BTU").isOk());
    EXPECT_TRUE(units->getCurrentUnit(kEnergy, unit).isOk());
    EXPECT_EQ(unit, kBtu);
    EXPECT_EQ(units->setCurrentSystem("english").getCode(), kUnknownSystem);
    EXPECT_EQ(units->currentSystem().m_name, "English_BTU");
}

TEST(UnitServices, RefuseWithTheOutputAsItWas)
{
    auto const units = KFR::make<UnitServices>();
    unsigned short number = 77;
    double value = 7.5;
    bool counted = false;
    icu::UnicodeString text(u"kept");
    UnitSystemData data;
    EXPECT_EQ(units->getCurrentUnit(7, number).getCode(), kUnknownQuantity);
    EXPECT_EQ(units->getQuantity(48, number).getCode(), kUnknownUnit);
    EXPECT_EQ(units->convert(1.0, 48, 1, value).getCode(), kUnknownUnit);
    EXPECT_EQ(units->convert(1.0, 1, 48, value).getCode(), kUnknownUnit);
    EXPECT_EQ(units->convert(1.0, 1, 16, value).getCode(), kDifferentQuantities);
    EXPECT_EQ(units->format({48, 0, 0, 1.0}, text, 0).getCode(), kUnknownUnit);
    EXPECT_EQ(units->isCounted(u"m-kg-s-N", counted).getCode(), kUnknownSystem);  // a label
    EXPECT_EQ(units->getUnitSystemData(u"", data).getCode(), kUnknownSystem);
    EXPECT_EQ(number, 77);
    EXPECT_EQ(value, 7.5);
    EXPECT_FALSE(counted);
    EXPECT_EQ(text, icu::UnicodeString(u"kept"));
    EXPECT_EQ(data, UnitSystemData());
}

TEST(UnitServices, FormatNumbersWithTheirUnitOrAlone)
{
    auto const units = KFR::make<UnitServices>();
    auto const text = [&](FloatValue const& value, int flag) {
        icu::UnicodeString out;
        EXPECT_TRUE(units->format(value, out, flag).isOk());
        std::string utf8;
        return out.toUTF8String(utf8);
    };
    EXPECT_EQ(text({988, 0, 0, 0.5}, 1), "0.5");
    EXPECT_EQ(text({988, 0, 0, 0.5}, 0), "0.5 Pa");
    EXPECT_EQ(text({0, 0, 0, 0.0}, 0), "0");
    EXPECT_EQ(text({48, 0, 0, 200.0}, 1), "200");  // the number needs no known unit
    EXPECT_EQ(text({0, 0, 0, 0.1}, 1), "0.1");
    EXPECT_EQ(text({0, 0, 0, -1.7976931348623157e308}, 1), "-1.7976931348623157e+308");
}

TEST(UnitServices, ListEverySystemAndKnowItsData)
{
    auto const units = KFR::make<UnitServices>();
    KFRSequence<UnitSystemInfo> systems{{u"left", u"over"}};
    ASSERT_TRUE(units->getUnitSystems(systems).isOk());
    ASSERT_EQ(systems.size(), 26U);
    EXPECT_EQ(systems.at(0), (UnitSystemInfo{u"SI", u"m-kg-s-N"}));
    for (UnitSystemInfo const& system : std::as_const(systems)) {
        bool counted = false;
        UnitSystemData data;
        EXPECT_TRUE(units->isCounted(system.m_name, counted).isOk() && counted);
        ASSERT_TRUE(units->getUnitSystemData(system.m_name, data).isOk());
        EXPECT_EQ(data.m_label, system.m_label);
    }
    UnitSystemData data;
    ASSERT_TRUE(units->getUnitSystemData(u"SI_cm_us", data).isOk());
    EXPECT_EQ(data, (UnitSystemData{u"SI_cm_us", u"cm-kg-us-daGN", 2, 16, 33, 51, 61}));
}

TEST(UnitServices, AreFoundByNameAndInTheHolderUntilTheKernelStops)
{
    kernel::Kernel kernel;
    KFRSmartPointer<UnitServices> const units = registerUnits(kernel);
    KFRResult result;
    EXPECT_EQ(kernel.services().getService(kernel::serviceNameOf("getUnitsService"), result),
              KFRIService(units));
    EXPECT_EQ(KFRIService(Holder::kfrUnitsSvc_), KFRIService(units));
    EXPECT_TRUE(kernel.stop().empty());
    EXPECT_EQ(Holder::kfrUnitsSvc_, KFR::NULLSP);
    EXPECT_EQ(units->referenceCount(), 1);
}

}  // namespace
}  // namespace vrn::orlo::host::units
