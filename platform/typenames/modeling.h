/// \file
/// Modeling types: loads, constraints, properties, scenarios, ties, groups, glue. Odd spellings
/// are the application's own.

#pragma once

#include "platform/typenames/typename.h"

namespace vrn::orlo::typenames {

// clang-format off
inline TypeName const kModelingApplyLoadGroup                      {true, u"Simulation.Modeling.ApplyLoadGroup", -1};
inline TypeName const kModelingApplyModelLoad                      {true, u"Simulation.Modeling.ApplyModelLoad", -1};
inline TypeName const kModelingAssemblyRep                         {true, u"Simulation.Modeling.AssemblyRep", -1};
inline TypeName const kModelingBeamSpanComponentCenter             {true, u"Simulation.Modeling.Beam.Span.Component.Center", -1};
inline TypeName const kModelingBeamSpanComponentCircle             {true, u"Simulation.Modeling.Beam.Span.Component.Circle", -1};
inline TypeName const kModelingBeamSpanComponentY                  {true, u"Simulation.Modeling.Beam.Span.Component.Y", -1};
inline TypeName const kModelingBeamSpanComponentZ                  {true, u"Simulation.Modeling.Beam.Span.Component.Z", -1};
inline TypeName const kModelingBeamSpanGroup                       {true, u"Simulation.Modeling.Beam.Span.Group", -1};
inline TypeName const kModelingBeamShapeStandard                   {true, u"Simulation.Modeling.BeamShapeStandard", -1};
inline TypeName const kModelingBeamSpan                            {true, u"Simulation.Modeling.BeamSpan", -1};
inline TypeName const kModelingBucklingScenarios                   {true, u"Simulation.Modeling.BucklingScenarios", -1};
inline TypeName const kModelingCFApply                             {true, u"Simulation.Modeling.CFApply", -1};
inline TypeName const kModelingCFBody                              {true, u"Simulation.Modeling.CFBody", -1};
inline TypeName const kModelingCFHeadTail                          {true, u"Simulation.Modeling.CFHeadTail", -1};
inline TypeName const kModelingConcentratedForce                   {true, u"Simulation.Modeling.ConcentratedForce", -1};
inline TypeName const kModelingConnectionBushing                   {true, u"Simulation.Modeling.Connection.Bushing", -1};
inline TypeName const kModelingConnectionDamping                   {true, u"Simulation.Modeling.Connection.Damping", -1};
inline TypeName const kModelingConnectionFlexibleLink              {true, u"Simulation.Modeling.Connection.FlexibleLink", -1};
inline TypeName const kModelingConnectionRigidLink                 {true, u"Simulation.Modeling.Connection.RigidLink", -1};
inline TypeName const kModelingConnectionSpring                    {true, u"Simulation.Modeling.Connection.Spring", -1};
inline TypeName const kModelingConnectionSpringDamper              {true, u"Simulation.Modeling.Connection.SpringDamper", -1};
inline TypeName const kModelingConnectorsGroup                     {true, u"Simulation.Modeling.ConnectorsGroup", -1};
inline TypeName const kModelingConstraintApplyGroup                {true, u"Simulation.Modeling.ConstraintApplyGroup", -1};
inline TypeName const kModelingConstraintGroup                     {true, u"Simulation.Modeling.ConstraintGroup", -1};
inline TypeName const kModelingCoordSystemComp0d                   {true, u"Simulation.Modeling.CoordSystemComp0d", -1};
inline TypeName const kModelingCoordSystemComp3d                   {true, u"Simulation.Modeling.CoordSystemComp3d", -1};
inline TypeName const kModelingCoordinateSystem                    {true, u"Simulation.Modeling.CoordinateSystem", -1};
inline TypeName const kModelingCoordinateSystemGroup               {true, u"Simulation.Modeling.CoordinateSystemGroup", -1};
inline TypeName const kModelingCoordinateSystemRefGroup            {true, u"Simulation.Modeling.CoordinateSystemRefGroup", -1};
inline TypeName const kModelingCoordinateSystemUnRefGroup          {true, u"Simulation.Modeling.CoordinateSystemUnRefGroup", -1};
inline TypeName const kModelingDiscreteTieCompliant                {true, u"Simulation.Modeling.DiscreteTie.Compliant", -1};
inline TypeName const kModelingDiscreteTieCompliantAttachmentPoints{true, u"Simulation.Modeling.DiscreteTie.Compliant.AttachmentPoints", -1};
inline TypeName const kModelingDiscreteTieCompliantReferencePoint  {true, u"Simulation.Modeling.DiscreteTie.Compliant.ReferencePoint", -1};
inline TypeName const kModelingDiscreteTieCompliantSpiderLine      {true, u"Simulation.Modeling.DiscreteTie.Compliant.SpiderLine", -1};
inline TypeName const kModelingDiscreteTieRigid                    {true, u"Simulation.Modeling.DiscreteTie.Rigid", -1};
inline TypeName const kModelingDiscreteTieRigidAttachmentPoints    {true, u"Simulation.Modeling.DiscreteTie.Rigid.AttachmentPoints", -1};
inline TypeName const kModelingDiscreteTieRigidReferencePoint      {true, u"Simulation.Modeling.DiscreteTie.Rigid.ReferencePoint", -1};
inline TypeName const kModelingDiscreteTieRigidSpiderLine          {true, u"Simulation.Modeling.DiscreteTie.Rigid.SpiderLine", -1};
inline TypeName const kModelingDiscreteTieContainer                {true, u"Simulation.Modeling.DiscreteTieContainer", -1};
inline TypeName const kModelingDiscreteTieRep                      {true, u"Simulation.Modeling.DiscreteTieRep", -1};
inline TypeName const kModelingDiscreteTieAveragePoint             {true, u"Simulation.Modeling.DiscreteTie_AveragePoint", -1};
inline TypeName const kModelingDiscreteTiepRreviewReferencePoint   {true, u"Simulation.Modeling.DiscreteTiepRreview_ReferencePoint", -1};
inline TypeName const kModelingDisplacementConstraintAxial         {true, u"Simulation.Modeling.DisplacementConstraint.Axial", -1};
inline TypeName const kModelingDisplacementConstraintClamped       {true, u"Simulation.Modeling.DisplacementConstraint.Clamped", -1};
inline TypeName const kModelingDisplacementConstraintCylindrical   {true, u"Simulation.Modeling.DisplacementConstraint.Cylindrical", -1};
inline TypeName const kModelingDisplacementConstraintGeneral       {true, u"Simulation.Modeling.DisplacementConstraint.General", -1};
inline TypeName const kModelingDisplacementConstraintPinned        {true, u"Simulation.Modeling.DisplacementConstraint.Pinned", -1};
inline TypeName const kModelingDisplacementConstraintSymmetry      {true, u"Simulation.Modeling.DisplacementConstraint.Symmetry", -1};
inline TypeName const kModelingDynamicScenario                     {true, u"Simulation.Modeling.DynamicScenario", -1};
inline TypeName const kModelingEnfDisComp                          {true, u"Simulation.Modeling.EnfDisComp", -1};
inline TypeName const kModelingEnforcedDisplacement                {true, u"Simulation.Modeling.EnforcedDisplacement", -1};
inline TypeName const kModelingFCApply                             {true, u"Simulation.Modeling.FCApply", -1};
inline TypeName const kModelingFCComponent                         {true, u"Simulation.Modeling.FCComponent", -1};
inline TypeName const kModelingFEPartRep                           {true, u"Simulation.Modeling.FEPartRep", -1};
inline TypeName const kModelingFixedConstraint                     {true, u"Simulation.Modeling.FixedConstraint", -1};
inline TypeName const kModelingGeneralizedPoint                    {true, u"Simulation.Modeling.GeneralizedPoint", -1};
inline TypeName const kModelingGlueContact                         {true, u"Simulation.Modeling.GlueContact", -1};
inline TypeName const kModelingGlueGroup                           {true, u"Simulation.Modeling.GlueGroup", -1};
inline TypeName const kModelingGlueInteraction                     {true, u"Simulation.Modeling.GlueInteraction", -1};
inline TypeName const kModelingGravityLoad                         {true, u"Simulation.Modeling.GravityLoad", -1};
inline TypeName const kModelingGravityLoadGroup                    {true, u"Simulation.Modeling.GravityLoadGroup", -1};
inline TypeName const kModelingGroup                               {true, u"Simulation.Modeling.Group", -1};
inline TypeName const kModelingInteractionLayer                    {true, u"Simulation.Modeling.InteractionLayer", -1};
inline TypeName const kModelingInterfacePoint                      {true, u"Simulation.Modeling.InterfacePoint", -1};
inline TypeName const kModelingJointGroup                          {true, u"Simulation.Modeling.JointGroup", -1};
inline TypeName const kModelingLineIsoMaterial                     {true, u"Simulation.Modeling.LineIsoMaterial", -1};
inline TypeName const kModelingLoadGroup                           {true, u"Simulation.Modeling.LoadGroup", -1};
inline TypeName const kModelingManufacturingConstraint             {true, u"Simulation.Modeling.ManufacturingConstraint", -1};
inline TypeName const kModelingManufacturingConstraintContainer    {true, u"Simulation.Modeling.ManufacturingConstraintContainer", -1};
inline TypeName const kModelingMaterialGroup                       {true, u"Simulation.Modeling.MaterialGroup", -1};
inline TypeName const kModelingModelLoadEventEnforcedMotion        {true, u"Simulation.Modeling.ModelLoadEvent.Enforced.Motion", -1};
inline TypeName const kModelingModelLoadEventForceMoment           {true, u"Simulation.Modeling.ModelLoadEvent.ForceMoment", -1};
inline TypeName const kModelingModelLoadEventPressure              {true, u"Simulation.Modeling.ModelLoadEvent.Pressure", -1};
inline TypeName const kModelingModelLoadEventVariablePressure      {true, u"Simulation.Modeling.ModelLoadEvent.VariablePressure", -1};
inline TypeName const kModelingModesScenario                       {true, u"Simulation.Modeling.ModesScenario", -1};
inline TypeName const kModelingMomentLoad                          {true, u"Simulation.Modeling.MomentLoad", -1};
inline TypeName const kModelingNodeTie                             {true, u"Simulation.Modeling.NodeTie", -1};
inline TypeName const kModelingNodeTieContainer                    {true, u"Simulation.Modeling.NodeTieContainer", -1};
inline TypeName const kModelingNonDesignRegionGroup                {true, u"Simulation.Modeling.NonDesignRegionGroup", -1};
inline TypeName const kModelingNonStructuralMassContainer          {true, u"Simulation.Modeling.NonStructuralMass.Container", -1};
inline TypeName const kModelingOptimizationStudy                   {true, u"Simulation.Modeling.OptimizationStudy", -1};
inline TypeName const kModelingPointSensorGroup                    {true, u"Simulation.Modeling.PointSensorGroup", -1};
inline TypeName const kModelingRefEntity                           {true, u"Simulation.Modeling.RefEntity", -1};
inline TypeName const kModelingScenarioConstraints                 {true, u"Simulation.Modeling.ScenarioConstraints", -1};
inline TypeName const kModelingSectionViewPanelGroup               {true, u"Simulation.Modeling.SectionView.Panel.Group", -1};
inline TypeName const kModelingSeqDynamicScenario                  {true, u"Simulation.Modeling.SeqDynamicScenario", -1};
inline TypeName const kModelingShellBehaviorGroup                  {true, u"Simulation.Modeling.ShellBehaviorGroup", -1};
inline TypeName const kModelingShellBehaviorProperty               {true, u"Simulation.Modeling.ShellBehaviorProperty", -1};
inline TypeName const kModelingShellSectionGroup                   {true, u"Simulation.Modeling.ShellSectionGroup", -1};
inline TypeName const kModelingShellSectionProperty                {true, u"Simulation.Modeling.ShellSectionProperty", -1};
inline TypeName const kModelingSimSettings                         {true, u"Simulation.Modeling.SimSettings", -1};
inline TypeName const kModelingStaticScenario                      {true, u"Simulation.Modeling.StaticScenario", -1};
inline TypeName const kModelingStudy                               {true, u"Simulation.Modeling.Study", -1};
inline TypeName const kModelingToplogyDesignRegion                 {true, u"Simulation.Modeling.ToplogyDesignRegion", -1};
inline TypeName const kModelingToplogyDesignRegionGroup            {true, u"Simulation.Modeling.ToplogyDesignRegionGroup", -1};
inline TypeName const kModelingTopoOptimizationScenario            {true, u"Simulation.Modeling.TopoOptimizationScenario", -1};
// clang-format on

}  // namespace vrn::orlo::typenames
