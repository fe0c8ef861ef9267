/// \file
/// Both units services, as a test sets them.

#pragma once

#include "platform/appfw/units.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/units/units.h"

#include <initializer_list>
#include <map>
#include <set>
#include <string>

namespace vrn::orlo::plugin::modeling::test {

/// Converts by multiplying with 1000 and tells what it was asked.
class FakeUnits final
    : public KFRServiceObjectImpl<appfw::IUnitsInterface, KFR::Util::Units::KFRIUnitsInterface> {
public:
    using Info = KFR::Util::Units::UnitSystemInfo;
    using Data = KFR::Util::Units::UnitSystemData;

    KFRSequence<Info> m_systems;
    std::set<icu::UnicodeString> m_uncounted;
    std::set<icu::UnicodeString> m_countFails;  ///< The flag is set all the same.
    std::map<unsigned short, unsigned short> m_currentUnits;
    std::map<unsigned short, unsigned short> m_quantities;
    KFRResult m_listResult = KFR::ok;
    KFRResult m_convertResult = KFR::ok;

    KFRResult getUnitSystems(KFRSequence<Info>& systems) override
    {
        systems = m_systems;
        return m_listResult;
    }
    KFRResult isCounted(icu::UnicodeString const& name, bool& counted) override
    {
        counted = !m_uncounted.contains(name);
        return m_countFails.contains(name) ? 21 : KFR::ok;
    }
    KFRResult getUnitSystemData(icu::UnicodeString const& name, Data& data) override
    {
        data.m_name = name;
        return 22;  // to be seen by callers as it is
    }
    KFRResult getCurrentUnit(unsigned short quantity, unsigned short& unit) override
    {
        return find(m_currentUnits, quantity, unit, 23);
    }
    KFRResult getQuantity(unsigned short unit, unsigned short& quantity) override
    {
        return find(m_quantities, unit, quantity, 24);
    }
    KFRResult convert(double value, unsigned short, unsigned short, double& out) override
    {
        out = value * 1000.0;
        return m_convertResult;
    }
    KFRResult format(KFR::Util::Units::FloatValue const&, icu::UnicodeString&, int) override
    {
        return KFR::notDone;
    }

private:
    static KFRResult find(std::map<unsigned short, unsigned short> const& from, unsigned short key,
                          unsigned short& value, int failure)
    {
        auto const found = from.find(key);
        if (found == from.end()) {
            return failure;
        }
        value = found->second;
        return KFR::ok;
    }
};

inline KFRSmartPointer<FakeUnits> makeUnits(
    std::initializer_list<std::pair<char16_t const*, char16_t const*>> systems)
{
    KFRSmartPointer<FakeUnits> units = KFR::make<FakeUnits>();
    for (auto const& [name, label] : systems) {
        units->m_systems.append(FakeUnits::Info{name, label});
    }
    return units;
}

inline std::string utf8(icu::UnicodeString const& text)
{
    std::string result;
    return text.toUTF8String(result);
}

}  // namespace vrn::orlo::plugin::modeling::test
