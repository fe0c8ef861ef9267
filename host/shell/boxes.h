/// \file
/// Answers to boxes, where nobody sits to give them.

#pragma once

#include "host/shell/terminalsink.h"
#include "platform/kfr/kfrresult.h"

#include <unicode/unistr.h>

#include <deque>
#include <string>
#include <vector>

namespace vrn::orlo::host::shell {

/// A box that was shown, and its answer.
struct BoxQuestion {
    icu::UnicodeString m_title;
    icu::UnicodeString m_text;
    std::vector<icu::UnicodeString> m_buttons;  ///< At its number less 1; empty for none.
    int m_answer = 0;                           ///< Number of the button: 1, 2 or 3.
    bool m_scripted = false;                    ///< False where the safe answer was given.
};

/// Answers boxes from a script, in the order in which they come.
///
/// A button without a text, or with that of a button before it, is none. Where the script has no
/// answer, or one that fits no button, the last button is taken, by custom the one that changes
/// nothing, and a warning goes to the sink.
///
/// Failure    A box tells by failing that it was not its first button: the code is the number of
///            the button. The text of the warning, where there was one, is the first parameter.
/// Threads    Main thread.
class Boxes {
public:
    /// \param script  answers, UTF-8: the text of a button, else its number "1", "2" or "3"
    Boxes(std::vector<std::string> const& script, TerminalSink sink);

    /// \return KFR::ok for the first button
    KFRResult ask(icu::UnicodeString const& title, icu::UnicodeString const& text,
                  icu::UnicodeString const& first, icu::UnicodeString const& second,
                  icu::UnicodeString const& third);

    /// All boxes so far, in their order.
    [[nodiscard]] std::vector<BoxQuestion> const& log() const noexcept { return m_log; }

    /// Answers of the script that no box has used.
    [[nodiscard]] std::deque<std::string> const& unused() const noexcept { return m_script; }

private:
    std::deque<std::string> m_script;
    TerminalSink m_sink;
    std::vector<BoxQuestion> m_log;
};

}  // namespace vrn::orlo::host::shell
