/// \file
/// Doubts about an imported model that a user should hear: sizes that point to a wrong length unit.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <string>
#include <string_view>

namespace vrn::orlo::host::geometry {

/// A length with four digits in mm, or in m from 1 m on: "84 mm", "253.6 m".
[[nodiscard]] std::string lengthText(double millimetres);

/// True when one of the words of the name is bolt, screw, nut, washer, rivet or pin, or its plural.
/// Words end at anything but a letter, and where a capital follows a small letter.
[[nodiscard]] bool namesFastener(std::string_view name);

/// Adds a line to the model's warnings for a model above 10 m or below 0.5 mm, and for fasteners
/// above 1 m.
void warnOfOddSizes(GeometryModel& model);

}  // namespace vrn::orlo::host::geometry
