#include "platform/kfr/kfrsmartpointer.h"

#include "tests/platform/testobjects.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace KFR {
namespace {

using test::AlarmClock;
using test::IAlarmInterface;
using test::IClockInterface;
using test::IRadioInterface;
using test::ITickerInterface;
using test::Refuser;

// --- counting ----------------------------------------------------------------------------------

/// Every test ends with its object gone, and no other made.
class Handles : public ::testing::Test {
protected:
    ~Handles() override { EXPECT_EQ(AlarmClock::living(), 0); }
};

template <class Handle>
void expectExactCounts()
{
    auto const clock = make<AlarmClock>();
    Handle copy(clock);
    EXPECT_EQ(clock->referenceCount(), 2);
    Handle moved(std::move(copy));
    EXPECT_EQ(clock->referenceCount(), 2);
    EXPECT_TRUE(copy == NULLSP);  // NOLINT: what it is now is the question
    copy = moved;
    EXPECT_EQ(clock->referenceCount(), 3);
    copy = std::move(moved);
    EXPECT_EQ(clock->referenceCount(), 2);
    auto& same = copy;
    copy = same;
    copy = std::move(same);
    EXPECT_EQ(clock->referenceCount(), 2);
    ASSERT_TRUE(copy);
    moved = copy;
    moved = {};
    EXPECT_EQ(clock->referenceCount(), 2);
    copy.release();
    copy.release();
    EXPECT_EQ(clock->referenceCount(), 1);
}

TEST_F(Handles, CountExactlyOverCopyMoveAndAssignment)
{
    expectExactCounts<KFRSmartPointer<AlarmClock>>();
    expectExactCounts<KFRIService>();
}

TEST_F(Handles, SwapTheirObjectsAndTheirTypes)
{
    auto const noon = make<AlarmClock>(12);
    KFRIService first = loose_cast<ITickerInterface>(noon);
    KFRIService second;
    first.swap(second);
    EXPECT_TRUE(first == NULLSP);
    EXPECT_TRUE(first.typeCode().isNull());
    EXPECT_EQ(second.typeCode(), ITickerInterface::kfrTypeCode());
    EXPECT_EQ(noon->referenceCount(), 2);
}

TEST_F(Handles, AdoptTakesTheMakersReferenceAndTheOtherFormAddsOne)
{
    auto* const raw = new AlarmClock;
    KFRSmartPointer<IAlarmInterface> const adopted(raw, kAdopt);
    EXPECT_EQ(raw->referenceCount(), 1);
    KFRSmartPointer<IAlarmInterface> const added(raw);
    EXPECT_EQ(raw->referenceCount(), 2);
}

TEST_F(Handles, ReleaseReferenceNullsTheHolderBeforeTheObjectGoes)
{
    auto* raw = new AlarmClock;
    void* holder = raw;
    raw->addReference();
    raw->releaseReference(&holder);
    EXPECT_EQ(holder, nullptr);
    EXPECT_EQ(AlarmClock::living(), 1);
    holder = raw;
    raw->releaseReference(&holder);
    EXPECT_EQ(holder, nullptr);
    EXPECT_EQ(AlarmClock::living(), 0);
}

TEST_F(Handles, AreEqualByObjectWhateverTheInterface)
{
    auto const clock = make<AlarmClock>();
    KFRIService const service(clock);
    KFRSmartPointer<ITickerInterface> const ticker(service);
    KFRSmartPointer<IAlarmInterface> const alarm(service);
    EXPECT_NE(rootOf(ticker.get()),
              rootOf(alarm.get()));  // two sub-objects, so the address is no help
    EXPECT_TRUE(ticker == alarm);
    EXPECT_TRUE(ticker == service);
    EXPECT_TRUE(service == clock);
    EXPECT_TRUE(KFRIService(ticker) == KFRIService(alarm));

    auto const other = make<AlarmClock>();
    EXPECT_FALSE(clock == other);
    EXPECT_FALSE(ticker == KFRIService(other));
    EXPECT_FALSE(ticker == NULLSP);
    EXPECT_FALSE(service == KFRIService());
    EXPECT_TRUE(KFRIService() == KFRSmartPointer<ITickerInterface>());
}

// --- casts -------------------------------------------------------------------------------------

TEST_F(Handles, CastToEveryInterfaceOfTheObject)
{
    KFRIService const service(make<AlarmClock>(7));
    EXPECT_EQ(KFRSmartPointer<IAlarmInterface>(service)->alarmHour(), 8);
    EXPECT_EQ(KFRSmartPointer<ITickerInterface>(service)->ticks(), 25200);
    EXPECT_EQ(strict_cast<IClockInterface>(service)->hour(), 7);  // the one that is extended
    auto const ticker = loose_cast<ITickerInterface>(service);
    EXPECT_EQ(KFRSmartPointer<IClockInterface>(ticker)->hour(), 7);  // from interface to interface
    EXPECT_EQ(loose_cast<IAlarmInterface>(ticker)->alarmHour(), 8);
    EXPECT_EQ(ticker.typeCode(), ITickerInterface::kfrTypeCode());
}

TEST_F(Handles, CastOfNullIsNullAndToWhatTheObjectLacksCountsNothing)
{
    EXPECT_TRUE(KFRSmartPointer<IClockInterface>(KFRIService()) == NULLSP);
    EXPECT_TRUE(KFRSmartPointer<IClockInterface>(KFRSmartPointer<ITickerInterface>()) == NULLSP);
    EXPECT_TRUE(loose_cast<IClockInterface>(KFRIService()) == NULLSP);
    EXPECT_TRUE(KFRSmartPointer<IClockInterface>(KFRIService()).typeCode().isNull());
    auto const clock = make<AlarmClock>();
    KFRIService const service(clock);
    EXPECT_TRUE(loose_cast<IRadioInterface>(service) == NULLSP);
    EXPECT_TRUE(loose_cast<IRadioInterface>(clock) == NULLSP);
    EXPECT_TRUE(loose_cast<IRadioInterface>(service).typeCode().isNull());
    EXPECT_THROW(KFRSmartPointer<IRadioInterface>{clock}, KFRSystemException);
    EXPECT_EQ(clock->referenceCount(), 2);
}

TEST_F(Handles, OfADerivedInterfaceConvertWithoutAQuery)
{
    auto const clock = make<AlarmClock>(3);
    KFRSmartPointer<IClockInterface> const base = clock;
    EXPECT_EQ(base->hour(), 3);
    EXPECT_EQ(base.typeCode(), IClockInterface::kfrTypeCode());
    EXPECT_EQ(clock->referenceCount(), 2);
    // Another interface is no silent conversion.
    static_assert(!std::is_convertible_v<KFRSmartPointer<ITickerInterface>,
                                         KFRSmartPointer<IClockInterface>>);
}

// Some texts end in a full stop, some do not, and the last kind opens a parenthesis for good.
// clang-format off
struct {
    char const* name;
    int answer;
    int code;
    char const* text;
} const kFailures[] = {
    {"NotImplemented", 1,   2010000001, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Object does not implement the desired interface."},
    {"NoTypeCode",     2,   2010000002, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. The typecode for the interface could not be loaded"},
    {"NoProxy",        3,   2010000003, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Cannot allocate a version 1 proxy."},
    {"Corba",          100, 2010000100, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal CORBA bridge error=100"},
    {"CorbaLast",      199, 2010000199, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal CORBA bridge error=199"},
    {"Cpp",            200, 2010000200, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal C++ bridge error=200"},
    {"Java",           301, 2010000301, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal Java bridge error=301"},
    {"Python",         402, 2010000402, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal Python bridge error=402"},
    {"DotNet",         500, 2010000500, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal .NET bridge error=500"},
    {"DotNetLast",     599, 2010000599, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed. Internal .NET bridge error=599"},
    {"PastBridges",    600, 2010000600, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed (error=600"},
    {"Between",        4,   2010000004, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed (error=4"},
    {"Negative",       -7,  2009999993, "Cast from interface KFR.KFRIService to KFR.Test.IRadio failed (error=-7"},
};
// clang-format on

TEST(FailedCast, ThrowsTheSystemExceptionWithItsCodeAndText)
{
    for (auto const& row : kFailures) {
        SCOPED_TRACE(row.name);
        Refuser object(row.answer);
        KFRIService const service(&object, KFRIServiceInterface::kfrTypeCode());
        EXPECT_TRUE(loose_cast<IRadioInterface>(service) == NULLSP);
        EXPECT_THROW(KFRSmartPointer<IRadioInterface>{service}, KFRSystemException);
        try {
            KFRSmartPointer<IRadioInterface> const radio(service);
            FAIL() << "no exception";
        } catch (KFRException const& exception) {
            EXPECT_EQ(exception.getCode(), row.code);
            EXPECT_EQ(exception.getText(), row.text);
            EXPECT_STREQ(exception.what(), row.text);
            EXPECT_EQ(exception.getClassName(), "KFRException");
        }
        EXPECT_EQ(object.references(), 1);
    }
}

}  // namespace
}  // namespace KFR
