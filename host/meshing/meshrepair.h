/// \file
/// Checks that elements are not inside out, and mends those whose curved sides make them so.

#pragma once

#include "host/meshing/bodymesh.h"

#include <cstddef>

namespace vrn::orlo::host::meshing {

/// Moves the middle nodes of elements of second order onto the straight sides where the Jacobian
/// determinant, sampled on a lattice, falls below a tenth of that of the straight element. All
/// tetrahedra of a solid body, all triangles of one without tetrahedra; lines are let alone.
///
/// \return how many elements were straightened
/// Failure    MesherError for an element that has no volume or area even with straight sides; so
///            also for elements of first order.
/// Cost       Linear in the elements, once more after each pass that moved something.
std::size_t straightenInverted(BodyMesh& mesh);

/// Turns all triangles round if what they enclose counts as negative. For the shells of a closed
/// body without tetrahedra: mirrored solids and ones that are inside out have them inwards.
void turnOutwards(BodyMesh& mesh);

}  // namespace vrn::orlo::host::meshing
