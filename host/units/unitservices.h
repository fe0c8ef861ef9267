/// \file
/// The host's units services.

#pragma once

#include "host/kernel/kernel.h"
#include "host/units/unitcatalogue.h"
#include "platform/appfw/units.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/units/units.h"

#include <string>
#include <string_view>

namespace vrn::orlo::host::units {

/// Codes of what fails; each comes with the offending name or number as its first parameter.
enum UnitsFailure : int {
    kUnknownUnit = 1,
    kUnknownQuantity = 2,
    kDifferentQuantities = 3,  ///< Both units are known, but measure different things.
    kUnknownSystem = 4,
};

/// One object for both services: the unit systems, and the user's units with their conversions.
///
/// Every system counts. A current system, "SI" at first, gives each quantity its current unit.
///
/// Failure    As UnitsFailure says, with outputs as they were.
/// Threads    Main thread for setCurrentSystem; the rest anywhere while nobody calls that.
class UnitServices final
    : public KFRServiceObjectImpl<appfw::IUnitsInterface, KFR::Util::Units::KFRIUnitsInterface> {
public:
    [[nodiscard]] UnitCatalogue const& catalogue() const noexcept { return m_catalogue; }

    [[nodiscard]] System const& currentSystem() const noexcept { return *m_current; }
    /// \param nameOrLabel  "SI_mm" or "mm-kg-s-mN"
    KFRResult setCurrentSystem(std::string_view nameOrLabel);

    KFRResult getCurrentUnit(unsigned short quantity, unsigned short& unit) override;
    KFRResult getQuantity(unsigned short unit, unsigned short& quantity) override;
    KFRResult convert(double value, unsigned short fromUnit, unsigned short toUnit,
                      double& out) override;
    /// The number as KFR::numberText writes it: "0.5", "1e+06".
    KFRResult format(KFR::Util::Units::FloatValue const& value, icu::UnicodeString& out,
                     int flag) override;

    KFRResult getUnitSystems(KFRSequence<KFR::Util::Units::UnitSystemInfo>& systems) override;
    KFRResult isCounted(icu::UnicodeString const& name, bool& counted) override;
    /// By its name; a label is no name.
    KFRResult getUnitSystemData(icu::UnicodeString const& name,
                                KFR::Util::Units::UnitSystemData& data) override;

    std::string getObjectName() override { return "vrn.orlo.host.units:UnitServices"; }

private:
    [[nodiscard]] System const* systemOfName(icu::UnicodeString const& name) const;

    UnitCatalogue m_catalogue;
    System const* m_current = &m_catalogue.systems().front();
};

/// Makes the services and has the kernel know them: by name, and as the member of
/// ServiceCacheModelingPlugin, which the kernel empties at its stop. To be called once, before a
/// component is loaded.
KFRSmartPointer<UnitServices> registerUnits(kernel::Kernel& kernel);

}  // namespace vrn::orlo::host::units
