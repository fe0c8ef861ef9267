/// \file
/// Keeps of many ids those that a set has. Not installed.

#pragma once

#include "platform/kfr/kfrsequence.h"

namespace vrn::orlo::plugin::modeling {

/// Those of `given` that are among `known`, in the order of `given` and as often.
///
/// Cost       Linear: a bitmap where the known ids lie close together, a hash table of 16 to 32
///            bytes per known id where they do not.
[[nodiscard]] KFRSequence<unsigned long long> keepKnown(
    KFRSequence<unsigned long long> const& given, KFRSequence<unsigned long long> const& known);

}  // namespace vrn::orlo::plugin::modeling
