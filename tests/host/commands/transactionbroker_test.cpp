#include "host/commands/testcommands.h"

namespace vrn::orlo::host::commands {
namespace {

using test::FailsWith;
using test::IsOk;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using TransactionBrokerTest = test::ProcessorTest;

TEST_F(TransactionBrokerTest, RunsInsideNestedTransactionsAreOneStep)
{
    auto const outer = begin();
    say("a");
    auto const inner = begin();
    say("b");
    EXPECT_THAT(inner->end(), IsOk());
    say("c");
    EXPECT_THAT(m_processor->undo(), FailsWith(kBusy, HasSubstr("transaction is open")));
    EXPECT_THAT(m_processor->redo(), FailsWith(kBusy, _));
    EXPECT_THAT(m_events->takeLines(), IsEmpty());
    EXPECT_THAT(outer->end(), IsOk());
    EXPECT_THAT(outer->end(), FailsWith(kEnded, "The transaction has ended already."));
    EXPECT_THAT(history().undoNames(), ElementsAre("Say and 2 more"));
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_words, IsEmpty());
    EXPECT_THAT(m_processor->redo(), IsOk());
    EXPECT_THAT(m_words, ElementsAre("a", "b", "c"));
}

TEST_F(TransactionBrokerTest, DroppedHandleEndsAndAnEmptyTransactionIsNoStep)
{
    begin();
    EXPECT_FALSE(history().canUndo());
    {
        auto const dropped = begin();
        say("a");
        EXPECT_FALSE(history().canUndo());
    }
    EXPECT_THAT(history().undoNames(), ElementsAre("Say"));
}

TEST_F(TransactionBrokerTest, OuterThatEndsFirstWaitsForTheInner)
{
    auto const outer = begin();
    auto const inner = begin();
    say("a");
    EXPECT_THAT(outer->end(), IsOk());
    say("b");
    EXPECT_FALSE(history().canUndo());
    EXPECT_THAT(inner->end(), IsOk());
    EXPECT_THAT(history().undoNames(), ElementsAre("Say and 1 more"));
}

TEST_F(TransactionBrokerTest, FailedRunLeavesTheOthersOfItsTransaction)
{
    auto const transaction = begin();
    say("a");
    m_then = [](auto const&) {
        return failure(9, "refused");
    };
    say("b");
    m_then = nullptr;
    say("c");
    transaction->end();
    EXPECT_THAT(m_words, ElementsAre("a", "c"));
    m_processor->undo();
    EXPECT_THAT(m_words, IsEmpty());
}

TEST_F(TransactionBrokerTest, StepOfSeveralIsUndoneAllOrNothing)
{
    auto const transaction = begin();
    history().add("Broken",
                  makeStep([] { return failure(8, "broken"); }, [] { return KFRResult(KFR::ok); }));
    say("a");
    say("b");
    transaction->end();
    EXPECT_THAT(m_processor->undo(), FailsWith(8, "broken"));
    EXPECT_THAT(m_words, ElementsAre("a", "b"));
    EXPECT_TRUE(history().canUndo());
}

TEST_F(TransactionBrokerTest, TransactionLeftOpenInACommandClosesWithIt)
{
    KFRSmartPointer<appfw::KFRITransactionInterface> left;
    m_then = [&](std::string const& word) -> KFRResult {
        if (word.starts_with("outer")) {
            left = begin();
            say("inner");
        }
        return word == "outer, failing" ? failure(9, "refused") : KFRResult(KFR::ok);
    };
    say("outer, failing");
    EXPECT_THAT(m_words, IsEmpty());
    say("outer");
    EXPECT_THAT(history().undoNames(), ElementsAre("Say"));
    EXPECT_THAT(left->end(), IsOk());
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_words, IsEmpty());
}

TEST_F(TransactionBrokerTest, TransactionEndedInsideARunTakesTheRunIn)
{
    auto const transaction = begin();
    say("a");
    m_then = [&](auto const&) {
        return transaction->end();
    };
    say("b");
    EXPECT_THAT(history().undoNames(), ElementsAre("Say and 1 more"));
}

}  // namespace
}  // namespace vrn::orlo::host::commands
