/// \file
/// The application's queue of work.

#pragma once

#include "platform/appfw/commands.h"
#include "platform/appfw/guiexecutive.h"
#include "platform/kfr/kfrserviceobject.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace vrn::orlo::host::commands {

/// Runs work for later, and commands, without a window: what is queued runs when the main thread
/// calls pump(). The main thread is the one that made the executive; it is the work thread as well.
///
/// What run() takes, with CmdParameters as its parameters:
///
/// - "<plug-in>.ModelingWorkCommand": "workCommand", a KFRIWorkCommandInterface; "showWait" and
///   "queueAlways", truth values. Queued when "queueAlways" is true; otherwise run at once where
///   the main thread asks and nothing is queued, and queued where not.
/// - "<plug-in>.WorkThreadCommandRequest": "command", an ICmdCommandInterface; "param", its
///   CmdParameters. Queued.
/// - "<context>.<command>", divided at the last point: through the command processor with the
///   command's default options, at once on the main thread, queued from others.
///
/// Order      As queued.
/// Failure    Of run(): kBadParameters, which queues nothing; the answer of what ran at once, with
///            kThrown for what it threw; OK for what is queued. What fails in the queue is logged,
///            and the rest of the queue runs on.
/// Ownership  Holds the processor. What is queued at the executive's end is dropped unrun.
/// Threads    run(): any. The rest: main thread. No lock is held while anything is called.
class Executive final : public KFRServiceObjectImpl<appfw::KFRIGuiExecutive> {
public:
    struct MessageBox {
        icu::UnicodeString m_title;
        icu::UnicodeString m_text;
        icu::UnicodeString m_first;
        icu::UnicodeString m_second;
        icu::UnicodeString m_third;
        int m_kind;
    };
    struct Options {
        /// Null for an executive that runs no commands by name.
        KFRSmartPointer<appfw::ICmdProcessorInterface> m_processor;
        /// Called with true before and false after work that asks for the wait cursor, even where
        /// it throws; may be empty. What it throws itself is logged.
        std::function<void(bool)> m_showWait;
        /// Answers messageBox(); without one, that fails with kNoMessageBox.
        std::function<KFRResult(MessageBox const&)> m_messageBox;
    };

    explicit Executive(Options options);

    KFRResult run(std::string const& name, KFRAny const& parameters) override;
    KFRResult messageBox(icu::UnicodeString const& title, icu::UnicodeString const& text,
                         icu::UnicodeString const& first, icu::UnicodeString const& second,
                         icu::UnicodeString const& third, int kind) override;

    /// Runs what is queued, and what that queues meanwhile, until nothing is left.
    ///
    /// Failure    std::logic_error on another thread.
    /// \return how many pieces of work this call has run; a call within one counts its own
    std::size_t pump();

    /// How many pieces of work are queued. On any thread.
    [[nodiscard]] std::size_t queued();

    std::string getObjectName() override { return "vrn.orlo.host.commands:Executive"; }

private:
    struct Item {
        std::string m_name;
        std::function<KFRResult()> m_work;
        bool m_showWait = false;
    };

    KFRResult runWorkCommand(std::string const& name, appfw::CmdParameters const& parameters);
    KFRResult queueCommand(std::string const& name, appfw::CmdParameters const& parameters);
    KFRResult runByName(std::string const& name, appfw::CmdParameters const& parameters);
    KFRResult runNow(Item const& item);
    void showWait(bool begins) noexcept;
    KFRResult queue(Item item);
    [[nodiscard]] bool isMainThread() const noexcept
    {
        return std::this_thread::get_id() == m_mainThread;
    }

    Options const m_options;
    std::thread::id const m_mainThread = std::this_thread::get_id();
    std::mutex m_mutex;  // guards the queue; never held while anything is called
    std::deque<Item> m_queue;
};

}  // namespace vrn::orlo::host::commands
