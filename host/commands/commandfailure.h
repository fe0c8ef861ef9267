/// \file
/// How commands fail.

#pragma once

#include "platform/kfr/kfrexception.h"
#include "platform/kfr/kfrresult.h"

#include <concepts>
#include <exception>
#include <string>

namespace vrn::orlo::host::commands {

/// Codes of what the host's command processing refuses; each comes with a text as its first
/// parameter. A command's own failure keeps its code.
enum CommandFailure : int {
    kUnknownCommand = 1,
    kBadParameters = 2,
    kThrown = 3,       ///< The command, the step or the work threw; the text is the exception's.
    kNoHistory = 4,    ///< There is nothing to undo, or to redo.
    kBusy = 5,         ///< Not while a transaction is open, a command runs, or a step is replayed.
    kNoProcessor = 6,  ///< The command processor has gone, or there is none.
    kEnded = 7,        ///< The transaction has ended already.
    kNameInUse = 8,    ///< Registrations only.
    kNoMessageBox = 9,
};

[[nodiscard]] inline KFRResult failure(int code, std::string const& text)
{
    return KFRResult(code).addParam(text);
}

/// The text of a failing result: its first parameter, where that is a text; else its code.
[[nodiscard]] std::string failureText(KFRResult const& result);

/// What `action` answers; what it throws as a failure that begins with `what`.
template <std::invocable Action>
[[nodiscard]] KFRResult guarded(std::string const& what, Action&& action)
{
    try {
        return action();
    } catch (std::exception const& thrown) {  // the framework's exceptions are among them
        return failure(kThrown, what + ": " + thrown.what());
    } catch (...) {
        return failure(kThrown, what + ": an exception that is none of the standard's");
    }
}

}  // namespace vrn::orlo::host::commands
