/// \file
/// Counter of run-time entity numbers.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Hands out entity numbers: 1, 2, 3, ...
///
/// Threads    Main thread, no lock.
class MODELING_API EntityIDSet {
public:
    static EntityIDSet& instance();

    /// The stored number, which then grows by one.
    unsigned int nextID();
    /// The next number is 1 again.
    void reset();

private:
    EntityIDSet() = default;

    unsigned int m_next = 1;
};

}  // namespace vrn::orlo::plugin::modeling
