#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"

#include "platform/appfw/guiexecutive.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

using appfw::CmdInvocationRequest;
using appfw::CmdOptions;
using appfw::CmdParameters;
using KFR::NULLSP;

namespace {

using Command = KFRSmartPointer<appfw::ICmdCommandInterface>;
using Processor = KFRSmartPointer<appfw::ICmdProcessorInterface>;

constexpr char const* kOwnContext = "VRN.ModelingPlugin";

Processor commandProcessor()
{
    return KFR::strict_cast<appfw::ICmdProcessorInterface>(ServiceHelper::getCmdProcessor());
}

/// A command with its own options, which `change` may change; null for a command nobody knows.
template <class Change>
Command makeCommand(std::string const& name, std::string const& context, Change const& change)
{
    CmdInvocationRequest const request{context, name, {}};
    Processor const processor = commandProcessor();
    Command command;
    if (processor != NULLSP) {
        static_cast<void>(processor->createCommand(request, command));
    }
    if (command != NULLSP) {
        CmdOptions options;
        static_cast<void>(processor->getCommandOptions(request, options));
        change(options);
        static_cast<void>(command->setOptions(options));
    }
    return command;
}

auto withFlags(bool undoable, bool silent)
{
    return [undoable, silent](CmdOptions& options) {
        options.m_undoable = undoable ? 1 : 0;
        options.m_silent = silent ? 1 : 0;
        if (!undoable) {
            options.m_macro = 0;
        }
    };
}

KFRResult noCommand()
{
    KFRResult result(KFR::notDone);
    result.addParam("Command not exist.");
    return result;
}

}  // namespace

CmdInvoker::CmdInvoker(std::string const& name, std::string const& context)
    : m_command(makeCommand(name, context, [](CmdOptions&) {}))
{
}

CmdInvoker::CmdInvoker(std::string const& name, bool undoable, bool silent,
                       std::string const& context)
    : m_command(makeCommand(name, context, withFlags(undoable, silent)))
{
}

void CmdInvoker::initCommandSync(std::string const& name, bool undoable, bool silent,
                                 std::string const& context)
{
    m_command = makeCommand(name, context, withFlags(undoable, silent));
}

CmdInvocationRequest CmdInvoker::getInvocationRequest(std::string const& name,
                                                      std::string const& context)
{
    CmdInvocationRequest request{kOwnContext, name, {}};
    if (Processor const processor = commandProcessor(); processor != NULLSP) {
        Command known;
        if (!processor->createCommand(request, known).isOk() || known == NULLSP) {
            request.commandContext = context;
        }
    }
    return request;
}

KFRResult CmdInvoker::invoke(CmdParameters const& params)
{
    if (m_command == NULLSP) {
        return noCommand();
    }
    static_cast<void>(m_command->execute(params));
    return KFR::ok;
}

KFRResult CmdInvoker::invoke(DataBunch const& params)
{
    return invoke(params.toCmdParams());
}

KFRResult CmdInvoker::invokeAsync(DataBunch const& params)
{
    if (m_command == NULLSP) {
        return noCommand();
    }
    std::string const name = std::string(kOwnContext) + ".WorkThreadCommandRequest";
    DataBunch const request{{"command", m_command}, {"param", params.toCmdParams()}};
    auto const executive =
        KFR::strict_cast<appfw::KFRIGuiExecutive>(ServiceHelper::getGuiExeutive());
    return executive != NULLSP ? executive->run(name, request.toKFRAny()) : KFR::notDone;
}

KFRAny CmdInvoker::getReturnValue() const
{
    return m_command != NULLSP ? m_command->getReturnValue() : KFRAny();
}

DataBunch CmdInvoker::getOutputParams()
{
    return m_command != NULLSP ? DataBunch(m_command->getOutputParams()) : DataBunch();
}

CmdOptions CmdInvoker::getOptions()
{
    return m_command != NULLSP ? m_command->getOptions() : CmdOptions();
}

void CmdInvoker::setOptions(CmdOptions const& options)
{
    if (m_command != NULLSP) {
        static_cast<void>(m_command->setOptions(options));
    }
}

KFRSmartPointer<appfw::IURCommandInterface> CmdInvoker::getURCommand()
{
    return m_command != NULLSP ? m_command->getURCommand()
                               : KFRSmartPointer<appfw::IURCommandInterface>();
}

}  // namespace vrn::orlo::plugin::modeling
