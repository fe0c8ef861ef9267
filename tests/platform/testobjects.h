/// \file
/// Interfaces and objects for the tests of the framework's handles.

#pragma once

#include "platform/kfr/kfrserviceobject.h"

#include <atomic>

namespace KFR::test {

class IClockInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Test.IClock")

    virtual int hour() = 0;
};

/// A clock with more to it: an object that has it answers for a clock as well.
class IAlarmInterface : public IClockInterface {
    KFR_INTERFACE("KFR.Test.IAlarm")
    using Extends = IClockInterface;

    virtual int alarmHour() = 0;
};

class ITickerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Test.ITicker")

    virtual int ticks() = 0;
};

/// An interface that no object of the tests has.
class IRadioInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Test.IRadio")
};

/// Object of two interfaces, the first of which extends a third. Counts its living instances.
class AlarmClock final : public KFRServiceObjectImpl<IAlarmInterface, ITickerInterface> {
public:
    explicit AlarmClock(int hour = 12) : m_hour(hour) { s_living.fetch_add(1); }

    int hour() override { return m_hour; }
    int alarmHour() override { return m_hour + 1; }
    int ticks() override { return m_hour * 3600; }

    [[nodiscard]] static int living() { return s_living.load(); }

private:
    ~AlarmClock() override { s_living.fetch_sub(1); }

    static inline std::atomic<int> s_living{0};
    int m_hour;
};

/// Object that refuses every query with the same number. Lives on the stack; nobody deletes it.
class Refuser final : public KFRIServiceInterface {
public:
    explicit Refuser(int answer) : m_answer(answer) {}

    void addReference() override { ++m_references; }
    void releaseReference(void**) override { --m_references; }
    int getInterface(KFRUUID const&, void**) override { return m_answer; }
    std::string getObjectName() override { return "Refuser"; }
    long long getInstanceID() override { return -1; }

    [[nodiscard]] int references() const { return m_references; }

private:
    int m_answer;
    int m_references = 0;
};

}  // namespace KFR::test
