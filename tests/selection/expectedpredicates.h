/// \file
/// What each predicate has to accept, written out.

#pragma once

#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// By what a predicate goes: the name of the id, or the table of ids.
enum class Goes { byName, byTable };

enum Forms : unsigned { kReference = 1, kId = 2, kBoth = 3, kNameAndId = 6 };

struct ExpectedPredicate {
    std::string name;
    Goes goes;
    std::function<bool(CAE::EntityReference const&)> ofReference;  ///< Empty: no such form.
    std::function<bool(unsigned int)> ofId;                        ///< Empty: no such form.
    std::vector<std::string> accepted;

    /// The answer of one of the forms.
    [[nodiscard]] bool accepts(unsigned int typeId) const
    {
        return ofReference ? ofReference({.service = {}, .typeId = typeId}) : ofId(typeId);
    }
};

/// A row, with the forms of the predicate checked at compile time: the gaps are promised.
template <Forms forms, class Ask>
ExpectedPredicate expectPredicate(char const* name, Goes goes, Ask ask,
                                  std::vector<std::string> accepted)
{
    static_assert(std::is_invocable_v<Ask, CAE::EntityReference> == ((forms & kReference) != 0));
    static_assert(std::is_invocable_v<Ask, unsigned int> == ((forms & kId) != 0));
    static_assert(std::is_invocable_v<Ask, icu::UnicodeString> == (forms == kNameAndId));
    ExpectedPredicate row{name, goes, {}, {}, std::move(accepted)};
    if constexpr ((forms & kReference) != 0) {
        row.ofReference = ask;
    }
    if constexpr ((forms & kId) != 0) {
        row.ofId = ask;
    }
    return row;
}

#define EXPECTED_PREDICATE(predicate, forms, goes, ...)             \
    expectPredicate<forms>(                                         \
        #predicate, goes, [](auto const& asked) requires requires { \
            SelectFilter::predicate(asked);                         \
        } { return SelectFilter::predicate(asked); },               \
        {__VA_ARGS__})

