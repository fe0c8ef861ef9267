/// \file
/// Comparison of variant values.

#pragma once

#include "platform/kfr/kfrany.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Compares values of one kind, real numbers within a tolerance.
///
/// Units      None: values with units are equal only in the same unit.
/// Failure    Values of different kinds are Different; kinds that cannot be compared are Unknown.
/// Threads    The first comparison is to be made on one thread.
class MODELING_API KFRAnyCompare {
public:
    enum CompResult : int { Equal = 0, Different = 1, Unknown = 2 };

    CompResult compare(KFRAny const& left, KFRAny const& right);
};

/// Compares the values of one kind. What cannot be taken out counts as zero or empty.
class MODELING_API ValueCompareBase {
public:
    virtual KFRAnyCompare::CompResult compare(KFRAny const& left, KFRAny const& right) = 0;

protected:
    ValueCompareBase() = default;
    ValueCompareBase(ValueCompareBase const&) = default;
    ValueCompareBase& operator=(ValueCompareBase const&) = default;
    ~ValueCompareBase() = default;
};

}  // namespace vrn::orlo::plugin::modeling
