/// \file
/// Magnitudes and phases of a sampled signal by frequency, and back.

#pragma once

#include "platform/kfr/arrayptr.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Transforms of real signals, with no padding and no window.
///
/// Units      Phases in radians. A frequency is an index over the whole length of time, in 1 over
///            the unit of the times: the step is 1 / (last - first time), which is n / (n - 1)
///            times the step of the transform's bins. Times come back the same way, from the
///            frequencies.
/// Shape      Any number of samples n from 1. The arrays of the frequency side have n entries, of
///            which the first n / 2 + 1 are the spectrum; the rest repeat the last of these.
/// Failure    False when there are no samples, and where an operation says so. A transform that
///            fails for want of memory is not told from one that does not.
/// Ownership  Results are written into the arrays given, which are resized and may be one another
///            or the inputs: the inputs are read first.
/// Threads    Any, on arrays that no other thread uses.
/// Cost       O(n log n); the first call with a length costs more.
class MODELING_API FFTHelper {
public:
    /// Transforms `values`. The magnitudes are not divided by n.
    ///
    /// Of `times` only the first and the last are read; they should be sampled evenly. With empty
    /// `times` the frequencies keep what they hold; with one time, or two equal ends, they are
    /// infinite and the first is a NaN. Without samples the magnitudes and phases become empty.
    static bool forwardFFT1(KFR::DynamicArray::ArrayPtr1<double> const& times,
                            KFR::DynamicArray::ArrayPtr1<double> const& values,
                            KFR::DynamicArray::ArrayPtr1<double>& frequencies,
                            KFR::DynamicArray::ArrayPtr1<double>& magnitudes,
                            KFR::DynamicArray::ArrayPtr1<double>& phases);

    /// Transforms back, to as many samples as there are magnitudes, and divides by their number.
    ///
    /// Of `frequencies` only the first and the last are read, of the others the first n / 2 + 1.
    /// False, with nothing written, when there are no frequencies or fewer phases than magnitudes.
    static bool inverseFFT(KFR::DynamicArray::ArrayPtr1<double> const& frequencies,
                           KFR::DynamicArray::ArrayPtr1<double> const& magnitudes,
                           KFR::DynamicArray::ArrayPtr1<double> const& phases,
                           KFR::DynamicArray::ArrayPtr1<double>& times,
                           KFR::DynamicArray::ArrayPtr1<double>& values);
};

}  // namespace vrn::orlo::plugin::modeling
