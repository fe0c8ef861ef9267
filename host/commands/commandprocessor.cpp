#include "host/commands/commandprocessor.h"

#include "host/commands/commandfailure.h"

namespace vrn::orlo::host::commands {

namespace {

class FunctionCommand final : public HostCommand {
public:
    explicit FunctionCommand(CommandProcessor::Function function) : m_function(std::move(function))
    {
    }

private:
    KFRResult run(appfw::CmdParameters const& parameters, CommandRun&) override
    {
        return m_function(parameters);
    }
    [[nodiscard]] bool leavesSteps() const noexcept override { return false; }

    CommandProcessor::Function m_function;
};

KFRResult unknownCommand(appfw::CmdInvocationRequest const& request)
{
    return failure(kUnknownCommand, "Nobody has registered the command " + request.commandName +
                                        " of " + request.commandContext + ".");
}

}  // namespace

CommandProcessor::CommandProcessor(KFRSmartPointer<KFRIEventManagerInterface> const& events,
                                   Options const& options)
{
    UndoStack::Told told = [domain = model::EventDomain(events, kHistoryDomain)](
                               HistoryEvent event, std::string const& step) {
        domain.publish(event, {{"name", KFRAny(step)}});
    };
    m_link = std::shared_ptr<ProcessorLink>(
        new ProcessorLink{model::EventDomain(events, kProcessorDomain),
                          UndoStack(options.m_undoDepth, std::move(told))});
}

KFRResult CommandProcessor::registerCommand(std::string const& context, std::string const& name,
                                            appfw::CmdOptions const& defaults, Factory factory)
{
    bool const isNew =
        m_commands.try_emplace({context, name}, Registration{defaults, std::move(factory)}).second;
    return isNew ? KFRResult(KFR::ok)
                 : failure(kNameInUse,
                           "The command " + name + " of " + context + " is registered already.");
}

KFRResult CommandProcessor::registerFunction(std::string const& context, std::string const& name,
                                             Function function)
{
    appfw::CmdOptions defaults;
    defaults.m_undoable = 0;
    return registerCommand(context, name, defaults, [function = std::move(function)] {
        return KFR::make<FunctionCommand>(function);
    });
}

KFRResult CommandProcessor::getCommandOptions(appfw::CmdInvocationRequest const& request,
                                              appfw::CmdOptions& options)
{
    auto const found = m_commands.find({request.commandContext, request.commandName});
    if (found == m_commands.end()) {
        return unknownCommand(request);
    }
    options = found->second.m_defaults;
    return KFR::ok;
}

KFRResult CommandProcessor::executeCommand(appfw::CmdInvocationRequest const& request,
                                           appfw::CmdOptions const& options,
                                           appfw::CmdParameters const& parameters)
{
    KFRSmartPointer<appfw::ICmdCommandInterface> command = request.command;
    if (command == KFR::NULLSP) {
        if (KFRResult const made = createCommand(request, command); !made.isOk()) {
            return made;
        }
    }
    command->setOptions(options);
    return command->execute(parameters);
}

KFRResult CommandProcessor::createCommand(appfw::CmdInvocationRequest const& request,
                                          KFRSmartPointer<appfw::ICmdCommandInterface>& command)
{
    auto const found = m_commands.find({request.commandContext, request.commandName});
    if (found == m_commands.end()) {
        return unknownCommand(request);
    }
    Registration const registration = found->second;  // the factory may register more
    std::string const what = "Making the command " + request.commandName;
    return guarded(what, [&] {
        KFRSmartPointer<HostCommand> const made = registration.m_factory();
        if (made == KFR::NULLSP) {
            return failure(kUnknownCommand, what + ": its factory gave nothing.");
        }
        made->connect(request.commandContext, request.commandName, registration.m_defaults, m_link);
        command = made;
        return KFRResult(KFR::ok);
    });
}

}  // namespace vrn::orlo::host::commands
