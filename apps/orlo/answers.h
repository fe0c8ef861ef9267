/// \file
/// What the library says of a reference.

#pragma once

#include "platform/caedata/entityreference.h"

#include <string_view>
#include <vector>

namespace vrn::orlo::app {

/// Names of the predicates of SelectFilter that are true of the reference, in the library's own
/// order. A predicate that only takes a type id is asked about the reference's.
[[nodiscard]] std::vector<std::string_view> answersFor(CAE::EntityReference const& reference);

}  // namespace vrn::orlo::app
