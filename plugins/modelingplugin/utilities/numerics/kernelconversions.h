/// \file
/// Between the framework's point records and the X3DS family.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "plugins/modelingplugin/utilities/numerics/x3dspoint.h"
#include "plugins/modelingplugin/utilities/numerics/x3dvector.h"

namespace vrn::orlo::plugin::modeling {

[[nodiscard]] constexpr X3DSPoint toPoint(KFRDouble3DPoint const& p)
{
    return {p.x, p.y, p.z};
}

[[nodiscard]] constexpr X3DVector toVector(KFRDouble3DPoint const& p)
{
    return {p.x, p.y, p.z};
}

[[nodiscard]] constexpr KFRDouble3DPoint toRecord(X3DSPoint const& p)
{
    return {p.x, p.y, p.z};
}

[[nodiscard]] constexpr KFRDouble3DPoint toRecord(X3DVector const& v)
{
    return {v.x, v.y, v.z};
}

/// Each coordinate in double precision.
[[nodiscard]] constexpr KFRDouble3DPoint widened(KFRFloat3DPoint const& p)
{
    return {static_cast<double>(p.x), static_cast<double>(p.y), static_cast<double>(p.z)};
}

}  // namespace vrn::orlo::plugin::modeling
