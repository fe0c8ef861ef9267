#include "host/commands/testcommands.h"

namespace vrn::orlo::host::commands {
namespace {

using test::FailsWith;
using test::IsOk;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr appfw::CmdOptions kNotUndoable{0, 0, 1, 0};

using CommandProcessorTest = test::ProcessorTest;

TEST_F(CommandProcessorTest, UndoAndRedoGoThroughTheStepsInOrder)
{
    EXPECT_THAT(say("a"), IsOk());
    EXPECT_THAT(makeSay()->execute(with("b")), IsOk());
    EXPECT_THAT(history().undoNames(), ElementsAre("Say", "Say"));
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_words, ElementsAre("a"));
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_processor->undo(), FailsWith(kNoHistory, "There is nothing to undo."));
    EXPECT_TRUE(history().canRedo());
    EXPECT_THAT(m_processor->redo(), IsOk());
    EXPECT_THAT(m_processor->redo(), IsOk());
    EXPECT_THAT(m_processor->redo(), FailsWith(kNoHistory, "There is nothing to redo."));
    EXPECT_THAT(m_words, ElementsAre("a", "b"));
}

TEST_F(CommandProcessorTest, OnlyARunThatCanBeUndoneForgetsWhatCouldBeRedone)
{
    say("a");
    m_processor->undo();
    say("b", kNotUndoable);
    EXPECT_TRUE(history().canRedo());
    say("c");
    EXPECT_FALSE(history().canRedo());
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_words, ElementsAre("b"));
    EXPECT_FALSE(history().canUndo());
}

TEST_F(CommandProcessorTest, OldestStepsGoBeyondTheDepth)
{
    for (char const* const word : {"a", "b", "c", "d", "e"}) {
        say(word);
    }
    while (history().canUndo()) {
        EXPECT_THAT(m_processor->undo(), IsOk());
    }
    EXPECT_THAT(m_words, ElementsAre("a", "b"));
}

TEST_F(CommandProcessorTest, CommandGivesWhatItsLastRunLeft)
{
    auto const command = makeSay();
    EXPECT_EQ(command->getOptions(), (appfw::CmdOptions{1, 0, 1, 1}));
    EXPECT_EQ(command->getURCommand(), KFR::NULLSP);
    command->execute(with("a"));
    EXPECT_EQ(*command->getReturnValue().get<std::string>(), "a!");
    EXPECT_EQ(*command->getOutputParams().at(0).value.get<int>(), 1);
    EXPECT_NE(command->getURCommand(), KFR::NULLSP);

    command->setOptions(kNotUndoable);
    command->execute(with("b"));
    EXPECT_EQ(*command->getReturnValue().get<std::string>(), "b!");
    EXPECT_EQ(command->getURCommand(), KFR::NULLSP);

    m_then = [](auto const&) {
        return KFRResult();
    };
    EXPECT_THAT(command->execute(with("c")), ::testing::Not(IsOk()));
    EXPECT_TRUE(command->getReturnValue().isEmpty());
    EXPECT_TRUE(command->getOutputParams().empty());
}

TEST_F(CommandProcessorTest, FailedRunIsTakenBackAndNeverASecondTimeUndone)
{
    say("a");
    m_then = [this](std::string const& word) -> KFRResult {
        if (word == "outer") {
            EXPECT_THAT(say("inner"), IsOk());
            throw KFRUserException(5, "no more words");
        }
        return word == "refused" ? failure(9, "refused") : KFRResult(KFR::ok);
    };
    for (appfw::CmdOptions const& options : {appfw::CmdOptions{1, 0, 1, 0}, kNotUndoable}) {
        EXPECT_THAT(say("refused", options), FailsWith(9, "refused"));
        EXPECT_THAT(m_words, ElementsAre("a"));
    }
    EXPECT_THAT(say("outer"), FailsWith(kThrown, "T.Say: no more words"));
    EXPECT_THAT(m_words, ElementsAre("a"));
    EXPECT_THAT(history().undoNames(), ElementsAre("Say"));
}

TEST_F(CommandProcessorTest, WhatCannotBeTakenBackIsSaidBesideTheFailure)
{
    m_then = [this](auto const&) {
        m_words.push_back("stray");
        return failure(9, "refused");
    };
    KFRResult const answer = say("a");
    EXPECT_THAT(answer, FailsWith(9, "refused"));
    EXPECT_THAT(*answer.getParams().at(1).get<std::string>(), HasSubstr("Out of order: a"));
}

TEST_F(CommandProcessorTest, CommandsRunByACommandArePartOfItsStep)
{
    m_then = [this](std::string const& word) {
        return word == "outer" ? say("inner") : KFRResult(KFR::ok);
    };
    say("outer");
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_words, IsEmpty());
    EXPECT_THAT(m_processor->redo(), IsOk());
    EXPECT_THAT(m_words, ElementsAre("outer", "inner"));

    m_processor->registerFunction("T", "Twice", [this](auto const&) {
        say("x");
        return say("y");
    });
    // A function leaves no step of its own, whatever the options.
    EXPECT_THAT(m_processor->executeCommand({"T", "Twice", {}}, {1, 0, 1, 0}, {}), IsOk());
    EXPECT_EQ(history().undoNames().size(), 3U);
}

