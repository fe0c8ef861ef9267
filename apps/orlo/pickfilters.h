/// \file
/// Names of what can be picked.

#pragma once

#include "plugins/modelingplugin/utilities/selection/selectfiltertype.h"

#include <string>
#include <vector>

namespace vrn::orlo::app {

/// The kind of a name, in any case of letters: "Face" for FilterFace.
///
/// Failure    UsageError, with the names that there are.
[[nodiscard]] plugin::modeling::SelectFilterType filterOf(std::string const& name);

/// All names.
[[nodiscard]] std::vector<std::string> filterNames();

}  // namespace vrn::orlo::app
