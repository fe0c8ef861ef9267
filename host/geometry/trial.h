/// \file
/// Trying out what may take the process down.

#pragma once

#include <functional>

namespace vrn::orlo::host::geometry {

/// True when the work ends, be it by an exception, and false when it crashes. The work is done in a
/// child process: nothing it does is seen here, and nothing it writes. True also when no child can
/// be made.
///
/// Threads    Call it while no other thread uses what the work uses.
/// Cost       The work itself.
[[nodiscard]] bool survives(std::function<void()> const& work);

}  // namespace vrn::orlo::host::geometry
