#include "host/commands/executive.h"
#include "host/commands/testcommands.h"

#include <atomic>
#include <numeric>
#include <stdexcept>
#include <thread>

namespace vrn::orlo::host::commands {
namespace {

using test::FailsWith;
using test::IsOk;
using test::Words;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FunctionWork final : public KFRServiceObjectImpl<appfw::KFRIWorkCommandInterface> {
public:
    explicit FunctionWork(std::function<KFRResult()> work) : m_work(std::move(work)) {}
    KFRResult execute() override { return m_work(); }

private:
    std::function<KFRResult()> m_work;
};

class ExecutiveTest : public test::ProcessorTest {
protected:
    enum Queue { ifNeeded, always };

    KFRResult push(std::function<KFRResult()> work, Queue when, bool showWait = false)
    {
        KFRSmartPointer<appfw::KFRIWorkCommandInterface> const command =
            KFR::make<FunctionWork>(std::move(work));
        return run("VRN.P.ModelingWorkCommand", {{"workCommand", KFRAny(command)},
                                                 {"showWait", KFRAny(showWait)},
                                                 {"queueAlways", KFRAny(when == always)}});
    }
    /// Work that notes a word.
    std::function<KFRResult()> note(std::string const& word)
    {
        return [this, word] {
            m_words.push_back(word);
            return KFRResult(KFR::ok);
        };
    }
    KFRResult run(std::string const& name, appfw::CmdParameters const& parameters)
    {
        return m_executive->run(name, KFRAny(parameters));
    }

    KFRSmartPointer<Executive> m_executive = KFR::make<Executive>(Executive::Options{
        m_processor, [this](bool begins) { m_words.push_back(begins ? "wait" : "go on"); }, {}});
};

TEST_F(ExecutiveTest, WorkRunsAtOnceOnlyWhereNothingIsQueued)
{
    push(note("now"), ifNeeded);
    push(note("queued"), always);
    push(note("behind it"), ifNeeded);
    EXPECT_THAT(m_words, ElementsAre("now"));
    EXPECT_EQ(m_executive->pump(), 2U);
    EXPECT_THAT(m_words, ElementsAre("now", "queued", "behind it"));
    EXPECT_EQ(m_executive->pump(), 0U);
}

TEST_F(ExecutiveTest, WhatWorkQueuesRunsInTheSamePumpAfterTheRest)
{
    push([this] { return push(note("late"), always); }, always);
    push(note("early"), always);
    EXPECT_EQ(m_executive->pump(), 3U);
    EXPECT_THAT(m_words, ElementsAre("early", "late"));
}

TEST_F(ExecutiveTest, FailingWorkHarmsNeitherTheQueueNorTheWaitCursor)
{
    std::function<KFRResult()> const throwing = []() -> KFRResult {
        throw std::runtime_error("broken");
    };
    push(throwing, always, true);
    push([] { return KFRResult(); }, always);
    push(note("after"), always);
    EXPECT_EQ(m_executive->pump(), 3U);
    EXPECT_THAT(m_words, ElementsAre("wait", "go on", "after"));
    EXPECT_THAT(push(throwing, ifNeeded), FailsWith(kThrown, HasSubstr("broken")));
}

TEST_F(ExecutiveTest, OtherThreadsOnlyQueueAndKeepTheirOrder)
{
    constexpr int kThreads = 4;
    constexpr int kEach = 100;
    std::thread::id const main = std::this_thread::get_id();
    std::vector<std::vector<int>> seen(kThreads);
    std::size_t count = 0;
    std::atomic<int> running{kThreads};
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([&, thread] {
                for (int i = 0; i < kEach; ++i) {
                    auto const work = [&seen, main, thread, i] {
                        EXPECT_EQ(std::this_thread::get_id(), main);
                        seen[static_cast<std::size_t>(thread)].push_back(i);
                        return KFRResult(KFR::ok);
                    };
                    EXPECT_THAT(push(work, ifNeeded), IsOk());
                }
                EXPECT_THAT(run("T.Say", with("from thread")), IsOk());
                EXPECT_THROW(m_executive->pump(), std::logic_error);
                --running;
            });
        }
        while (running > 0) {
            count += m_executive->pump();
        }
    }
    EXPECT_EQ(count + m_executive->pump(), std::size_t{kThreads * (kEach + 1)});
    std::vector<int> inOrder(kEach);
    std::iota(inOrder.begin(), inOrder.end(), 0);
    EXPECT_THAT(seen, ::testing::Each(inOrder));
    EXPECT_EQ(m_words, Words(kThreads, "from thread"));
}

