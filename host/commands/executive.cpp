#include "host/commands/executive.h"

#include "host/commands/commandfailure.h"
#include "host/commands/parameters.h"
#include "host/kernel/frameworklog.h"

#include <stdexcept>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::commands {

namespace {

constexpr std::string_view kWorkCommand = "ModelingWorkCommand";
constexpr std::string_view kThreadCommand = "WorkThreadCommandRequest";

KFRResult executeByName(appfw::ICmdProcessorInterface& processor,
                        appfw::CmdInvocationRequest const& request,
                        appfw::CmdParameters const& parameters)
{
    appfw::CmdOptions options;
    if (KFRResult const known = processor.getCommandOptions(request, options); !known.isOk()) {
        return known;
    }
    return processor.executeCommand(request, options, parameters);
}

}  // namespace

Executive::Executive(Options options) : m_options(std::move(options))
{
}

KFRResult Executive::run(std::string const& name, KFRAny const& parameters)
{
    auto const point = name.rfind('.');
    if (point == std::string::npos || point == 0 || point + 1 == name.size()) {
        return failure(kBadParameters, "\"" + name +
                                           "\" does not name a command; the name must be "
                                           "\"<plug-in>.<command>\".");
    }
    auto const* const given = parameters.get<appfw::CmdParameters>();
    if (given == nullptr) {
        return failure(kBadParameters,
                       name + ": the parameters are of another kind; they must be CmdParameters.");
    }
    std::string_view const command = std::string_view(name).substr(point + 1);
    if (command == kWorkCommand) {
        return runWorkCommand(name, *given);
    }
    return command == kThreadCommand ? queueCommand(name, *given) : runByName(name, *given);
}

KFRResult Executive::runWorkCommand(std::string const& name, appfw::CmdParameters const& parameters)
{
    KFRSmartPointer<appfw::KFRIWorkCommandInterface> command;
    bool showsWait = false;
    bool isQueuedAlways = false;
    KFRResult read = readHandle(name, parameters, "workCommand", "a work command", command);
    if (read.isOk()) {
        read = readParameter(name, parameters, "showWait", "a truth value", showsWait);
    }
    if (read.isOk()) {
        read = readParameter(name, parameters, "queueAlways", "a truth value", isQueuedAlways);
    }
    if (!read.isOk()) {
        return read;
    }
    Item item{name, [command] { return command->execute(); }, showsWait};
    // Work that waits comes first, or one client's pieces of work would change places.
    if (isQueuedAlways || !isMainThread() || queued() > 0) {
        return queue(std::move(item));
    }
    return runNow(item);
}

KFRResult Executive::queueCommand(std::string const& name, appfw::CmdParameters const& parameters)
{
    KFRSmartPointer<appfw::ICmdCommandInterface> command;
    appfw::CmdParameters commandParameters;
    KFRResult read = readHandle(name, parameters, "command", "a command", command);
    if (read.isOk()) {
        read = readParameter(name, parameters, "param", "command parameters", commandParameters);
    }
    if (!read.isOk()) {
        return read;
    }
    return queue({name, [command, commandParameters] {
                      return command->execute(commandParameters);
                  }});
}

KFRResult Executive::runByName(std::string const& name, appfw::CmdParameters const& parameters)
{
    if (m_options.m_processor == KFR::NULLSP) {
        return failure(kNoProcessor, name + ": the executive has no command processor.");
    }
    auto const point = name.rfind('.');
    appfw::CmdInvocationRequest const request{name.substr(0, point), name.substr(point + 1), {}};
    Item item{name, [processor = m_options.m_processor, request, parameters] {
                  return executeByName(*processor, request, parameters);
              }};
    return isMainThread() ? runNow(item) : queue(std::move(item));
}

KFRResult Executive::runNow(Item const& item)
{
    if (item.m_showWait) {
        showWait(true);
    }
    KFRResult answer = guarded(item.m_name, item.m_work);
    if (item.m_showWait) {
        showWait(false);
    }
    return answer;
}

void Executive::showWait(bool begins) noexcept
{
    if (!m_options.m_showWait) {
        return;
    }
    KFRResult const shown = guarded("Showing the wait cursor", [this, begins] {
        m_options.m_showWait(begins);
        return KFRResult(KFR::ok);
    });
    if (!shown.isOk()) {
        kernel::logToFramework(failureText(shown), kernel::LogLevel::error);
    }
}

KFRResult Executive::queue(Item item)
{
    std::lock_guard const guard(m_mutex);
    m_queue.push_back(std::move(item));
    return KFR::ok;
}

std::size_t Executive::pump()
{
    if (!isMainThread()) {
        throw std::logic_error("Executive::pump: only the main thread runs what is queued");
    }
    KFRSmartPointer<Executive> const alive(this);  // work may drop the last handle
    for (std::size_t count = 0;; ++count) {
        Item item;
        {
            std::lock_guard const guard(m_mutex);
            if (m_queue.empty()) {
                return count;
            }
            item = std::move(m_queue.front());
            m_queue.pop_front();
        }
        if (KFRResult const answer = runNow(item); !answer.isOk()) {
            kernel::logToFramework("Queued work " + item.m_name + " failed: " + failureText(answer),
                                   kernel::LogLevel::error);
        }
    }
}

std::size_t Executive::queued()
{
    std::lock_guard const guard(m_mutex);
    return m_queue.size();
}

KFRResult Executive::messageBox(icu::UnicodeString const& title, icu::UnicodeString const& text,
                                icu::UnicodeString const& first, icu::UnicodeString const& second,
                                icu::UnicodeString const& third, int kind)
{
    if (!m_options.m_messageBox) {
        return failure(kNoMessageBox, "There is nobody to answer a message box.");
    }
    return guarded("Message box", [&] {
        return m_options.m_messageBox({title, text, first, second, third, kind});
    });
}

}  // namespace vrn::orlo::host::commands
