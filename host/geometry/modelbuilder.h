/// \file
/// Fills a GeometryModel: numbers the entities of a part, and sums over the tree at the end.

#pragma once

#include "host/geometry/shapestore.h"

#include <string>
#include <vector>

namespace vrn::orlo::host::geometry {

/// Adds a part with its entities and measures; gives its index. The name must not be empty.
unsigned addPart(GeometryModel& model, std::string name, TopoDS_Shape const& shape,
                 std::vector<BodyShape> const& bodies);

/// Counts instances, totals, box and volume, from the roots and parts that the model has by then.
void sumOverInstances(GeometryModel& model);

}  // namespace vrn::orlo::host::geometry
