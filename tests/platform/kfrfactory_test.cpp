#include "platform/kfr/kfrfactory.h"

#include "tests/platform/testobjects.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace KFR::Framework {
namespace {

using test::AlarmClock;

/// Keeps what is published, as the application's does.
class StubPublisher final : public KFRServiceObjectImpl<KFRIServicePublisherInterface> {
public:
    KFRResult publishFactory(std::string const& name, KFRIServiceFactoryInterface* factory, bool,
                             std::string const&, std::string const&, std::string const&) override
    {
        m_factories[name] = KFRSmartPointer<KFRIServiceFactoryInterface>(factory, kAdopt);
        return ok;
    }

    std::map<std::string, KFRSmartPointer<KFRIServiceFactoryInterface>> m_factories;
};

class ClockFactory final : public KFRFactory {
public:
    explicit ClockFactory(KFRSmartPointer<KFRIServicePublisherInterface> publisher)
        : KFRFactory(std::move(publisher), "test.Clock", false, "1", "0", "")
    {
        ++s_living;
    }
    std::string getProperty(std::string const&) override { return {}; }

    static inline int s_living = 0;
    static inline bool s_makesNothing = false;

private:
    ~ClockFactory() override { --s_living; }
    KFRIServiceInterface* create(KFRIFactoryAccess&) override
    {
        return s_makesNothing ? nullptr : static_cast<test::IAlarmInterface*>(new AlarmClock);
    }
};

class Factories : public ::testing::Test {
protected:
    ~Factories() override
    {
        m_publisher.release();
        EXPECT_EQ(ClockFactory::s_living, 0);
        EXPECT_EQ(AlarmClock::living(), 0);
    }

    [[nodiscard]] KFRIService request(std::string const& name, KFRResult& result) const
    {
        return m_publisher->m_factories["test.Clock"]->getServiceInstance(name, {}, result);
    }

    KFRSmartPointer<StubPublisher> m_publisher = make<StubPublisher>();
};

TEST_F(Factories, BelongToThePublisherOrElseToTheirMaker)
{
    new ClockFactory(m_publisher);
    ASSERT_EQ(m_publisher->m_factories.count("test.Clock"), 1U);
    EXPECT_EQ(ClockFactory::s_living, 1);
    EXPECT_EQ(m_publisher->referenceCount(), 1);  // or publisher and factory would hold each other
    m_publisher->m_factories.clear();
    EXPECT_EQ(ClockFactory::s_living, 0);
    {
        auto const own = make<ClockFactory>(KFRSmartPointer<KFRIServicePublisherInterface>());
        KFRResult result;
        EXPECT_TRUE(own->getServiceInstance("test.Clock", {}, result) != NULLSP);
        EXPECT_EQ(AlarmClock::living(), 0);
    }
    EXPECT_EQ(ClockFactory::s_living, 0);
}

TEST_F(Factories, GiveNothingForAnotherNameOrWhenNothingIsMade)
{
    new ClockFactory(m_publisher);
    KFRResult result(ok);
    EXPECT_TRUE(request("test.Other", result) == NULLSP);
    EXPECT_EQ(result.getCode(), notDone);

    ClockFactory::s_makesNothing = true;
    result = ok;
    EXPECT_TRUE(request("test.Clock", result) == NULLSP);
    EXPECT_EQ(result.getCode(), notDone);
    ClockFactory::s_makesNothing = false;

    EXPECT_TRUE(request("test.Clock", result) != NULLSP);
    EXPECT_TRUE(result.isOk());
}

}  // namespace
}  // namespace KFR::Framework
