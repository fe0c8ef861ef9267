/// \file
/// Keys of the modeling plug-in's settings.

#pragma once

namespace vrn::orlo::plugin::modeling::settingkeys {

inline constexpr char16_t const* kDefaultScenarioType =
    u"ModelingPlugin.StudyManagerSettings.DefaultScenarioType";
inline constexpr char16_t const* kScratchDirectory =
    u"ModelingPlugin.SolverSettings.ScratchDirectory";
inline constexpr char16_t const* kMemory = u"ModelingPlugin.MemorySetting.Memory";
inline constexpr char16_t const* kMatrixConditionMaximum =
    u"ModelingPlugin.MatrixCondition.Maximum";
inline constexpr char16_t const* kShellIsAutoAssign = u"ModelingPlugin.ShellBehavior.IsAutoAssign";
inline constexpr char16_t const* kGravityAutoCreate = u"ModelingPlugin.GravitySettings.AutoCreate";
inline constexpr char16_t const* kGravityUnit = u"ModelingPlugin.GravitySettings.Unit";
inline constexpr char16_t const* kGravityDirection = u"ModelingPlugin.GravitySettings.Direction";
inline constexpr char16_t const* kGravityMagnitude = u"ModelingPlugin.GravitySettings.Magnitude";
inline constexpr char16_t const* kGravityAcceleration =
    u"ModelingPlugin.GravitySettings.Acceleration";
inline constexpr char16_t const* kGravityConstant = u"ModelingPlugin.GravitySettings.Constant";
inline constexpr char16_t const* kGravityVector = u"ModelingPlugin.GravitySettings.Vector";
inline constexpr char16_t const* kImportThresholdNumber =
    u"ModelingPlugin.ImportExportSettings.ImportThresholdNumber";
inline constexpr char16_t const* kSelectedBaseUnitSystem =
    u"ModelingPlugin.ImportExportSettings.SelectedBaseUnitSystem";
inline constexpr char16_t const* kOverRideUnitsAlternatives =
    u"ModelingPlugin.ImportExportSettings.OverRideUnitsAlternatives";
inline constexpr char16_t const* kSelectedMassAsWeightOption =
    u"ModelingPlugin.ImportExportSettings.SelectedMassAsWeightOption";
inline constexpr char16_t const* kScaleWTMASS = u"ModelingPlugin.ImportExportSettings.ScaleWTMASS";
inline constexpr char16_t const* kExportOrganization =
    u"ModelingPlugin.ImportExportSettings.ExportOrganization";
inline constexpr char16_t const* kJointAxisElementType =
    u"ModelingPlugin.ImportExportSettings.JointAxisElementType";

}  // namespace vrn::orlo::plugin::modeling::settingkeys
