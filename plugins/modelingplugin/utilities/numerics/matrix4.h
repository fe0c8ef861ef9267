/// \file
/// The plug-in layer's 4 by 4 matrix.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/numerics/xmatrix4x4.h"

namespace vrn::orlo::plugin::modeling {

/// An XMatrix4X4 that comes from and goes to the framework's sequences and records.
///
/// Shape      Sixteen doubles, row-major; nothing added to the base.
/// Cost       No allocation but in the forms with a sequence.
class MODELING_API Matrix4 : public XMatrix4X4 {
public:
    constexpr Matrix4() = default;
    constexpr Matrix4(XMatrix4X4 const& matrix) : XMatrix4X4(matrix) {}  // NOLINT: the same matrix
    explicit constexpr Matrix4(double const* values) : XMatrix4X4(values) {}

    /// The identity, with at most sixteen elements written over it in order.
    explicit Matrix4(KFRSequence<float> const& values);
    explicit Matrix4(KFRSequence<double> const& values);

    /// this * other: the other acts first.
    [[nodiscard]] Matrix4 product(Matrix4 const& other) const { return XMatrix4X4::product(other); }

    /// Makes the sequence sixteen elements long and fills it. Always true.
    bool sequence(KFRSequence<float>& values) const;
    bool sequence(KFRSequence<double>& values) const;

    /// The block in the upper left, and a 1 in the corner.
    [[nodiscard]] static Matrix4 fromMatrix3x3(KFRDoubleMatrix33 const& block);
};

static_assert(sizeof(Matrix4) == sizeof(XMatrix4X4));

}  // namespace vrn::orlo::plugin::modeling
