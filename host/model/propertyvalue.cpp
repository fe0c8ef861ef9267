#include "host/model/propertyvalue.h"

#include "platform/kfr/kfrsequence.h"

#include <algorithm>
#include <array>
#include <string>

namespace vrn::orlo::host::model {

namespace {

template <class T>
bool isSame(T const& left, T const& right) noexcept
{
    return left == right;
}
bool isSame(double left, double right) noexcept
{
    return left == right || (left != left && right != right);
}
template <class T>
bool isSame(KFRSequence<T> const& left, KFRSequence<T> const& right) noexcept
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](T a, T b) { return isSame(a, b); });
}

template <class T>
bool holdSame(KFRAny const& left, KFRAny const& right) noexcept
{
    T const* const l = left.get<T>();
    T const* const r = right.get<T>();
    return l != nullptr && r != nullptr && isSame(*l, *r);
}

/// The C++ types of the kinds, in the kinds' order after `none`.
template <class... Types>
struct KindTypes {
    static PropertyKind of(KFRAny const& value) noexcept
    {
        int number = 0;
        bool const isFound = ((++number, value.get<Types>() != nullptr) || ...);
        return isFound ? static_cast<PropertyKind>(number) : PropertyKind::none;
    }
    static bool areSame(KFRAny const& left, KFRAny const& right) noexcept
    {
        return (holdSame<Types>(left, right) || ...);
    }
};
using Kinds = KindTypes<bool, int, long long, double, std::string, icu::UnicodeString,
                        KFRSequence<int>, KFRSequence<double>>;

// In the order of the kinds.
constexpr std::array<std::string_view, 9> kKindTexts{
    "a value of a kind that no property has",
    "a truth value",
    "an integer",
    "a 64-bit integer",
    "a number",
    "a text",
    "a Unicode text",
    "a sequence of integers",
    "a sequence of numbers",
};

template <class T>
bool mergeRun(KFRAny& value)
{
    auto const* const sequence = value.get<KFRSequence<T>>();
    if (sequence == nullptr || sequence->size() < 2) {
        return false;
    }
    T const first = sequence->front();
    if (!std::all_of(sequence->begin(), sequence->end(),
                     [first](T element) { return isSame(element, first); })) {
        return false;
    }
    value <<= KFRSequence<T>{first};
    return true;
}

}  // namespace

PropertyKind propertyKindOf(KFRAny const& value) noexcept
{
    return Kinds::of(value);
}

std::string_view kindText(PropertyKind kind) noexcept
{
    return kKindTexts[static_cast<std::size_t>(kind)];
}

bool isSameValue(KFRAny const& left, KFRAny const& right) noexcept
{
    return Kinds::areSame(left, right);
}

KFRAny withRunMerged(KFRAny const& value)
{
    KFRAny merged(value);
    static_cast<void>(mergeRun<int>(merged) || mergeRun<double>(merged));
    return merged;
}

}  // namespace vrn::orlo::host::model