TEST_F(ExecutiveTest, CommandRequestRunsWithItsParametersWhenPumped)
{
    EXPECT_THAT(run("VRN.P.WorkThreadCommandRequest",
                    {{"command", KFRAny(makeSay())}, {"param", KFRAny(with("a"))}}),
                IsOk());
    EXPECT_THAT(m_words, IsEmpty());
    EXPECT_EQ(m_executive->pump(), 1U);
    EXPECT_THAT(m_words, ElementsAre("a"));
    EXPECT_TRUE(history().canUndo());
}

TEST_F(ExecutiveTest, AnyOtherNameIsACommandOfTheProcessor)
{
    m_processor->registerFunction("A.B", "C", [this](auto const&) { return note("C")(); });
    EXPECT_THAT(run("A.B.C", {}), IsOk());
    EXPECT_THAT(run("T.Say", with("a")), IsOk());
    EXPECT_THAT(m_words, ElementsAre("C", "a"));
    EXPECT_THAT(history().undoNames(), ElementsAre("Say"));
    EXPECT_THAT(run("A.B.D", {}), FailsWith(kUnknownCommand, HasSubstr("D of A.B")));
}

TEST_F(ExecutiveTest, WrongParametersAreNamedAndQueueNothing)
{
    KFRSmartPointer<appfw::KFRIWorkCommandInterface> const none;
    EXPECT_THAT(run("P.ModelingWorkCommand", {}),
                FailsWith(kBadParameters, HasSubstr("\"workCommand\" is missing")));
    EXPECT_THAT(run("P.ModelingWorkCommand", {{"workCommand", KFRAny(none)}}),
                FailsWith(kBadParameters, HasSubstr("\"workCommand\" is null")));
    EXPECT_THAT(run("P.ModelingWorkCommand", {{"workCommand", KFRAny(m_processor)}}),
                FailsWith(kBadParameters, HasSubstr("\"workCommand\" is of another kind")));
    EXPECT_THAT(run("P.WorkThreadCommandRequest", {{"command", KFRAny(makeSay())}}),
                FailsWith(kBadParameters, HasSubstr("\"param\" is missing")));
    EXPECT_THAT(m_executive->run("T.Say", KFRAny(1)), FailsWith(kBadParameters, _));
    for (char const* const name : {"Say", ".Say", "T."}) {
        EXPECT_THAT(run(name, {}), FailsWith(kBadParameters, HasSubstr(name)));
    }
    EXPECT_EQ(m_executive->queued(), 0U);
}

TEST_F(ExecutiveTest, MessageBoxAsksWhoeverIsThereToAnswer)
{
    EXPECT_THAT(m_executive->messageBox(u"T", u"text", u"Yes", u"No", u"No", 1),
                FailsWith(kNoMessageBox, _));
    icu::UnicodeString asked;
    auto const answering =
        KFR::make<Executive>(Executive::Options{{}, {}, [&](Executive::MessageBox const& box) {
                                                    asked = box.m_text + box.m_third;
                                                    return KFRResult(4);
                                                }});
    EXPECT_EQ(answering->messageBox(u"T", u"text", u"Yes", u"No", u"Help", 1).getCode(), 4);
    EXPECT_EQ(asked, u"textHelp");
    EXPECT_THAT(answering->run("T.Say", KFRAny(with("a"))), FailsWith(kNoProcessor, _));
}

}  // namespace
}  // namespace vrn::orlo::host::commands
