/// \file
/// Materials, sections and behaviours.

#pragma once

#include "host/model/modelobject.h"
#include "platform/caedata/caedata.h"
#include "platform/typenames/modeling.h"

#include <memory>
#include <string>

namespace vrn::orlo::host::model {

/// An isotropic material, "Simulation.Modeling.LineIsoMaterial". Starts as steel.
///
/// Properties: "name", a text that is not empty; "youngsModulus" above 0; "poissonRatio" above -1
/// and below 0.5; "density", 0 or more; "expansionCoefficient", finite; "yieldStress" above 0.
///
/// Units      mm, N, t, s, K: moduli and stresses in MPa, density in t/mm3, expansion in 1/K.
class Material final : public ModelObjectOf<CAE::IMaterialInterface> {
public:
    static constexpr char const* kKind = "Material";
    static typenames::TypeName const& typeName() noexcept;

    /// \param persistentName, owner, typeId, number, service  as for ModelObjectOf
    Material(std::string const& name, std::string persistentName, KFRIService owner,
             unsigned int typeId, unsigned int number, std::shared_ptr<EntityService> service);
};

/// A section of shells, "Simulation.Modeling.ShellSectionProperty".
///
/// Properties: "name", a text that is not empty; "thickness" above 0; "offset" of the middle
/// surface from the mesh, finite; "integrationPoints" over the thickness, odd from 1 to 15.
///
/// Units      mm.
class SectionProperty final : public ModelObjectOf<CAE::ISectionPropertyInterface> {
public:
    static constexpr char const* kKind = "Section";
    static typenames::TypeName const& typeName() noexcept;

    /// \param persistentName, owner, typeId, number, service  as for ModelObjectOf
    SectionProperty(std::string const& name, std::string persistentName, KFRIService owner,
                    unsigned int typeId, unsigned int number,
                    std::shared_ptr<EntityService> service);
};

/// What shells carry, "Simulation.Modeling.ShellBehaviorProperty".
///
/// Properties: "name", a text that is not empty; "membrane", "bending" and "transverseShear", truth
/// values; "drillingStiffness", the factor on the rotation about the normal, from 0 to 1.
class BehaviorProperty final : public ModelObjectOf<CAE::IBehaviorPropertyInterface> {
public:
    static constexpr char const* kKind = "Behavior";
    static typenames::TypeName const& typeName() noexcept;

    /// \param persistentName, owner, typeId, number, service  as for ModelObjectOf
    BehaviorProperty(std::string const& name, std::string persistentName, KFRIService owner,
                     unsigned int typeId, unsigned int number,
                     std::shared_ptr<EntityService> service);
};

}  // namespace vrn::orlo::host::model
