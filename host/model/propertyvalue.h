/// \file
/// The values that properties of entities have.

#pragma once

#include "platform/kfr/kfrany.h"

#include <string_view>

namespace vrn::orlo::host::model {

/// Kinds of property values. A value of any other kind, and the empty one, has `none`.
enum class PropertyKind {
    none,
    boolean,      ///< bool
    integer,      ///< int
    integer64,    ///< long long
    number,       ///< double
    text,         ///< std::string
    unicodeText,  ///< UnicodeString
    integers,     ///< KFRSequence<int>
    numbers,      ///< KFRSequence<double>
};

[[nodiscard]] PropertyKind propertyKindOf(KFRAny const& value) noexcept;

/// "a text", "a sequence of integers": the kind in a message.
[[nodiscard]] std::string_view kindText(PropertyKind kind) noexcept;

/// True for equal values of one kind that properties may have. Numbers are compared exactly; a NaN
/// equals a NaN.
[[nodiscard]] bool isSameValue(KFRAny const& left, KFRAny const& right) noexcept;

/// One element for a sequence whose elements are all equal; every other value as it is.
[[nodiscard]] KFRAny withRunMerged(KFRAny const& value);

}  // namespace vrn::orlo::host::model
