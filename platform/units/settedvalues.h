/// \file
/// Values that a user may or may not have set.

#pragma once

#include "platform/kfr/kfrsequence.h"

namespace KFR::Util::Units {

/// A number with its unit id, and whether it was set.
struct SettedFloatValue {
    bool m_setted = false;
    unsigned short m_unit = 0;  ///< Unit id.
    double m_value = 0.0;       ///< In the unit of `m_unit`.

    friend bool operator==(SettedFloatValue const&, SettedFloatValue const&) = default;
};

/// Sample of a transfer function: place, value, slope; the units are the owner's.
struct TripleSample {
    double m_first = 0.0;
    double m_second = 0.0;
    double m_third = 0.0;

    friend bool operator==(TripleSample const&, TripleSample const&) = default;
};

/// Sample of a plain course: place, value; the units are the owner's.
struct PairSample {
    double m_first = 0.0;
    double m_second = 0.0;

    friend bool operator==(PairSample const&, PairSample const&) = default;
};

/// A value that changes over a range, in one of two forms, and whether it was set.
struct SettedDynamicValue {
    bool m_setted = false;
    KFRSequence<TripleSample> m_triples;  ///< The first form.
    KFRSequence<PairSample> m_pairs;      ///< The second form.
    bool m_isTransfer = false;            ///< The first form is in use: a transfer function.
    double m_scale = 1.0;
    KFRSequence<TripleSample> m_otherTriples;  ///< A second pair, passed on unchanged.
    KFRSequence<PairSample> m_otherPairs;

    friend bool operator==(SettedDynamicValue const&, SettedDynamicValue const&) = default;
};

}  // namespace KFR::Util::Units
