/// \file
/// Which entity types each kind of pick holds.

#pragma once

#include "platform/typenames/femdisplay.h"
#include "platform/typenames/femesh.h"
#include "platform/typenames/geometry.h"
#include "platform/typenames/modeling.h"
#include "platform/typenames/objectmodel.h"
#include "plugins/modelingplugin/utilities/selection/selectfiltertype.h"

#include <array>
#include <cstddef>

namespace vrn::orlo::plugin::modeling::detail {

struct SelectFilterRow {
    SelectFilterType m_type;
    typenames::TypeName const* m_name;
};

/// One row per kind and type, the rows of a kind together; their order is that of the ids behind
/// the kind, whose first is the one that SelectFilter::getTypeID gives.
constexpr auto selectFilterRows()
{
    using namespace typenames;  // NOLINT: 126 names of that one namespace
    // clang-format off
    return std::array{
    SelectFilterRow{FilterVertex,                   &kVertex},
    SelectFilterRow{FilterEdge,                     &kEdge},
    SelectFilterRow{FilterEdge,                     &kEdgeUnknow},
    SelectFilterRow{FilterEdge,                     &kEdgeWireframe},
    SelectFilterRow{FilterEdge,                     &kEdgeLaminar},
    SelectFilterRow{FilterEdge,                     &kEdgeNormal},
    SelectFilterRow{FilterEdge,                     &kEdgeGeneral},
    SelectFilterRow{FilterEdge,                     &kEdgeShare},
    SelectFilterRow{FilterFace,                     &kFace},
    SelectFilterRow{FilterBody,                     &kAcornBody},
    SelectFilterRow{FilterBody,                     &kWireBody},
    SelectFilterRow{FilterBody,                     &kFacetWire},
    SelectFilterRow{FilterBody,                     &kFacetSolid},
    SelectFilterRow{FilterBody,                     &kSheetBody},
    SelectFilterRow{FilterBody,                     &kFacetSheet},
    SelectFilterRow{FilterBody,                     &kBody},
    SelectFilterRow{FilterBody,                     &kGeneralBody},
    SelectFilterRow{FilterBody,                     &kFacetGeneral},
    SelectFilterRow{FilterBody,                     &kPrimitiveBoxSolid},
    SelectFilterRow{FilterBody,                     &kPrimitiveCylinderSolid},
    SelectFilterRow{FilterBody,                     &kPrimitiveSphereSolid},
    SelectFilterRow{FilterBody,                     &kPrimitiveEllipsoidSolid},
    SelectFilterRow{FilterRegion,                   &kRegion},
    SelectFilterRow{FilterPart,                     &kSimulationPart},
    SelectFilterRow{FilterCoordinateSystem,         &kModelingCoordinateSystem},
    SelectFilterRow{FilterCoordSystemComp0d,        &kModelingCoordSystemComp0d},
    SelectFilterRow{FilterCoordSystemComp3d,        &kModelingCoordSystemComp3d},
    SelectFilterRow{FilterSheetBody,                &kSheetBody},
    SelectFilterRow{FilterFacetSheet,               &kFacetSheet},
    SelectFilterRow{FilterGeneralBody,              &kGeneralBody},
    SelectFilterRow{FilterFacetGeneral,             &kFacetGeneral},
    SelectFilterRow{FilterSolidBody,                &kBody},
    SelectFilterRow{FilterWireBody,                 &kWireBody},
    SelectFilterRow{FilterPrimitiveBox,             &kPrimitiveBoxSolid},
    SelectFilterRow{FilterPrimitiveCylinder,        &kPrimitiveCylinderSolid},
    SelectFilterRow{FilterPrimitiveSphere,          &kPrimitiveSphereSolid},
    SelectFilterRow{FilterPrimitiveEllipsoid,       &kPrimitiveEllipsoidSolid},
    SelectFilterRow{FilterMeshBody,                 &kSimulationMeshBody},
    SelectFilterRow{FilterFEMesh,                   &kFemFEMesh},
    SelectFilterRow{Filter0dMesh,                   &kDisplay0DContinuousMesh},
    SelectFilterRow{Filter1dMesh,                   &kDisplay1DContinuousMesh},
    SelectFilterRow{Filter2dMesh,                   &kDisplay2DContinuousMesh},
    SelectFilterRow{Filter3dMesh,                   &kDisplay3DContinuousMesh},
    SelectFilterRow{FilterNode,                     &kFemNode},
    SelectFilterRow{Filter1DElement,                &kDisplay1DElement},
    SelectFilterRow{Filter2DElement,                &kDisplay2DElement},
    SelectFilterRow{Filter3DElement,                &kDisplay3DElement},
    SelectFilterRow{FilterElementFace,              &kDisplayElementFace},
    SelectFilterRow{FilterGroup,                    &kModelingGroup},
    SelectFilterRow{FilterAssembly,                 &kSimulationAssembly},
    SelectFilterRow{FilterAssemblyRep,              &kModelingAssemblyRep},
    SelectFilterRow{FilterConcentratedForce,        &kModelingConcentratedForce},
    SelectFilterRow{FilterCFApply,                  &kModelingCFApply},
    SelectFilterRow{FilterCFBody,                   &kModelingCFBody},
    SelectFilterRow{FilterCFHeadTail,               &kModelingCFHeadTail},
    SelectFilterRow{FilterMomentLoad,               &kModelingMomentLoad},
    SelectFilterRow{FilterRefEntity,                &kModelingRefEntity},
    SelectFilterRow{FilterFixedConstraint,          &kModelingFixedConstraint},
    SelectFilterRow{FilterFCApply,                  &kModelingFCApply},
    SelectFilterRow{FilterFCComponent,              &kModelingFCComponent},
    SelectFilterRow{FilterModesScenario,            &kModelingModesScenario},
    SelectFilterRow{FilterStaticScenario,           &kModelingStaticScenario},
    SelectFilterRow{FilterDynamicScenario,          &kModelingDynamicScenario},
    SelectFilterRow{FilterSeqDynamicScenario,       &kModelingSeqDynamicScenario},
    SelectFilterRow{FilterBucklingScenarios,        &kModelingBucklingScenarios},
    SelectFilterRow{FilterTopoOptimizationScenario, &kModelingTopoOptimizationScenario},
    SelectFilterRow{FilterOptimizationStudy,        &kModelingOptimizationStudy},
    SelectFilterRow{FilterShaperScenario,           &kSimulationShaperShaperScenario},
    SelectFilterRow{FilterShaperStudy,              &kSimulationShaperShaperStudy},
    SelectFilterRow{FilterStudy,                    &kModelingStudy},
    SelectFilterRow{FilterShellSectionProperty,     &kModelingShellSectionProperty},
    SelectFilterRow{FilterShellBehaviorProperty,    &kModelingShellBehaviorProperty},
    SelectFilterRow{FilterLineIsoMaterial,          &kModelingLineIsoMaterial},
    SelectFilterRow{FilterBeamShapeStandard,        &kModelingBeamShapeStandard},
    SelectFilterRow{FilterBeamSpan,                 &kModelingBeamSpan},
    SelectFilterRow{FilterBeamSpanComponent,        &kModelingBeamSpanComponentCenter},
    SelectFilterRow{FilterBeamSpanComponent,        &kModelingBeamSpanComponentCircle},
    SelectFilterRow{FilterBeamSpanComponent,        &kModelingBeamSpanComponentY},
    SelectFilterRow{FilterBeamSpanComponent,        &kModelingBeamSpanComponentZ},
    SelectFilterRow{FilterFEPartRep,                &kModelingFEPartRep},
    SelectFilterRow{FilterFEPartRep,                &kSimulationFEPartRep},
    SelectFilterRow{FilterGenericPartRep,           &kSimulationGenericPartRep},
    SelectFilterRow{FilterContinuousMesh,           &kFemContinuousMesh},
    SelectFilterRow{FilterModel,                    &kSimulationModel},
    SelectFilterRow{FilterSimSettings,              &kModelingSimSettings},
    SelectFilterRow{FilterMeshGroup,                &kDisplay0DContinuousMesh},
    SelectFilterRow{FilterMeshGroup,                &kDisplay1DContinuousMesh},
    SelectFilterRow{FilterMeshGroup,                &kDisplay2DContinuousMesh},
    SelectFilterRow{FilterMeshGroup,                &kDisplay3DContinuousMesh},
    SelectFilterRow{FilterMeshGroup,                &kFemContinuousMesh},
    SelectFilterRow{FilterAssemblyInstance,         &kSimulationAssemblyInstance},
    SelectFilterRow{FilterPartInstance,             &kSimulationPartInstance},
    SelectFilterRow{FilterGlueContact,              &kModelingGlueContact},
    SelectFilterRow{FilterGlueInteraction,          &kModelingGlueInteraction},
    SelectFilterRow{FilterGlueGroup,                &kModelingGlueGroup},
    SelectFilterRow{FilterEnforcedDisplacement,     &kModelingEnforcedDisplacement},
    SelectFilterRow{FilterEnfDisComp,               &kModelingEnfDisComp},
    SelectFilterRow{FilterRigidLink,                &kModelingConnectionRigidLink},
    SelectFilterRow{FilterSpring,                   &kModelingConnectionSpring},
    SelectFilterRow{FilterBushing,                  &kModelingConnectionBushing},
    SelectFilterRow{FilterDamping,                  &kModelingConnectionDamping},
    SelectFilterRow{FilterSpringDamper,             &kModelingConnectionSpringDamper},
    SelectFilterRow{FilterFlexibleLink,             &kModelingConnectionFlexibleLink},
    SelectFilterRow{FilterDiscreteTie,              &kModelingDiscreteTieRigidReferencePoint},
    SelectFilterRow{FilterDiscreteTie,              &kModelingDiscreteTieCompliantReferencePoint},
    SelectFilterRow{FilterDiscreteTie,              &kModelingDiscreteTieRigidAttachmentPoints},
    SelectFilterRow{FilterDiscreteTie,              &kModelingDiscreteTieCompliantAttachmentPoints},
    SelectFilterRow{FilterDiscreteTie,              &kModelingDiscreteTieRigidSpiderLine},
    SelectFilterRow{FilterDiscreteTie,              &kModelingDiscreteTieCompliantSpiderLine},
    SelectFilterRow{FilterTieReferencePoint,        &kModelingDiscreteTieRigidReferencePoint},
    SelectFilterRow{FilterTieReferencePoint,        &kModelingDiscreteTieCompliantReferencePoint},
    SelectFilterRow{FilterAveragePoint,             &kModelingDiscreteTieAveragePoint},
    SelectFilterRow{FilterInterfacePoint,           &kModelingInterfacePoint},
    SelectFilterRow{FilterDiscreteTieRep,           &kModelingDiscreteTieRep},
    SelectFilterRow{FilterDesignRegion,             &kModelingToplogyDesignRegion},
    SelectFilterRow{FilterManufacturingConstraint,  &kModelingManufacturingConstraint},
    SelectFilterRow{FilterMarkerOn1DEntity,         &kMarkerOn1DEntity},
    SelectFilterRow{FilterMarkerOn1DEntityCenter,   &kMarkerOn1DEntityCenter},
    SelectFilterRow{FilterMarkerOn2DEntityCenter,   &kMarkerOn2DEntityCenter},
    SelectFilterRow{FilterMarkerOn2DEntityCentroid, &kMarkerOn2DEntityCentroid},
    SelectFilterRow{FilterMarkerOnAxisCenter,       &kMarkerOnAxisCenter},
    SelectFilterRow{FilterMarkerOnAxisEnd,          &kMarkerOnAxisEnd},
    SelectFilterRow{FilterGeneralizedPoint,         &kTransformNormalManipulator},
    SelectFilterRow{FilterGeneralizedPoint,         &kModelingGeneralizedPoint},
    SelectFilterRow{FilterDatumPlane,               &kDatumPlane},
    SelectFilterRow{FilterNodeTie,                  &kModelingNodeTie},
    };
    // clang-format on
}

inline constexpr auto kSelectFilterRows = selectFilterRows();

consteval bool kindsAscend()
{
    for (std::size_t i = 1; i < kSelectFilterRows.size(); ++i) {
        if (kSelectFilterRows[i].m_type < kSelectFilterRows[i - 1].m_type) {
            return false;
        }
    }
    return true;
}

static_assert(kSelectFilterRows.size() == 126);
static_assert(kindsAscend(), "the rows of one kind stand together");

}  // namespace vrn::orlo::plugin::modeling::detail
