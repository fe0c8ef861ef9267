#include "platform/kfr/kfrany.h"

#include "platform/caedata/entityreference.h"
#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrrecords.h"
#include "tests/platform/testobjects.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>

namespace KFR {
namespace {

using test::AlarmClock;
using test::IClockInterface;
using test::IRadioInterface;
using test::ITickerInterface;
using Util::Units::FloatValue;

static_assert(std::is_nothrow_move_constructible_v<KFRAny>);

template <class T>
concept CanBePut = requires(KFRAny any, T value)
{
    any <<= value;
};

enum class Colour { red };
static_assert(!CanBePut<int*> && !CanBePut<Colour> && !CanBePut<std::nullptr_t>);
static_assert(!CanBePut<signed char> && !CanBePut<char16_t> && !CanBePut<long double>);
static_assert(CanBePut<char const*> && CanBePut<NullServicePointer> && CanBePut<FloatValue>);

// --- kinds -------------------------------------------------------------------------------------

/// One kind: its number, a value, and another value to tell an untouched target by.
template <class T>
struct Sample {
    char const* m_name;
    int m_kind;
    T m_value;
    T m_other;
};

/// A record that is too large to be kept in place.
struct LargeRecord {
    std::array<double, 12> m_values{};
    std::string m_name;
    friend bool operator==(LargeRecord const&, LargeRecord const&) = default;
};

auto samples()
{
    KFRIService const noon(make<AlarmClock>(12));
    KFRIService const one(make<AlarmClock>(1));
    std::string const longText(100, 'x');
    // clang-format off
    return std::tuple{
        Sample<char>{"char", 1, 'a', 'b'},
        Sample<unsigned char>{"unsigned char", 2, 200, 1},
        Sample<short>{"short", 3, -3, 4},
        Sample<unsigned short>{"unsigned short", 4, 65535, 4},
        Sample<int>{"int", 5, -70000, 4},
        Sample<unsigned int>{"unsigned int", 6, 4000000000U, 4},
        Sample<long long>{"long long", 7, -5000000000LL, 4},
        Sample<unsigned long long>{"unsigned long long", 8, ~0ULL, 4},
        Sample<float>{"float", 9, 1.5F, 4.0F},
        Sample<double>{"double", 10, 1e300, 4.0},
        Sample<std::string>{"string", 12, longText, "b"},
        Sample<wchar_t>{"wchar_t", 13, L'a', L'b'},
        Sample<std::wstring>{"wstring", 14, L"wide", L"b"},
        Sample<bool>{"bool", 15, true, false},
        Sample<KFRTypeCode>{"type code", 17, IClockInterface::kfrTypeCode(), ITickerInterface::kfrTypeCode()},
        Sample<KFRIService>{"service", 18, noon, one},
        Sample<KFRSequence<int>>{"sequence of int", 19, {1, 2}, {3}},
        Sample<KFRSequence<double>>{"sequence of double", 19, {1.0, 2.0}, {3.0}},
        Sample<KFRUChar>{"text byte", 21, {7}, {8}},
        Sample<icu::UnicodeString>{"unicode", 22, u"Größe", u"b"},
        Sample<FloatValue>{"value with unit", 27, {3, 1, 2, 0.5}, {}},
        Sample<KFRDouble3DPoint>{"point", 27, {1.0, 2.0, 3.0}, {}},
        Sample<CAE::EntityReference>{"entity reference", 27, {noon, 1, 2, 3}, {}},
        Sample<LargeRecord>{"large record", 27, {{1.0, 2.0}, longText}, {}},
    };
    // clang-format on
}

/// Calls `action` with every sample.
template <class Action>
void forEachSample(Action const& action)
{
    std::apply([&](auto const&... sample) { (action(sample), ...); }, samples());
}

TEST(KFRAny, LeavesATargetOfAnotherKindUntouchedAndIsOverwrittenByEveryKind)
{
    // Each value in turn over each other one: in place over heap, plain over counted and back.
    forEachSample([](auto const& first) {
        forEachSample([&](auto const& second) {
            SCOPED_TRACE(std::string(second.m_name) + " over " + first.m_name);
            KFRAny any(first.m_value);
            auto out = second.m_value;
            if constexpr (!std::is_same_v<decltype(first), decltype(second)>) {
                EXPECT_FALSE(any >>= out);
                EXPECT_TRUE(out == second.m_value);
            }
            any <<= second.m_value;
            out = second.m_other;
            EXPECT_TRUE(any >>= out);
            EXPECT_TRUE(out == second.m_value);
        });
    });
    EXPECT_EQ(AlarmClock::living(), 0);
}

TEST(KFRAny, IsCopiedMovedAndAssignedWithItsValueAndKnowsItsNumber)
{
    forEachSample([](auto const& sample) {
        SCOPED_TRACE(sample.m_name);
        KFRAny any(sample.m_value);
        auto const holdsValue = [&](KFRAny const& one) {
            auto out = sample.m_other;
            return (one >>= out) && out == sample.m_value && !(out == sample.m_other);
        };
        EXPECT_EQ(any.getTypeID(), sample.m_kind);
        EXPECT_FALSE(any.isEmpty());
        KFRAny copy(any);
        EXPECT_TRUE(holdsValue(copy) && holdsValue(any));
        KFRAny const moved(std::move(copy));
        EXPECT_TRUE(holdsValue(moved));
        EXPECT_TRUE(copy.isEmpty());  // NOLINT: what it is now is the question
        EXPECT_EQ(copy.getTypeID(), 0);
        copy = any;
        EXPECT_TRUE(holdsValue(copy) && holdsValue(any));
        KFRAny& same = any;
        any = same;
        EXPECT_TRUE(holdsValue(any));
        any = std::move(same);
        EXPECT_TRUE(holdsValue(any));
        any.clear();
        EXPECT_FALSE(holdsValue(any));
        EXPECT_TRUE(holdsValue(copy));
    });
    EXPECT_EQ(AlarmClock::living(), 0);
}

TEST(KFRAny, KeepsLongAsThe64BitIntegerAndLiteralsAsStrings)
{
    KFRAny any;
    any <<= -5L;
    EXPECT_EQ(any.getTypeID(), 7);
    long number = 0;
    EXPECT_TRUE(any >>= number);
    EXPECT_EQ(number, -5L);

    any <<= 5UL;
    EXPECT_EQ(any.getTypeID(), 8);
    EXPECT_FALSE(any >>= number);

    any <<= "text";
    EXPECT_EQ(any.getTypeID(), 12);
    std::string text;
    EXPECT_TRUE(any >>= text);
    EXPECT_EQ(text, "text");

    any <<= KFRResult(7, 3, 4);
    EXPECT_EQ(any.getTypeID(), 20);
    KFRResult result;
    EXPECT_TRUE(any >>= result);
    EXPECT_EQ(result.getCode(), 7);
    EXPECT_EQ(result.getDomain(), 3);
}

// --- handles -----------------------------------------------------------------------------------

TEST(KFRAny, GivesAHandleOutThroughEveryInterfaceOfItsObjectAndANullOneAsNull)
{
    auto const clock = make<AlarmClock>(2);
    KFRAny any;
    any <<= KFRSmartPointer<ITickerInterface>(KFRIService(clock));
    EXPECT_EQ(any.getTypeID(), 18);

    KFRSmartPointer<IClockInterface> view;
    EXPECT_TRUE(any >>= view);
    ASSERT_TRUE(view);
    EXPECT_EQ(view->hour(), 2);

    KFRSmartPointer<IRadioInterface> radio;
    EXPECT_FALSE(any >>= radio);
    EXPECT_EQ(clock->referenceCount(), 3);  // clock, the any, view

    any <<= NULLSP;
    EXPECT_EQ(any.getTypeID(), 18);
    EXPECT_TRUE(any >>= view);
    EXPECT_TRUE(view == NULLSP);
    view = clock;
    EXPECT_FALSE(KFRAny() >>= view);  // of nothing it gives nothing
    EXPECT_TRUE(view);
}

// --- values inside each other, values that fail --------------------------------------------------

TEST(KFRAny, TakesAValueOutOfItself)
{
    KFRAny any(KFRSequence<KFRAny>{KFRAny("first"), KFRAny(KFRDouble3DPoint{1.0, 2.0, 3.0})});
    KFRAny moved(any);
    auto* const inner = const_cast<KFRAny*>(moved.get<KFRSequence<KFRAny>>()->begin());
    any.clear();  // now the sequence is moved's alone

    moved = std::move(inner[1]);
    ASSERT_NE(moved.get<KFRDouble3DPoint>(), nullptr);
    moved <<= *moved.get<KFRDouble3DPoint>();
    EXPECT_EQ(moved.get<KFRDouble3DPoint>()->z, 3.0);
    moved <<= moved.get<KFRDouble3DPoint>()->y;
    EXPECT_EQ(*moved.get<double>(), 2.0);

    KFRAny copied(KFRSequence<KFRAny>{KFRAny(std::string(50, 'x'))});
    copied = copied.get<KFRSequence<KFRAny>>()->front();
    ASSERT_NE(copied.get<std::string>(), nullptr);
    copied <<= *copied.get<std::string>();
    EXPECT_EQ(*copied.get<std::string>(), std::string(50, 'x'));

    KFRSequence<KFRAny> parts{KFRAny(1)};
    KFRAny whole(parts);
    parts.append(whole);
    whole <<= parts;
    EXPECT_EQ(whole.get<KFRSequence<KFRAny>>()->size(), 2U);
}

struct Uncopyable {
    Uncopyable() = default;
    Uncopyable(Uncopyable const&) { throw std::runtime_error("not to be copied"); }
    Uncopyable& operator=(Uncopyable const&) = default;
};

TEST(KFRAny, IsAsItWasWhenTheCopyOfAValueThrows)
{
    Uncopyable const value;
    for (KFRAny any : {KFRAny(), KFRAny(5), KFRAny("text")}) {
        int const kind = any.getTypeID();
        EXPECT_THROW(any <<= value, std::runtime_error);
        EXPECT_EQ(any.getTypeID(), kind);
    }
}

/// Clears the any that holds it when it goes.
struct ClearsItsHolder {
    std::shared_ptr<int> m_ends = std::make_shared<int>(0);
    KFRAny* m_holder = nullptr;
    ~ClearsItsHolder()
    {
        if (m_holder != nullptr) {
            m_holder->clear();
            ++*m_ends;
        }
    }
};

TEST(KFRAny, ValueWhoseEndLeadsBackIsDestroyedOnce)
{
    KFRAny any;
    ClearsItsHolder value;
    auto const ends = value.m_ends;
    any <<= value;
    const_cast<ClearsItsHolder*>(any.get<ClearsItsHolder>())->m_holder = &any;
    any.clear();
    EXPECT_EQ(*ends, 1);
    EXPECT_TRUE(any.isEmpty());
}

}  // namespace
}  // namespace KFR