TEST_F(CommandProcessorTest, StepThatFailsToUndoStays)
{
    say("a");
    m_words.push_back("stray");
    EXPECT_THAT(m_processor->undo(), FailsWith(77, "Out of order: a"));
    EXPECT_TRUE(history().canUndo());
    m_words.pop_back();
    EXPECT_THAT(m_processor->undo(), IsOk());
}

TEST_F(CommandProcessorTest, StepUndoneByItsHolderIsNotUndoneAgain)
{
    auto const command = makeSay();
    command->execute(with("a"));
    EXPECT_THAT(command->getURCommand()->undo(), IsOk());
    EXPECT_THAT(m_words, IsEmpty());
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(m_processor->redo(), IsOk());
    EXPECT_THAT(m_words, ElementsAre("a"));
}

TEST_F(CommandProcessorTest, EventsTellOfRunsAndHistory)
{
    appfw::CmdOptions const telling{1, 0, 1, 1};
    m_then = [](std::string const& word) {
        return word == "bad" ? failure(9, "refused") : KFRResult(KFR::ok);
    };
    say("a", telling);
    EXPECT_THAT(
        m_events->takeLines(),
        ElementsAre("CmdProcessor 3 T Say 0", "UndoRedoFWEvent 5 Say", "CmdProcessor 4 T Say 0"));
    say("bad", telling);
    EXPECT_THAT(m_events->takeLines(),
                ElementsAre("CmdProcessor 3 T Say 0", "CmdProcessor 5 T Say 9 refused"));
    m_processor->undo();
    m_processor->redo();
    say("unheard");
    EXPECT_THAT(history().clear(), IsOk());
    EXPECT_THAT(m_events->takeLines(), ElementsAre("UndoRedoFWEvent 2 Say", "UndoRedoFWEvent 3 Say",
                                                   "UndoRedoFWEvent 5 Say", "UndoRedoFWEvent 6"));
    EXPECT_FALSE(history().canUndo());
}

TEST_F(CommandProcessorTest, HistoryDoesNotMoveWhileSomethingIsTakenBack)
{
    std::vector<KFRResult> answers;
    KFRSmartPointer<appfw::KFRITransactionInterface> none;
    auto const meddle = [&] {
        answers = {m_processor->undo(), history().clear(), say("b"),
                   m_broker->createTransaction(none)};
        return KFRResult(KFR::ok);
    };
    Step const meddler = makeStep(meddle, [] { return KFRResult(KFR::ok); });
    auto const allRefused = ElementsAre(FailsWith(kBusy, _), FailsWith(kBusy, _),
                                        FailsWith(kBusy, _), FailsWith(kBusy, _));
    say("a");
    history().add("Meddler", meddler);
    EXPECT_THAT(m_processor->undo(), IsOk());
    EXPECT_THAT(answers, allRefused);
    EXPECT_TRUE(history().canRedo());

    answers.clear();
    m_then = [&](std::string const& word) {
        if (word == "c") {
            history().add("Meddler", meddler);
        }
        return failure(9, "refused");
    };
    say("c");
    EXPECT_THAT(answers, allRefused);
    EXPECT_THAT(m_words, ElementsAre("a"));
}

TEST_F(CommandProcessorTest, UnknownAndTakenNamesFailWithOutputsAsTheyWere)
{
    appfw::CmdOptions options = kNotUndoable;
    KFRSmartPointer<appfw::ICmdCommandInterface> command = makeSay();
    auto const before = command;
    appfw::CmdInvocationRequest const request{"T", "Shout", {}};
    auto const unknown =
        FailsWith(kUnknownCommand, "Nobody has registered the command Shout of T.");
    EXPECT_THAT(m_processor->getCommandOptions(request, options), unknown);
    EXPECT_THAT(m_processor->createCommand(request, command), unknown);
    EXPECT_THAT(m_processor->executeCommand(request, options, {}), unknown);
    EXPECT_EQ(options, kNotUndoable);
    EXPECT_EQ(command, before);
    EXPECT_THAT(m_processor->registerFunction("T", "Say", {}), FailsWith(kNameInUse, _));
    m_processor->registerCommand("T", "Shout", {}, [] { return KFRSmartPointer<HostCommand>(); });
    EXPECT_THAT(m_processor->createCommand(request, command),
                FailsWith(kUnknownCommand, HasSubstr("its factory gave nothing")));
}

TEST_F(CommandProcessorTest, WhatOutlivesTheProcessorFailsSafely)
{
    auto const command = makeSay();
    auto const transaction = begin();
    m_processor.release();
    EXPECT_THAT(command->execute(with("a")), FailsWith(kNoProcessor, HasSubstr("T.Say")));
    EXPECT_THAT(m_words, IsEmpty());
    EXPECT_THAT(transaction->end(), IsOk());
    KFRSmartPointer<appfw::KFRITransactionInterface> none;
    EXPECT_THAT(m_broker->createTransaction(none), FailsWith(kNoProcessor, _));
}

}  // namespace
}  // namespace vrn::orlo::host::commands