inline std::vector<ExpectedPredicate> const& expectedPredicates()
{
    using enum Goes;
    // clang-format off
    static std::vector<ExpectedPredicate> const rows{
    EXPECTED_PREDICATE(isVertex, kReference, byName, "VERTEX"),
    EXPECTED_PREDICATE(isEdge, kBoth, byTable,
        "EDGE", "EDGEUNKNOW", "EDGEWIREFRAME", "EDGELAMINAR", "EDGENORMAL", "EDGEGENERAL", "EDGESHARE"),
    EXPECTED_PREDICATE(isFace, kBoth, byName, "FACE"),
    EXPECTED_PREDICATE(isBody, kBoth, byTable,
        "ACORNBODY", "WIREBODY", "FACETWIRE", "FACETSOLID", "SHEETBODY", "FACETSHEET", "BODY",
        "GENERALBODY", "FACETGENERAL", "PRIMITIVEBOXSOLID", "PRIMITIVECYLINDERSOLID",
        "PRIMITIVESPHERESOLID", "PRIMITIVEELLIPSOIDSOLID"),
    EXPECTED_PREDICATE(isRegion, kReference, byTable, "REGION"),
    EXPECTED_PREDICATE(isSolidBody, kId, byName,
        "BODY", "PRIMITIVEBOXSOLID", "PRIMITIVECYLINDERSOLID", "PRIMITIVESPHERESOLID",
        "PRIMITIVEELLIPSOIDSOLID"),
    EXPECTED_PREDICATE(isSheetBody, kReference, byName, "SHEETBODY"),
    EXPECTED_PREDICATE(isFacetSheetBody, kReference, byName, "FACETSHEET"),
    EXPECTED_PREDICATE(isGeneralBody, kReference, byName, "GENERALBODY"),
    EXPECTED_PREDICATE(isFacetGeneralBody, kReference, byName, "FACETGENERAL"),
    EXPECTED_PREDICATE(isWireBody, kReference, byName, "WIREBODY"),
    EXPECTED_PREDICATE(isAssembly, kBoth, byName, "Simulation.Assembly"),
    EXPECTED_PREDICATE(isAssemblyRep, kReference, byName, "Simulation.Modeling.AssemblyRep"),
    EXPECTED_PREDICATE(isAssemblyInstance, kBoth, byTable, "Simulation.AssemblyInstance"),
    EXPECTED_PREDICATE(isPart, kBoth, byName, "Simulation.Part"),
    EXPECTED_PREDICATE(isPartInstance, kBoth, byTable, "Simulation.PartInstance"),
    EXPECTED_PREDICATE(isInstance, kReference, byTable,
        "Simulation.AssemblyInstance", "Simulation.PartInstance"),
    EXPECTED_PREDICATE(isFEPartRep, kReference, byTable,
        "Simulation.Modeling.FEPartRep", "Simulation.FEPartRep"),
    EXPECTED_PREDICATE(isMeshBody, kBoth, byName, "Simulation.MeshBody"),
    EXPECTED_PREDICATE(isMeshGroup, kBoth, byTable,
        "FEM.Simulation.0DContinuousMesh", "FEM.Simulation.1DContinuousMesh",
        "FEM.Simulation.2DContinuousMesh", "FEM.Simulation.3DContinuousMesh",
        "Simulation.FEM.ContinuousMesh"),
    EXPECTED_PREDICATE(is0dMesh, kReference, byName, "FEM.Simulation.0DContinuousMesh"),
    EXPECTED_PREDICATE(is1dMesh, kReference, byName, "FEM.Simulation.1DContinuousMesh"),
    EXPECTED_PREDICATE(is2dMesh, kBoth, byName,
        "FEM.Simulation.2DMesh", "FEM.Simulation.2DContinuousMesh"),
    EXPECTED_PREDICATE(is3dMesh, kReference, byName, "FEM.Simulation.3DContinuousMesh"),
    EXPECTED_PREDICATE(isMesh, kReference, byName,
        "FEM.Simulation.0DContinuousMesh", "FEM.Simulation.1DContinuousMesh", "FEM.Simulation.2DMesh",
        "FEM.Simulation.2DContinuousMesh", "FEM.Simulation.3DContinuousMesh"),
    EXPECTED_PREDICATE(is1DElement, kBoth, byName, "FEM.Simulation.1DElement"),
    EXPECTED_PREDICATE(is2DElement, kBoth, byName, "FEM.Simulation.2DElement"),
    EXPECTED_PREDICATE(is3DElement, kBoth, byName, "FEM.Simulation.3DElement"),
    EXPECTED_PREDICATE(isPFWElement, kBoth, byName, "Simulation.FEM.Element"),
    EXPECTED_PREDICATE(isElement, kBoth, byName,
        "FEM.Simulation.1DElement", "FEM.Simulation.2DElement", "FEM.Simulation.3DElement",
        "Simulation.FEM.Element"),
    EXPECTED_PREDICATE(isElementFace, kBoth, byName, "FEM.Simulation.ElementFace"),
    EXPECTED_PREDICATE(isNode, kReference, byName, "Simulation.FEM.Node"),
    EXPECTED_PREDICATE(isCoordSystem, kReference, byName,
        "Simulation.CoordSystem.Cartesian", "Simulation.CoordSystem.Cylindrical",
        "Simulation.CoordSystem.Spherical"),
    EXPECTED_PREDICATE(isCoordSystemGroup, kReference, byName, "Simulation.CoordSystemGroup"),
    EXPECTED_PREDICATE(isConstraint, kNameAndId, byName,
        "Simulation.Modeling.DisplacementConstraint.General",
        "Simulation.Modeling.DisplacementConstraint.Cylindrical",
        "Simulation.Modeling.DisplacementConstraint.Axial",
        "Simulation.Modeling.DisplacementConstraint.Pinned",
        "Simulation.Modeling.DisplacementConstraint.Clamped",
        "Simulation.Modeling.DisplacementConstraint.Symmetry"),
    EXPECTED_PREDICATE(isScenario, kReference, byTable,
        "Simulation.Modeling.ModesScenario", "Simulation.Modeling.StaticScenario",
        "Simulation.Modeling.DynamicScenario", "Simulation.Modeling.SeqDynamicScenario",
        "Simulation.Modeling.BucklingScenarios", "Simulation.Modeling.TopoOptimizationScenario",
        "Simulation.Shaper.ShaperScenario"),
    EXPECTED_PREDICATE(isSectionProperty, kBoth, byTable, "Simulation.Modeling.ShellSectionProperty"),
    EXPECTED_PREDICATE(isBehaviorProperty, kBoth, byTable, "Simulation.Modeling.ShellBehaviorProperty"),
    EXPECTED_PREDICATE(isLineISOMaterial, kBoth, byTable, "Simulation.Modeling.LineIsoMaterial"),
    EXPECTED_PREDICATE(isRefEntity, kReference, byTable, "Simulation.Modeling.RefEntity"),
    EXPECTED_PREDICATE(isDesignRegion, kReference, byTable, "Simulation.Modeling.ToplogyDesignRegion"),
    EXPECTED_PREDICATE(isInterfacePoint, kReference, byTable, "Simulation.Modeling.InterfacePoint"),
    EXPECTED_PREDICATE(isAveragePoint, kReference, byName,
        "Simulation.Modeling.DiscreteTie_AveragePoint"),
    EXPECTED_PREDICATE(isTieReferencePoint, kReference, byTable,
        "Simulation.Modeling.DiscreteTie.Rigid.ReferencePoint",
        "Simulation.Modeling.DiscreteTie.Compliant.ReferencePoint"),
    EXPECTED_PREDICATE(isNodeTieEntity, kId, byTable, "Simulation.Modeling.NodeTie"),
    EXPECTED_PREDICATE(isDatumPlane, kBoth, byTable, "CONSTRUCTION.DATUMPLANE"),
    EXPECTED_PREDICATE(isMarkerOn1DEntity, kBoth, byName, "MARKERON1DENTITY"),
    EXPECTED_PREDICATE(isMarkerOn1DEntityCenter, kBoth, byName, "MARKERON1DENTITYCENTER"),
    EXPECTED_PREDICATE(isMarkerOn2DEntityCenter, kBoth, byName, "MARKERON2DENTITYCENTER"),
    EXPECTED_PREDICATE(isMarkerOnAxisCenter, kBoth, byName, "MARKERONAXISCENTER"),
    EXPECTED_PREDICATE(isMarkerOnAxisEnd, kBoth, byName, "MARKERONAXISEND"),
    };
    // clang-format on
    return rows;
}

#undef EXPECTED_PREDICATE

}  // namespace vrn::orlo::plugin::modeling::test
