#include "host/units/unitcatalogue.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::host::units {

namespace {

std::vector<std::string_view> split(std::string_view label)
{
    std::vector<std::string_view> tokens;
    for (std::size_t end = 0; (end = label.find('-')) != label.npos; label.remove_prefix(end + 1)) {
        tokens.push_back(label.substr(0, end));
    }
    tokens.push_back(label);
    return tokens;
}

BaseUnitRow const& baseRow(Quantity quantity, std::string_view text)
{
    // The first of a text: 1 and not 1000 for "m".
    auto const* const row = std::ranges::find_if(kBaseUnits, [&](BaseUnitRow const& unit) {
        return unit.m_quantity == quantity && unit.m_text == text;
    });
    if (row == kBaseUnits.end()) {
        throw std::logic_error("no unit for a token of a unit system's label");
    }
    return *row;
}

/// Whether a unit that stands in a product with this exponent leaves the product an SI unit.
bool isSIFor(Unit const& unit, int exponent)
{
    return exponent == 0 || (unit.m_numerator == 1.0 && unit.m_denominator == 1.0);
}

/// A unit that grows by powers of others.
class Product {
public:
    void multiply(Unit const& unit, int exponent)
    {
        if (exponent == 0) {
            return;
        }
        for (int i = 0; i < std::abs(exponent); ++i) {
            m_numerator *= exponent > 0 ? unit.m_numerator : unit.m_denominator;
            m_denominator *= exponent > 0 ? unit.m_denominator : unit.m_numerator;
        }
        std::string& text = exponent > 0 ? m_above : m_below;
        text += exponent > 0 ? (text.empty() ? "" : "*") : "/";
        text += unit.m_text;
        if (std::abs(exponent) > 1) {
            text += "^" + std::to_string(std::abs(exponent));
        }
    }
    [[nodiscard]] Unit unit() const
    {
        return {0, kNone, m_above + m_below, m_numerator, m_denominator};
    }

private:
    std::string m_above;
    std::string m_below;
    double m_numerator = 1.0;
    double m_denominator = 1.0;
};

}  // namespace

unsigned short const* System::unitOf(unsigned short quantity) const noexcept
{
    auto const row = std::ranges::find(m_units, quantity, &QuantityUnit::m_quantity);
    return row == m_units.end() ? nullptr : &row->m_unit;
}

UnitCatalogue::UnitCatalogue()
{
    for (BaseUnitRow const& row : kBaseUnits) {
        m_units.push_back({row.m_id, row.m_quantity, std::string(row.m_text), row.m_numerator,
                           row.m_denominator});
    }
    for (SystemRow const& row : kSystems) {
        m_systems.push_back(makeSystem(row));
    }
    std::ranges::sort(m_units, {}, &Unit::m_id);
}

System UnitCatalogue::makeSystem(SystemRow const& row)
{
    std::vector<std::string_view> const tokens = split(row.m_label);
    std::string_view const fifth = tokens.size() > 4 ? tokens[4] : std::string_view();
    System system{row.m_name, row.m_label, {{kNone, 0}}};
    std::array<unsigned short, 4> ids{};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        auto const quantity = static_cast<Quantity>(kLength + i);
        ids[i] = baseRow(quantity, tokens.at(i)).m_id;
        system.m_units.push_back({quantity, ids[i]});
    }
    system.m_units.push_back({kAngle, baseRow(kAngle, fifth == "deg" ? "deg" : "rad").m_id});
    system.m_units.push_back({kMemory, baseRow(kMemory, "MB").m_id});
    for (DerivedRow const& derived : kDerived) {
        std::array<Unit const*, 4> base{};
        std::ranges::transform(ids, base.begin(), [this](unsigned short id) {
            return &*std::ranges::find(m_units, id, &Unit::m_id);
        });
        bool const isBtu = derived.m_quantity == kEnergy && fifth == "BTU";
        system.m_units.push_back({derived.m_quantity, isBtu ? kBtu : derivedUnit(derived, base)});
    }
    return system;
}

unsigned short UnitCatalogue::derivedUnit(DerivedRow const& row,
                                          std::array<Unit const*, 4> const& base)
{
    Product product;
    product.multiply(*base[3], row.m_force);
    product.multiply(*base[1], row.m_mass);
    product.multiply(*base[0], row.m_length);
    product.multiply(*base[2], row.m_time);
    Unit unit = product.unit();
    unit.m_quantity = row.m_quantity;

    bool const isSIUnit = isSIFor(*base[0], row.m_length) && isSIFor(*base[1], row.m_mass) &&
                          isSIFor(*base[2], row.m_time) && isSIFor(*base[3], row.m_force);
    if (isSIUnit && !row.m_siText.empty()) {
        unit.m_text = row.m_siText;
    }
    std::size_t count = 0;
    for (Unit const& known : m_units) {
        bool const isOwn = known.m_quantity == row.m_quantity && known.m_id != kBtu;
        if (isOwn && known.m_text == unit.m_text) {
            return known.m_id;
        }
        count += isOwn ? 1 : 0;
    }
    if (count >= kIdsPerQuantity) {
        throw std::logic_error("too many units of one quantity");
    }
    unit.m_id = isSIUnit && row.m_siId != 0 ? row.m_siId
                                            : static_cast<unsigned short>(row.m_firstId + count);
    return m_units.emplace_back(std::move(unit)).m_id;
}

Unit const* UnitCatalogue::unit(unsigned short id) const noexcept
{
    auto const found = std::ranges::lower_bound(m_units, id, {}, &Unit::m_id);
    return found != m_units.end() && found->m_id == id ? &*found : nullptr;
}

System const* UnitCatalogue::system(std::string_view nameOrLabel) const noexcept
{
    auto const found = std::ranges::find_if(m_systems, [&](System const& system) {
        return system.m_name == nameOrLabel || system.m_label == nameOrLabel;
    });
    return found == m_systems.end() ? nullptr : &*found;
}

double converted(double value, Unit const& from, Unit const& to) noexcept
{
    double const numerator = from.m_numerator * to.m_denominator;
    double const denominator = from.m_denominator * to.m_numerator;
    if (numerator == denominator) {
        return value;
    }
    double const product = value * numerator;
    // A product that leaves the range of numbers says nothing of the quotient.
    bool const isSafe = std::isnormal(product) || value == 0.0 || !std::isfinite(value);
    return isSafe ? product / denominator : value * (numerator / denominator);
}

}  // namespace vrn::orlo::host::units
