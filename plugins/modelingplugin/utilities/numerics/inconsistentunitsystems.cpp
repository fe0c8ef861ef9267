#include "plugins/modelingplugin/utilities/numerics/inconsistentunitsystems.h"

#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/numerics/systemunit.h"
#include "plugins/modelingplugin/utilities/numerics/unittable.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>

namespace vrn::orlo::plugin::modeling {

namespace {

using detail::UnitKind;
using detail::UnitRow;

constexpr double kGravity = 9.80665;  // m/s^2
constexpr std::size_t kBaseTokens = 4;

constexpr unsigned short number(UnitKind kind)
{
    return static_cast<unsigned short>(kind);
}

/// The tokens between the "-", empty ones too.
std::vector<icu::UnicodeString> split(icu::UnicodeString const& label)
{
    std::vector<icu::UnicodeString> tokens;
    std::int32_t start = 0;
    for (std::int32_t end = 0; (end = label.indexOf(u'-', start)) >= 0; start = end + 1) {
        tokens.emplace_back(label, start, end - start);
    }
    tokens.emplace_back(label, start);
    return tokens;
}

/// By code points, as the table's texts are stored.
std::wstring wide(icu::UnicodeString const& text)
{
    std::wstring result;
    result.reserve(static_cast<std::size_t>(text.length()));
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        result.push_back(static_cast<wchar_t>(text.char32At(i)));
    }
    return result;
}

}  // namespace

InconsistentUnitSystems* InconsistentUnitSystems::instance()
{
    static InconsistentUnitSystems systems;
    return &systems;
}

unsigned short InconsistentUnitSystems::resolveUnitIDFromWString(unsigned short kind,
                                                                 std::wstring text)
{
    auto const* const row = std::ranges::find_if(detail::kUnitTable, [&](UnitRow const& unit) {
        return number(unit.m_kind) == kind && unit.m_text == text;
    });
    return row == detail::kUnitTable.end() ? static_cast<unsigned short>(0) : row->m_id;
}

UnitSysUnitIDs InconsistentUnitSystems::getUnitIDsFromUnitSystem(icu::UnicodeString label)
{
    std::vector<icu::UnicodeString> const tokens = split(label);
    UnitSysUnitIDs ids;
    if (tokens.size() < kBaseTokens) {
        return ids;
    }
    ids.m_length = resolveUnitIDFromWString(number(UnitKind::length), wide(tokens[0]));
    ids.m_mass = resolveUnitIDFromWString(number(UnitKind::mass), wide(tokens[1]));
    ids.m_time = resolveUnitIDFromWString(number(UnitKind::time), wide(tokens[2]));
    ids.m_force = resolveUnitIDFromWString(number(UnitKind::force), wide(tokens[3]));
    if (tokens.size() == kBaseTokens + 1) {
        ids.m_angle = resolveUnitIDFromWString(number(UnitKind::angle), wide(tokens[4]));
    }
    return ids;
}

unsigned short InconsistentUnitSystems::getUnitIDFromMassAsWeight(icu::UnicodeString text)
{
    return resolveUnitIDFromWString(number(UnitKind::force), wide(text));
}

double InconsistentUnitSystems::getRelativeValueOfUnit(unsigned short kind, unsigned short unit)
{
    auto const* const row = std::ranges::find_if(detail::kUnitTable, [&](UnitRow const& known) {
        return number(known.m_kind) == kind && known.m_id == unit;
    });
    return row == detail::kUnitTable.end() ? 1.0 : row->m_factor;
}

double InconsistentUnitSystems::getWTMASS(icu::UnicodeString unitSystemLabel,
                                          icu::UnicodeString massAsWeight)
{
    UnitSysUnitIDs const ids = getUnitIDsFromUnitSystem(std::move(unitSystemLabel));
    unsigned short const weightUnit = getUnitIDFromMassAsWeight(std::move(massAsWeight));
    double const length = getRelativeValueOfUnit(number(UnitKind::length), ids.m_length);
    double const time = getRelativeValueOfUnit(number(UnitKind::time), ids.m_time);
    double const force = getRelativeValueOfUnit(number(UnitKind::force), ids.m_force);
    // A text that is no force unit gives the id 0, which has the factor 1.0.
    double const weight = getRelativeValueOfUnit(number(UnitKind::force), weightUnit);
    // The order of the products is fixed: it settles the last digit.
    return (weight * length) / (force * kGravity * time * time);
}

std::vector<OverrideUnit> InconsistentUnitSystems::getOverrideBaseMassUnits()
{
    if (!m_overrideUnits.empty()) {
        return m_overrideUnits;
    }
    KFRSequence<icu::UnicodeString> labels;
    SystemUnit::getStandardUnit().getUnitSystemLabels(labels);
    std::set<icu::UnicodeString> forces;  // ordered by code units
    for (icu::UnicodeString const& label : std::as_const(labels)) {
        if (std::vector<icu::UnicodeString> tokens = split(label); tokens.size() == kBaseTokens) {
            forces.insert(std::move(tokens.back()));
        }
    }
    for (icu::UnicodeString const& force : forces) {
        m_overrideUnits.push_back({number(UnitKind::mass), force});
    }
    return m_overrideUnits;
}

}  // namespace vrn::orlo::plugin::modeling
