/// \file
/// A command processor, an executive and transactions that note what they are asked for.

#pragma once

#include "platform/appfw/commands.h"
#include "platform/appfw/guiexecutive.h"
#include "platform/appfw/transactions.h"
#include "platform/kfr/kfrserviceobject.h"

#include <unicode/unistr.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// What there is to undo; does nothing.
class FakeURCommand final : public KFRServiceObjectImpl<appfw::IURCommandInterface> {
public:
    KFRResult undo() override { return KFR::ok; }
    KFRResult redo() override { return KFR::ok; }
};

class FakeCommand final : public KFRServiceObjectImpl<appfw::ICmdCommandInterface> {
public:
    appfw::CmdOptions options{9, 9, 9, 9};
    std::vector<appfw::CmdParameters> runs;
    KFRAny returnValue;
    appfw::CmdParameters output;
    KFRSmartPointer<appfw::IURCommandInterface> ur = KFR::make<FakeURCommand>();

    KFRResult setOptions(appfw::CmdOptions const& given) override
    {
        options = given;
        return KFR::notDone;
    }
    appfw::CmdOptions getOptions() override { return options; }
    /// Fails, which nobody is to notice.
    KFRResult execute(appfw::CmdParameters const& parameters) override
    {
        runs.push_back(parameters);
        return 4711;
    }
    KFRAny getReturnValue() override { return returnValue; }
    appfw::CmdParameters getOutputParams() override { return output; }
    KFRSmartPointer<appfw::IURCommandInterface> getURCommand() override { return ur; }
};

/// Knows the commands that a test puts into it.
class FakeCmdProcessor final : public KFRServiceObjectImpl<appfw::ICmdProcessorInterface> {
public:
    struct Execution {
        std::string context;
        std::string name;
        appfw::CmdOptions options;
        appfw::CmdParameters parameters;
    };

    std::map<std::pair<std::string, std::string>, KFRSmartPointer<FakeCommand>> commands;
    appfw::CmdOptions defaults{1, 0, 1, 1};
    std::vector<Execution> executions;
    std::vector<std::string> calls;

    KFRSmartPointer<FakeCommand> put(std::string const& context, std::string const& name)
    {
        return commands[{context, name}] = KFR::make<FakeCommand>();
    }

    KFRResult getCommandOptions(appfw::CmdInvocationRequest const& request,
                                appfw::CmdOptions& options) override
    {
        calls.push_back("options " + request.commandContext + " " + request.commandName);
        options = defaults;
        return KFR::ok;
    }
    KFRResult executeCommand(appfw::CmdInvocationRequest const& request,
                             appfw::CmdOptions const& options,
                             appfw::CmdParameters const& parameters) override
    {
        calls.push_back("execute " + request.commandContext + " " + request.commandName);
        executions.push_back({request.commandContext, request.commandName, options, parameters});
        return 4712;
    }
    KFRResult createCommand(appfw::CmdInvocationRequest const& request,
                            KFRSmartPointer<appfw::ICmdCommandInterface>& command) override
    {
        calls.push_back("create " + request.commandContext + " " + request.commandName);
        auto const known = commands.find({request.commandContext, request.commandName});
        if (known == commands.end()) {
            return KFR::notDone;
        }
        command = known->second;
        return KFR::ok;
    }
};

class FakeExecutive final : public KFRServiceObjectImpl<appfw::KFRIGuiExecutive> {
public:
    struct Run {
        std::string name;
        KFRAny parameters;
    };
    struct Box {
        icu::UnicodeString title, text, first, second, third;
        int kind;
    };

    std::vector<Run> runs;
    std::vector<Box> boxes;
    KFRResult answer = KFR::ok;

    KFRResult run(std::string const& name, KFRAny const& parameters) override
    {
        runs.push_back({name, parameters});
        return 4713;
    }
    KFRResult messageBox(icu::UnicodeString const& title, icu::UnicodeString const& text,
                         icu::UnicodeString const& first, icu::UnicodeString const& second,
                         icu::UnicodeString const& third, int kind) override
    {
        boxes.push_back({title, text, first, second, third, kind});
        return answer;
    }
};

class FakeTransaction final : public KFRServiceObjectImpl<appfw::KFRITransactionInterface> {
public:
    explicit FakeTransaction(std::function<void()> atEnd) : m_atEnd(std::move(atEnd)) {}
    KFRResult end() override
    {
        m_atEnd();
        return KFR::notDone;
    }

private:
    std::function<void()> m_atEnd;
};

class FakeTransactionBroker final
    : public KFRServiceObjectImpl<appfw::KFRITransactionBrokerFactoryInterface> {
public:
    std::function<void()> atCreate = [] {
    };
    std::function<void()> atEnd = [] {
    };

    KFRResult createTransaction(
        KFRSmartPointer<appfw::KFRITransactionInterface>& transaction) override
    {
        atCreate();
        transaction = KFR::make<FakeTransaction>(atEnd);
        return KFR::notDone;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
