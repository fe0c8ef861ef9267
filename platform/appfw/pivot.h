/// \file
/// Application frame: values of the pivot view.

#pragma once

namespace vrn::orlo::appfw {

/// A cell of the pivot view.
struct PivotValue {
    int m_first = 0;
    int m_second = 0;
};

}  // namespace vrn::orlo::appfw
