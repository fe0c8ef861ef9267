#include "host/units/unitservices.h"

#include "host/kernel/servicename.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/numbertext.h"
#include "platform/servicecaches/servicecachemodelingplugin.h"

#include <cstdint>

namespace vrn::orlo::host::units {

namespace {

using KFR::Util::Units::FloatValue;
using KFR::Util::Units::UnitSystemData;
using KFR::Util::Units::UnitSystemInfo;

constexpr int kNumberAlone = 1;

icu::UnicodeString text(std::string_view utf8)
{
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
}

KFRResult failure(UnitsFailure code, int number)
{
    return KFRResult(code).addParam(number);
}

KFRResult unknownSystem(icu::UnicodeString const& name)
{
    return KFRResult(kUnknownSystem).addParam(name);
}

}  // namespace

KFRResult UnitServices::setCurrentSystem(std::string_view nameOrLabel)
{
    System const* const system = m_catalogue.system(nameOrLabel);
    if (system == nullptr) {
        return unknownSystem(text(nameOrLabel));
    }
    m_current = system;
    return KFR::ok;
}

KFRResult UnitServices::getCurrentUnit(unsigned short quantity, unsigned short& unit)
{
    unsigned short const* const current = m_current->unitOf(quantity);
    if (current == nullptr) {
        return failure(kUnknownQuantity, quantity);
    }
    unit = *current;
    return KFR::ok;
}

KFRResult UnitServices::getQuantity(unsigned short unit, unsigned short& quantity)
{
    Unit const* const known = m_catalogue.unit(unit);
    if (known == nullptr) {
        return failure(kUnknownUnit, unit);
    }
    quantity = known->m_quantity;
    return KFR::ok;
}

KFRResult UnitServices::convert(double value, unsigned short fromUnit, unsigned short toUnit,
                                double& out)
{
    Unit const* const from = m_catalogue.unit(fromUnit);
    Unit const* const to = m_catalogue.unit(toUnit);
    if (from == nullptr || to == nullptr) {
        return failure(kUnknownUnit, from == nullptr ? fromUnit : toUnit);
    }
    if (from->m_quantity != to->m_quantity) {
        return failure(kDifferentQuantities, toUnit);
    }
    out = converted(value, *from, *to);
    return KFR::ok;
}

KFRResult UnitServices::format(FloatValue const& value, icu::UnicodeString& out, int flag)
{
    Unit const* const unit = m_catalogue.unit(value.m_unit);
    if (flag != kNumberAlone && unit == nullptr) {
        return failure(kUnknownUnit, value.m_unit);
    }
    std::string number = KFR::numberText(value.m_value);
    if (flag != kNumberAlone && !unit->m_text.empty()) {
        number += " " + unit->m_text;
    }
    out = text(number);
    return KFR::ok;
}

KFRResult UnitServices::getUnitSystems(KFRSequence<UnitSystemInfo>& systems)
{
    systems.clear();
    for (System const& system : m_catalogue.systems()) {
        systems.append(UnitSystemInfo{text(system.m_name), text(system.m_label)});
    }
    return KFR::ok;
}

KFRResult UnitServices::isCounted(icu::UnicodeString const& name, bool& counted)
{
    if (systemOfName(name) == nullptr) {
        return unknownSystem(name);
    }
    counted = true;
    return KFR::ok;
}

KFRResult UnitServices::getUnitSystemData(icu::UnicodeString const& name, UnitSystemData& data)
{
    System const* const system = systemOfName(name);
    if (system == nullptr) {
        return unknownSystem(name);
    }
    data = UnitSystemData{text(system->m_name),   text(system->m_label),  *system->unitOf(kLength),
                          *system->unitOf(kMass), *system->unitOf(kTime), *system->unitOf(kForce),
                          *system->unitOf(kAngle)};
    return KFR::ok;
}

System const* UnitServices::systemOfName(icu::UnicodeString const& name) const
{
    std::string utf8;
    System const* const system = m_catalogue.system(name.toUTF8String(utf8));
    return system != nullptr && system->m_name == utf8 ? system : nullptr;
}

KFRSmartPointer<UnitServices> registerUnits(kernel::Kernel& kernel)
{
    KFRSmartPointer<UnitServices> units = KFR::make<UnitServices>();
    static_cast<void>(kernel.services().addService(kernel::serviceNameOf("getUnitsService"),
                                                   [units] { return KFRIService(units); }));
    plugin::modeling::ServiceCacheModelingPlugin::kfrUnitsSvc_ = units;
    return units;
}

}  // namespace vrn::orlo::host::units
