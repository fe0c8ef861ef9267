/// \file
/// The parts of the bracket example: dimensions and shapes, each in its own coordinates.

#pragma once

#include <gp_Trsf.hxx>
#include <TopoDS_Shape.hxx>

#include <array>
#include <stdexcept>
#include <string>

namespace vrn::orlo::examples::bracket {

/// A shape that the kernel could not build, or that it built wrongly. what() is one line.
class ShapeError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The dimensions in mm. Assembly axes: x along the bend, y from the foot's front edge to the wall,
// z up from the underside of the base plate; x = y = 0 is the middle of the base plate.
// clang-format off
namespace size {
// base plate
inline constexpr double kBaseLength       = 160.0;  // in x
inline constexpr double kBaseWidth        = 100.0;  // in y
inline constexpr double kBaseThickness    =  12.0;
inline constexpr double kBaseCornerRadius =  12.0;  // of the outline

// l-bracket, bent from one plate
inline constexpr double kBracketLength    = 110.0;  // in x, along the bend
inline constexpr double kBracketThickness =   8.0;  // of foot and wall
inline constexpr double kBracketFront     = -42.0;  // y of the foot's front edge
inline constexpr double kBracketBack      =  38.0;  // y of the wall's outer face
inline constexpr double kBracketHeight    =  90.0;  // from the foot's underside to the wall's top
inline constexpr double kBendInnerRadius  =   8.0;  // the outer one is larger by the thickness

// holes: the same pattern in the foot and in the base plate
inline constexpr double kHoleX            =  38.0;  // left and right of the middle
inline constexpr double kHoleFrontY       = -28.0;
inline constexpr double kHoleBackY        =   8.0;
inline constexpr double kBoltClearance    =   0.0;  // hole diameter less shank diameter: in touch
inline constexpr double kShankDiameter    =  10.0;
inline constexpr double kHoleDiameter     = kShankDiameter + kBoltClearance;

// bolt: hexagon head, plain shank
inline constexpr double kHeadAcrossFlats  =  16.0;
inline constexpr double kHeadHeight       =   6.4;
inline constexpr double kShankLength      =  25.0;  // 20 in the plates, 5 below the base plate
inline constexpr double kShankTipChamfer  =   1.0;

// stiffener: a sheet, so without thickness, in the middle plane x = 0
inline constexpr double kRibFootLength    =  60.0;  // from the wall's inner face to the toe
inline constexpr double kRibHeight        =  60.0;  // above the foot's top face
inline constexpr double kRibCornerCut     =  12.0;  // keeps the sheet clear of the bend
}  // namespace size
// clang-format on

static_assert(size::kRibCornerCut >= size::kBendInnerRadius, "the rib would cut the bend");

/// Where a bolt stands: its axis, and how far its head is turned about it.
struct BoltPlace {
    double m_x;              ///< mm
    double m_y;              ///< mm
    double m_turnInDegrees;  ///< Counter-clockwise, seen from above the head.
};

inline constexpr std::array kBoltPlaces{
    BoltPlace{-size::kHoleX, size::kHoleFrontY, 0.0},
    BoltPlace{size::kHoleX, size::kHoleFrontY, 15.0},
    BoltPlace{size::kHoleX, size::kHoleBackY, 30.0},
    BoltPlace{-size::kHoleX, size::kHoleBackY, 45.0},
};

/// A solid; origin in the middle of the top face, x and y those of the assembly. ShapeError when
/// the kernel fails; so with the parts below.
[[nodiscard]] TopoDS_Shape makeBasePlate();

/// A solid; origin on the foot's underside, x and y those of the assembly.
[[nodiscard]] TopoDS_Shape makeBracket();

/// A solid; origin in the bearing plane of the head, head above, shank below.
[[nodiscard]] TopoDS_Shape makeBolt();

/// A shell of one face in its xy plane; x along the foot, y up the wall, origin where the two meet.
[[nodiscard]] TopoDS_Shape makeStiffener();

/// Where the parts stand in the assembly: base plate and bracket meet in the plate's top plane.
[[nodiscard]] gp_Trsf plateTopPlacement();
[[nodiscard]] gp_Trsf boltPlacement(BoltPlace const& place);
[[nodiscard]] gp_Trsf stiffenerPlacement();

/// Throws ShapeError with the name when the kernel's checker finds a fault in the shape.
void checkShape(TopoDS_Shape const& shape, std::string const& name);

}  // namespace vrn::orlo::examples::bracket
