#include "plugins/modelingplugin/utilities/identity/kfranycompare.h"

#include "platform/deps/btree.h"
#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrrecords.h"

#include <cmath>

namespace vrn::orlo::plugin::modeling {

using CompResult = KFRAnyCompare::CompResult;
using KFR::Util::Units::FloatValue;

namespace {

/// Absolute, and strict: a difference of this size is one.
constexpr double kFloatTolerance = 5e-5;
/// Absolute. So small that it asks values of ordinary size to be the same, which is meant.
constexpr double kDoubleTolerance = 1e-18;

CompResult resultOf(bool equal)
{
    return equal ? KFRAnyCompare::Equal : KFRAnyCompare::Different;
}

// By the order of the comparison a NaN is near nothing.
bool isNear(float left, float right)
{
    auto const difference = static_cast<float>(std::fabs(static_cast<double>(left - right)));
    return static_cast<double>(difference) < kFloatTolerance;
}

bool isNear(double left, double right)
{
    return std::fabs(left - right) < kDoubleTolerance;
}

struct KFROtherTypes {};
struct KFRStruct {};

template <class T>
struct Extracted {
    T m_left{};
    T m_right{};

    Extracted(KFRAny const& left, KFRAny const& right)
    {
        static_cast<void>(left >>= m_left);
        static_cast<void>(right >>= m_right);
    }
};

/// Exact, for integers, characters, truth values and texts.
template <class T>
class ValueCompare final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<T> const values(left, right);
        return resultOf(values.m_left == values.m_right);
    }
};

template <>
class ValueCompare<float> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<float> const values(left, right);
        return resultOf(isNear(values.m_left, values.m_right));
    }
};

template <>
class ValueCompare<double> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<double> const values(left, right);
        return resultOf(isNear(values.m_left, values.m_right));
    }
};

/// Two null codes are equal; a null one equals another that calls itself null.
template <>
class ValueCompare<KFRTypeCode> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<KFRTypeCode> const values(left, right);
        if (values.m_left.record() == nullptr) {
            return resultOf(values.m_right.isNull());
        }
        return resultOf(values.m_left == values.m_right);
    }
};

/// The code alone counts.
template <>
class ValueCompare<KFRResult> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<KFRResult> const values(left, right);
        return resultOf(values.m_left.getCode() == values.m_right.getCode());
    }
};

template <>
class ValueCompare<FloatValue> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<FloatValue> const values(left, right);
        FloatValue const& a = values.m_left;
        FloatValue const& b = values.m_right;
        return resultOf(isNear(a.m_value, b.m_value) && a.m_unit == b.m_unit &&
                        a.m_first == b.m_first && a.m_second == b.m_second);
    }
};

template <>
class ValueCompare<KFRDouble3DPoint> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        Extracted<KFRDouble3DPoint> const values(left, right);
        KFRDouble3DPoint const& a = values.m_left;
        KFRDouble3DPoint const& b = values.m_right;
        return resultOf(isNear(a.x, b.x) && isNear(a.y, b.y) && isNear(a.z, b.z));
    }
};

template <>
class ValueCompare<KFROtherTypes> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const&, KFRAny const&) override { return KFRAnyCompare::Unknown; }
};

/// The left value says what record it is.
template <>
class ValueCompare<KFRStruct> final : public ValueCompareBase {
public:
    CompResult compare(KFRAny const& left, KFRAny const& right) override
    {
        if (left.get<FloatValue>() != nullptr) {
            return ValueCompare<FloatValue>().compare(left, right);
        }
        if (left.get<KFRDouble3DPoint>() != nullptr) {
            return ValueCompare<KFRDouble3DPoint>().compare(left, right);
        }
        return KFRAnyCompare::Unknown;
    }
};

template <class T>
ValueCompareBase* comparer()
{
    static ValueCompare<T> one;
    return &one;
}

using Table = btree::btree_map<int, ValueCompareBase*>;

/// By kind number. 0, 11 and 16 have no entry.
Table makeTable()
{
    Table table{
        {1, comparer<char>()},          {2, comparer<unsigned char>()},
        {3, comparer<short>()},         {4, comparer<unsigned short>()},
        {5, comparer<int>()},           {6, comparer<unsigned int>()},
        {7, comparer<long long>()},     {8, comparer<unsigned long long>()},
        {9, comparer<float>()},         {10, comparer<double>()},
        {12, comparer<std::string>()},  {13, comparer<wchar_t>()},
        {14, comparer<std::wstring>()}, {15, comparer<bool>()},
        {17, comparer<KFRTypeCode>()},  {20, comparer<KFRResult>()},
        {21, comparer<KFRUChar>()},     {22, comparer<icu::UnicodeString>()},
        {27, comparer<KFRStruct>()},
    };
    for (int const kind : {18, 19, 23, 24, 25, 26, 28, 29, 30, 31, 32, 33, 34}) {
        table[kind] = comparer<KFROtherTypes>();
    }
    return table;
}

}  // namespace

CompResult KFRAnyCompare::compare(KFRAny const& left, KFRAny const& right)
{
    static Table const table = makeTable();
    if (left.getTypeID() != right.getTypeID()) {
        return Different;
    }
    auto const row = table.find(left.getTypeID());
    return row != table.end() ? row->second->compare(left, right) : Unknown;
}

}  // namespace vrn::orlo::plugin::modeling
