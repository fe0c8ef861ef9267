/// \file
/// Plain records of points and matrices that cross the platform's borders.

#pragma once

#include "platform/kfr/kfrsequence.h"

#include <array>

/// A point or vector in double precision; the unit is its owner's.
struct KFRDouble3DPoint {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend bool operator==(KFRDouble3DPoint const&, KFRDouble3DPoint const&) = default;
};

/// A point or vector in single precision: screen positions and display data.
struct KFRFloat3DPoint {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    friend bool operator==(KFRFloat3DPoint const&, KFRFloat3DPoint const&) = default;
};

/// A 3 by 3 matrix, row-major.
struct KFRDoubleMatrix33 {
    std::array<double, 9> m{};

    friend bool operator==(KFRDoubleMatrix33 const&, KFRDoubleMatrix33 const&) = default;
};

using KFRInt64SequenceSequence = KFRSequence<KFRSequence<long long>>;
using KFRDouble3DPointSequence = KFRSequence<KFRDouble3DPoint>;
using KFRFloat3DPointSequence = KFRSequence<KFRFloat3DPoint>;
