/// \file
/// All units and unit systems that the host knows.

#pragma once

#include "host/units/unittables.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::units {

/// Numerator over denominator is the unit's size in the SI unit of its quantity.
struct Unit {
    unsigned short m_id = 0;
    Quantity m_quantity = kNone;
    std::string m_text;  ///< "kg/m^3", "N*m"; ASCII, with "*" for products.
    double m_numerator = 1.0;
    double m_denominator = 1.0;
};

/// The unit of one quantity in one system.
struct QuantityUnit {
    Quantity m_quantity = kNone;
    unsigned short m_unit = 0;
};

/// A unit system with its unit for every quantity.
struct System {
    std::string_view m_name;
    std::string_view m_label;
    std::vector<QuantityUnit> m_units;  // ascending by quantity

    /// Null for a quantity that there is not.
    [[nodiscard]] unsigned short const* unitOf(unsigned short quantity) const noexcept;
};

/// The base units, and for each derived quantity the units that the systems' base units make up.
///
/// Units      Sizes to m, kg, s, N, rad, MB and what is made of them.
/// Order      Units ascend by id; systems stand as in kSystems.
/// Failure    Null for what is not known.
/// Ownership  Pointers hold as long as the catalogue, which never changes.
/// Threads    Any thread.
/// Cost       Making it: some hundred units. A unit by id: a bisection.
class UnitCatalogue {
public:
    UnitCatalogue();

    [[nodiscard]] std::span<Unit const> units() const noexcept { return m_units; }
    [[nodiscard]] std::span<System const> systems() const noexcept { return m_systems; }

    [[nodiscard]] Unit const* unit(unsigned short id) const noexcept;
    /// \param nameOrLabel  "SI_mm" or "mm-kg-s-mN"; letters as they stand there
    [[nodiscard]] System const* system(std::string_view nameOrLabel) const noexcept;

private:
    [[nodiscard]] System makeSystem(SystemRow const& row);
    [[nodiscard]] unsigned short derivedUnit(DerivedRow const& row,
                                             std::array<Unit const*, 4> const& base);

    std::vector<Unit> m_units;
    std::vector<System> m_systems;
};

/// The value, stated in `from`, in the unit `to` of the same quantity. One that is in `to` already
/// comes back bit for bit.
[[nodiscard]] double converted(double value, Unit const& from, Unit const& to) noexcept;

}  // namespace vrn::orlo::host::units
