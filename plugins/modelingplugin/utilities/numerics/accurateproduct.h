/// \file
/// A cross product for normals of elements.

#pragma once

#include "platform/kfr/kfrrecords.h"

namespace vrn::orlo::plugin::modeling {

/// a x b, as it is: no tolerance takes short vectors for nothing, and the length is kept. Elements
/// of micrometres in a model in metres have products of 1e-12.
[[nodiscard]] constexpr KFRDouble3DPoint crossProductAccurate(KFRDouble3DPoint const& a,
                                                              KFRDouble3DPoint const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

}  // namespace vrn::orlo::plugin::modeling
