#include "host/kernel/eventmanager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vrn::orlo::host::kernel {
namespace {

using ::testing::ElementsAre;
using ::testing::Gt;
using ::testing::IsEmpty;

using Log = std::vector<std::string>;

/// Notes what it gets as "NAME EVENT", and does then what it is told.
class Listener final : public KFRServiceObjectImpl<KFRIEventListenerInterface> {
public:
    Listener(std::string name, Log& log) : m_name(std::move(name)), m_log(log) {}
    KFRResult handleEvent(KFREvent const& event) override
    {
        m_log.push_back(m_name + " " + std::to_string(event.eventId));
        if (m_then) {
            m_then(event);
        }
        return KFR::notDone;
    }

    std::function<void(KFREvent const&)> m_then;

private:
    std::string m_name;
    Log& m_log;
};

class EventManagerTest : public ::testing::Test {
protected:
    static constexpr int kAtOnce = 2;

    EventManagerTest() { m_manager->createDomainID("vrn.test", m_domain); }

    KFRSmartPointer<Listener> listener(std::string name, int mode = kAtOnce,
                                       KFRSequence<int> const& events = {})
    {
        auto made = KFR::make<Listener>(std::move(name), m_log);
        EXPECT_TRUE(m_manager->addListener(m_domain, made, mode, events).isOk());
        return made;
    }
    KFREvent event(int id) const { return {m_domain, id, {}}; }
    int publish(int id) { return m_manager->publishEvent(event(id), 0).getCode(); }
    Log taken() { return std::exchange(m_log, {}); }

