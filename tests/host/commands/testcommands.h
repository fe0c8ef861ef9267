/// \file
/// Commands on a list of words, and a processor for them.

#pragma once

#include "host/model/testevents.h"

#include "host/commands/commandfailure.h"
#include "host/commands/commandprocessor.h"
#include "host/commands/transactionbroker.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace vrn::orlo::host::commands::test {

using host::test::FailsWith;
using host::test::IsOk;
using host::test::NotingEventManager;

using Words = std::vector<std::string>;

/// Appends the parameter "word", records that, and then does what the test has put in.
class Say final : public HostCommand {
public:
    using Then = std::function<KFRResult(std::string const& word)>;

    Say(Words& words, Then const& then) : m_words(&words), m_then(&then) {}

private:
    KFRResult run(appfw::CmdParameters const& parameters, CommandRun& run) override
    {
        std::string const word = *parameters.front().value.get<std::string>();
        m_words->push_back(word);
        run.m_returnValue <<= word + '!';
        run.m_output.append({"size", KFRAny(static_cast<int>(m_words->size()))});
        auto const takeBack = [words = m_words, word] {
            bool const isLast = !words->empty() && words->back() == word;
            if (isLast) {
                words->pop_back();
            }
            return isLast ? KFRResult(KFR::ok) : failure(77, "Out of order: " + word);
        };
        auto const again = [words = m_words, word] {
            words->push_back(word);
            return KFRResult(KFR::ok);
        };
        run.record(takeBack, again);
        return *m_then ? (*m_then)(word) : KFRResult(KFR::ok);
    }

    Words* m_words;
    Then const* m_then;
};

/// A processor that knows "T.Say", with its history's and its own events noted.
class ProcessorTest : public ::testing::Test {
protected:
    ProcessorTest()
    {
        m_processor->registerCommand("T", "Say", {1, 0, 1, 1},
                                     [this] { return KFR::make<Say>(m_words, m_then); });
    }

    static appfw::CmdParameters with(std::string const& word) { return {{"word", KFRAny(word)}}; }
    KFRResult say(std::string const& word, appfw::CmdOptions const& options = {1, 0, 1, 0})
    {
        return m_processor->executeCommand({"T", "Say", {}}, options, with(word));
    }
    KFRSmartPointer<appfw::ICmdCommandInterface> makeSay()
    {
        KFRSmartPointer<appfw::ICmdCommandInterface> command;
        EXPECT_THAT(m_processor->createCommand({"T", "Say", {}}, command), IsOk());
        return command;
    }
    KFRSmartPointer<appfw::KFRITransactionInterface> begin()
    {
        KFRSmartPointer<appfw::KFRITransactionInterface> transaction;
        EXPECT_THAT(m_broker->createTransaction(transaction), IsOk());
        return transaction;
    }
    UndoStack& history() { return m_processor->history(); }

    Words m_words;
    Say::Then m_then;
    KFRSmartPointer<NotingEventManager> m_events = KFR::make<NotingEventManager>();
    KFRSmartPointer<CommandProcessor> m_processor =
        KFR::make<CommandProcessor>(m_events, CommandProcessor::Options{3});
    KFRSmartPointer<TransactionBroker> m_broker = KFR::make<TransactionBroker>(m_processor->link());
};

}  // namespace vrn::orlo::host::commands::test
