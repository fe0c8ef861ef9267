/// \file
/// The ranges that forms check their values against.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/floatvaluerange.h"

namespace vrn::orlo::plugin::modeling {

/// Ranges of physical values, by what they are values of.
///
/// Units      The bounds' own, as the table in valueranges.cpp has them.
class MODELING_API ValueRanges {
public:
#define VALUE_RANGE(name) static FloatValueRange name();
#include "plugins/modelingplugin/utilities/numerics/valueranges.def"
};

}  // namespace vrn::orlo::plugin::modeling