    Log m_log;
    KFRSmartPointer<EventManager> m_manager = KFR::make<EventManager>();
    long long m_domain = 0;
};

TEST_F(EventManagerTest, DomainHasOneIdFromItsNameInEveryManager)
{
    long long again = 0;
    long long elsewhere = 0;
    long long absent = 77;
    EXPECT_TRUE(m_manager->createDomainID("vrn.test", again).isOk());
    EXPECT_TRUE(KFR::make<EventManager>()->createDomainID("vrn.test", elsewhere).isOk());
    EXPECT_EQ(again, m_domain);
    EXPECT_EQ(elsewhere, m_domain);
    EXPECT_EQ(m_manager->getDomainID("vrn.other", absent).getCode(), kUnknownDomain);
    EXPECT_EQ(absent, 77);
    EXPECT_EQ(m_manager->nameOf(m_domain), "vrn.test");
    EXPECT_EQ(m_manager->nameOf(5), "");
}

// The hash of both names is 0, which a domain must not have.
TEST_F(EventManagerTest, NamesOfOneHashAreNotTakenForOneDomain)
{
    std::string const name = "\xD5\x6B\xB9\x53\x42\x87\x08\x36";
    std::string const other = name + '\0';
    long long first = 0;
    long long second = 77;
    ASSERT_TRUE(m_manager->createDomainID(name, first).isOk());
    EXPECT_THAT(first, Gt(1));
    KFRResult const clash = m_manager->createDomainID(other, second);
    EXPECT_EQ(clash.getCode(), kDomainClash);
    EXPECT_EQ(clash.getParams().size(), 1U);
    EXPECT_EQ(m_manager->getDomainID(other, second).getCode(), kUnknownDomain);
    EXPECT_EQ(second, 77);
}

TEST_F(EventManagerTest, ListenerGetsTheEventsItSubscribedToOnceAndInOrder)
{
    auto const some = listener("some", kAtOnce, {1, 2});
    auto const all = listener("all");
    m_manager->addListener(m_domain, some, kAtOnce, {2, 3});
    m_manager->addListener(m_domain, all, EventManager::kQueued, {2});
    m_manager->addListener({m_domain, {4}}, some);
    for (int id = 1; id <= 5; ++id) {
        EXPECT_EQ(publish(id), KFR::ok);
    }
    EXPECT_THAT(taken(), ElementsAre("some 1", "all 1", "some 2", "all 2", "some 3", "all 3",
                                     "some 4", "all 4", "all 5"));
    EXPECT_EQ(m_manager->pump(), 0U);
    EXPECT_THAT(taken(), IsEmpty());
    m_manager->addListener(m_domain, some, kAtOnce, {});
    publish(9);
    EXPECT_THAT(taken(), ElementsAre("some 9", "all 9"));
}

TEST_F(EventManagerTest, ChannelListenerGetsAllOfTheChannelOrDomain)
{
    long long channel = 0;
    m_manager->getChannelID(channel);
    EXPECT_THAT(channel, Gt(1));
    auto const both = KFR::make<Listener>("both", m_log);
    EXPECT_TRUE(m_manager->addChannelListener(channel, both, kAtOnce).isOk());
    EXPECT_TRUE(m_manager->addChannelListener(m_domain, both, kAtOnce).isOk());
    publish(1);
    m_manager->publishEvent({channel, 2, {}}, 0);
    EXPECT_THAT(taken(), ElementsAre("both 1", "both 2"));
}

TEST_F(EventManagerTest, RefusesWhatItDoesNotKnowAndChangesNothing)
{
    auto const known = listener("known");
    auto const stranger = KFR::make<Listener>("stranger", m_log);
    struct {
        char const* m_what;
        KFRResult m_result;
        int m_code;
    } const rows[] = {
        {"add to no domain", m_manager->addListener(12345, known, 2, {}), kUnknownDomain},
        {"add nobody", m_manager->addListener(m_domain, KFR::NULLSP, 2, {}), kNoListener},
        {"channel", m_manager->addChannelListener(0, known, 2), kUnknownDomain},
        {"filter", m_manager->addListener({0, {1}}, known), kUnknownDomain},
        {"remove of none", m_manager->removeListener(12345, known), kUnknownDomain},
        {"remove nobody", m_manager->removeListener(m_domain, KFR::NULLSP), kNoListener},
        {"remove stranger", m_manager->removeListener(m_domain, stranger), kNotSubscribed},
        {"publish", m_manager->publishEvent({12345, 1, {}}, 0), kUnknownDomain},
        {"fire", m_manager->fireEvent(event(1), 1, KFR::NULLSP), kNoListener},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(row.m_result.getCode(), row.m_code) << row.m_what;
        EXPECT_EQ(row.m_result.getParams().size(), 1U) << row.m_what;
    }
    publish(1);
    EXPECT_THAT(taken(), ElementsAre("known 1"));
}

TEST_F(EventManagerTest, RemovalTakesAllOfTheDomainAndLetsTheListenerGo)
{
    auto const going = listener("going", kAtOnce, {1});
    auto const staying = listener("staying");
    m_manager->addListener(m_domain, going, EventManager::kQueued, {2});
    publish(2);
    EXPECT_TRUE(m_manager->removeListener(m_domain, going).isOk());
    EXPECT_EQ(going->referenceCount(), 1);
    publish(1);
    EXPECT_EQ(m_manager->pump(), 0U);
    EXPECT_THAT(taken(), ElementsAre("staying 2", "staying 1"));
    EXPECT_EQ(m_manager->removeListener(m_domain, going).getCode(), kNotSubscribed);
}

TEST_F(EventManagerTest, PublishDuringDeliveryComesAfterItAndBeforeTheOutermostReturns)
{
    auto const first = listener("first");
    auto const second = listener("second");
    first->m_then = [&](KFREvent const& got) {
        if (got.eventId < 3) {
            EXPECT_EQ(publish(got.eventId + 1), KFR::ok);
            EXPECT_EQ(m_manager->pump(), 0U);
        }
    };
    publish(1);
    EXPECT_THAT(taken(),
                ElementsAre("first 1", "second 1", "first 2", "second 2", "first 3", "second 3"));
}

TEST_F(EventManagerTest, SubscriptionsThatChangeDuringADeliveryCountFromTheNextEvent)
{
    auto const first = listener("first", kAtOnce, {1});
    auto const leaving = listener("leaving");
    KFRSmartPointer<Listener> late;
    first->m_then = [&](KFREvent const&) {
        publish(2);
        m_manager->removeListener(m_domain, leaving);
        late = listener("late");
        publish(3);
    };
    publish(1);
    EXPECT_THAT(taken(), ElementsAre("first 1", "leaving 1", "late 3"));
}

TEST_F(EventManagerTest, QueuedListenerGetsAtThePumpWhatWasPublishedSinceItSubscribed)
{
    auto const queued = listener("queued", EventManager::kQueued);
    auto const direct = listener("direct");
    publish(1);
    auto const late = listener("late", EventManager::kQueued, {2});
    publish(2);
    EXPECT_THAT(taken(), ElementsAre("direct 1", "direct 2"));
    // A pump ends, however much its listeners publish.
    queued->m_then = [&](KFREvent const& got) {
        publish(got.eventId + 10);
    };
    EXPECT_EQ(m_manager->pump(), 2U);
    EXPECT_THAT(taken(), ElementsAre("queued 1", "direct 11", "queued 2", "late 2", "direct 12"));
    queued->m_then = nullptr;
    EXPECT_EQ(m_manager->pump(), 2U);
    EXPECT_THAT(taken(), ElementsAre("queued 11", "queued 12"));
}

TEST_F(EventManagerTest, ExceptionReachesThePublisherAndLosesNobodysEvent)
{
    auto const first = listener("first");
    auto const thrower = listener("thrower");
    auto const gone = listener("gone");
    auto const last = listener("last");
    thrower->m_then = [&](KFREvent const& got) {
        if (got.eventId == 1) {
            publish(2);
            throw std::runtime_error("no");
        }
    };
    EXPECT_THROW(publish(1), std::runtime_error);
    EXPECT_THAT(taken(), ElementsAre("first 1", "thrower 1"));
    m_manager->removeListener(m_domain, gone);
    publish(3);
    EXPECT_THAT(taken(), ElementsAre("last 1", "first 2", "thrower 2", "last 2", "first 3",
                                     "thrower 3", "last 3"));
}

TEST_F(EventManagerTest, ExceptionInAPumpLeavesTheRestToTheNextPump)
{
    auto const thrower = listener("thrower", EventManager::kQueued);
    auto const other = listener("other", EventManager::kQueued);
    thrower->m_then = [](KFREvent const& got) {
        if (got.eventId == 1) {
            throw std::runtime_error("no");
        }
    };
    publish(1);
    publish(2);
    EXPECT_THROW(m_manager->pump(), std::runtime_error);
    publish(3);
    EXPECT_THAT(taken(), ElementsAre("thrower 1"));
    EXPECT_EQ(m_manager->pump(), 3U);
    EXPECT_THAT(taken(), ElementsAre("other 1", "thrower 2", "other 2", "thrower 3", "other 3"));
}

TEST_F(EventManagerTest, FiredEventGoesToTheOneListenerAtOnce)
{
    auto const subscribed = listener("subscribed");
    auto const target = KFR::make<Listener>("target", m_log);
    subscribed->m_then = [&](KFREvent const&) {
        m_manager->fireEvent(event(7), 1, target);
    };
    auto const after = listener("after");
    publish(1);
    EXPECT_THAT(taken(), ElementsAre("subscribed 1", "target 7", "after 1"));
}

TEST_F(EventManagerTest, ThreadsPublishAndSubscribeWhileTheManagersThreadPumps)
{
    constexpr int kThreads = 4;
    constexpr int kEvents = 200;
    std::vector<int> next(kThreads, 0);  // unguarded on purpose: only this thread listens
    auto const here = std::this_thread::get_id();
    auto const receiver = listener("receiver", kAtOnce, {1});
    receiver->m_then = [&](KFREvent const& got) {
        std::string text;
        ASSERT_TRUE(got.payload >>= text);
        auto const thread = static_cast<std::size_t>(text.front() - '0');
        EXPECT_EQ(text.substr(2), std::to_string(next[thread]++));
        EXPECT_EQ(std::this_thread::get_id(), here);
    };
    std::latch start(kThreads + 1);
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            Log unused;
            auto const mine = KFR::make<Listener>("mine", unused);
            start.arrive_and_wait();
            for (int i = 0; i < kEvents; ++i) {
                long long id = 0;
                EXPECT_TRUE(m_manager->createDomainID("d" + std::to_string(i), id).isOk());
                EXPECT_TRUE(m_manager->addListener(id, mine, kAtOnce, {}).isOk());
                m_manager->publishEvent(
                    {m_domain, 1, KFRAny(std::to_string(thread) + " " + std::to_string(i))}, 0);
                EXPECT_TRUE(m_manager->removeListener(id, mine).isOk());
                EXPECT_EQ(m_manager->pump(), 0U);
            }
        });
    }
    start.arrive_and_wait();
    std::size_t delivered = 0;
    while (delivered < kThreads * kEvents) {
        delivered += m_manager->pump();
        publish(2);
        std::this_thread::yield();
    }
    EXPECT_THAT(next, ::testing::Each(kEvents));
    EXPECT_EQ(m_log.size(), static_cast<std::size_t>(kThreads * kEvents));
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
