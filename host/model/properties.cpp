#include "host/model/properties.h"

#include <cmath>
#include <utility>

namespace vrn::orlo::host::model {

namespace {

std::string checkName(KFRAny const& value)
{
    return value.get<icu::UnicodeString>()->isEmpty() ? "a text that is not empty" : "";
}

std::string checkAboveZero(KFRAny const& value)
{
    double const number = *value.get<double>();
    return number > 0.0 && std::isfinite(number) ? "" : "a number above 0";
}

std::string checkNotNegative(KFRAny const& value)
{
    double const number = *value.get<double>();
    return number >= 0.0 && std::isfinite(number) ? "" : "a number that is 0 or more";
}

std::string checkFinite(KFRAny const& value)
{
    return std::isfinite(*value.get<double>()) ? "" : "a finite number";
}

// At the ends one of the two other moduli is 0 or infinite.
std::string checkPoissonRatio(KFRAny const& value)
{
    double const ratio = *value.get<double>();
    return ratio > -1.0 && ratio < 0.5 ? "" : "a number above -1 and below 0.5";
}

std::string checkFraction(KFRAny const& value)
{
    double const number = *value.get<double>();
    return number >= 0.0 && number <= 1.0 ? "" : "a number from 0 to 1";
}

// Odd, so that one point lies in the middle surface.
std::string checkIntegrationPoints(KFRAny const& value)
{
    constexpr int kMost = 15;
    int const points = *value.get<int>();
    return points >= 1 && points <= kMost && points % 2 == 1 ? "" : "an odd number from 1 to 15";
}

KFRAny nameValue(std::string const& name)
{
    return KFRAny(icu::UnicodeString::fromUTF8(name));
}

}  // namespace

typenames::TypeName const& Material::typeName() noexcept
{
    return typenames::kModelingLineIsoMaterial;
}

Material::Material(std::string const& name, std::string persistentName, KFRIService owner,
                   unsigned int typeId, unsigned int number, std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), std::move(owner), typeId, number, std::move(service))
{
    declareProperty(kNameProperty, nameValue(name), checkName);
    declareProperty("youngsModulus", KFRAny(210000.0), checkAboveZero);
    declareProperty("poissonRatio", KFRAny(0.3), checkPoissonRatio);
    declareProperty("density", KFRAny(7.85e-9), checkNotNegative);
    declareProperty("expansionCoefficient", KFRAny(1.2e-5), checkFinite);
    declareProperty("yieldStress", KFRAny(235.0), checkAboveZero);
}

typenames::TypeName const& SectionProperty::typeName() noexcept
{
    return typenames::kModelingShellSectionProperty;
}

SectionProperty::SectionProperty(std::string const& name, std::string persistentName,
                                 KFRIService owner, unsigned int typeId, unsigned int number,
                                 std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), std::move(owner), typeId, number, std::move(service))
{
    declareProperty(kNameProperty, nameValue(name), checkName);
    declareProperty("thickness", KFRAny(1.0), checkAboveZero);
    declareProperty("offset", KFRAny(0.0), checkFinite);
    declareProperty("integrationPoints", KFRAny(5), checkIntegrationPoints);
}

typenames::TypeName const& BehaviorProperty::typeName() noexcept
{
    return typenames::kModelingShellBehaviorProperty;
}

BehaviorProperty::BehaviorProperty(std::string const& name, std::string persistentName,
                                   KFRIService owner, unsigned int typeId, unsigned int number,
                                   std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), std::move(owner), typeId, number, std::move(service))
{
    declareProperty(kNameProperty, nameValue(name), checkName);
    declareProperty("membrane", KFRAny(true));
    declareProperty("bending", KFRAny(true));
    declareProperty("transverseShear", KFRAny(true));
    declareProperty("drillingStiffness", KFRAny(1.0e-4), checkFraction);
}

}  // namespace vrn::orlo::host::model
