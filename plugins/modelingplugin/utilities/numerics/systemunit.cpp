#include "plugins/modelingplugin/utilities/numerics/systemunit.h"

#include "platform/appfw/units.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/numerics/unittable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace vrn::orlo::plugin::modeling {

namespace {

using KFR::Util::Units::KFRIUnitsInterface;
using KFR::Util::Units::UnitSystemInfo;

constexpr auto kLengthQuantity = static_cast<unsigned short>(detail::UnitKind::length);
constexpr unsigned short kMetre = 1;

// clang-format off
constexpr std::array<std::u16string_view, 6> kHiddenFromMNF{
    u"SI_cm", u"SI_cm_ms", u"SI_cm_us", u"CGS_us", u"KgForce_mm", u"CGS_ms",
};

struct BaseSystemRow {
    unsigned short m_lengthUnit;
    char16_t const* m_name;
};

// The first row is also what a length unit without a row falls to.
constexpr std::array kBaseSystems{
    BaseSystemRow{kMetre, u"SI"},
    BaseSystemRow{3,      u"SI_mm"},
};
// clang-format on

// No operation raises anything: a service of another kind is as none.
KFRSmartPointer<KFRIUnitsInterface> systemsService()
{
    return KFR::loose_cast<KFRIUnitsInterface>(ServiceHelper::getUtilUnitsService());
}

KFRSmartPointer<appfw::IUnitsInterface> unitsService()
{
    return KFR::loose_cast<appfw::IUnitsInterface>(ServiceHelper::getUnitsService());
}

bool isHidden(icu::UnicodeString const& name, SystemUnit::UnitFilterEnum filter)
{
    return filter == SystemUnit::mnfUnits &&
           std::ranges::any_of(kHiddenFromMNF, [&](std::u16string_view hidden) {
               return name == icu::UnicodeString(hidden.data(), static_cast<int>(hidden.size()));
           });
}

}  // namespace

SystemUnit::SystemUnit(SystemUnit::UnitFilterEnum filter)
{
    initUnits(filter);
}

void SystemUnit::initUnits(UnitFilterEnum filter)
{
    KFRSmartPointer<KFRIUnitsInterface> const service = systemsService();
    KFRSequence<UnitSystemInfo> systems;
    if (service == KFR::NULLSP || !service->getUnitSystems(systems).isOk()) {
        return;
    }
    for (UnitSystemInfo const& system : std::as_const(systems)) {
        bool counted = false;
        bool const asked = service->isCounted(system.m_name, counted).isOk();
        if (asked && counted && !isHidden(system.m_name, filter)) {
            m_units.emplace_back(system.m_name, system.m_label);
        }
    }
}

SystemUnit SystemUnit::getStandardUnit()
{
    static SystemUnit const units(standardUnits);
    return units;
}

SystemUnit SystemUnit::getMNFUnit()
{
    static SystemUnit const units(mnfUnits);
    return units;
}

void SystemUnit::getUnitSystemNames(KFRSequence<icu::UnicodeString>& names)
{
    names.clear();
    for (auto const& [name, label] : m_units) {
        names.append(name);
    }
}

void SystemUnit::getUnitSystemLabels(KFRSequence<icu::UnicodeString>& labels)
{
    labels.clear();
    for (auto const& [name, label] : m_units) {
        labels.append(label);
    }
}

KFRResult SystemUnit::getUnitSystemDataByLocalID(int index, UnitSystemData& out)
{
    if (index < 0 || static_cast<std::size_t>(index) >= m_units.size()) {
        return KFR::notDone;
    }
    KFRSmartPointer<KFRIUnitsInterface> const service = systemsService();
    if (service == KFR::NULLSP) {
        return KFR::notDone;
    }
    return service->getUnitSystemData(m_units[static_cast<std::size_t>(index)].first, out);
}

void SystemUnit::getBaseUnitSystem(UnitSystemData& out)
{
    auto const* row = std::ranges::find(kBaseSystems, lengthUnit(), &BaseSystemRow::m_lengthUnit);
    if (row == kBaseSystems.end()) {
        row = kBaseSystems.begin();
    }
    if (KFRSmartPointer<KFRIUnitsInterface> const service = systemsService();
        service != KFR::NULLSP) {
        static_cast<void>(service->getUnitSystemData(row->m_name, out));
    }
}

unsigned short SystemUnit::lengthUnit()
{
    unsigned short unit = 0;
    if (KFRSmartPointer<appfw::IUnitsInterface> const service = unitsService();
        service != KFR::NULLSP) {
        static_cast<void>(service->getCurrentUnit(kLengthQuantity, unit));
    }
    return unit;
}

bool SystemUnit::isUseMeter()
{
    return lengthUnit() == kMetre;
}

KFRResult SystemUnit::convertToCurrentFloatValue(FloatValue const& in, FloatValue& out)
{
    KFRSmartPointer<appfw::IUnitsInterface> const service = unitsService();
    if (service == KFR::NULLSP) {
        return KFR::notDone;
    }
    unsigned short quantity = 0;
    if (KFRResult const result = service->getQuantity(in.m_unit, quantity); !result.isOk()) {
        return result;
    }
    unsigned short unit = 0;
    if (KFRResult const result = service->getCurrentUnit(quantity, unit); !result.isOk()) {
        return result;
    }
    double value = 0.0;
    KFRResult const result = service->convert(in.m_value, in.m_unit, unit, value);
    if (result.isOk()) {
        out = FloatValue{unit, in.m_first, in.m_second, value};
    }
    return result;
}

}  // namespace vrn::orlo::plugin::modeling
