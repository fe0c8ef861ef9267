#include "host/shell/boxes.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::host::shell {

namespace {

using Buttons = std::vector<icu::UnicodeString>;

/// Number of the button that an answer means; 0 for none.
int buttonOf(std::string const& answer, Buttons const& buttons)
{
    auto const numberOf = [&](Buttons::const_iterator button) {
        return static_cast<int>(button - buttons.begin()) + 1;
    };
    auto const named = std::ranges::find(buttons, icu::UnicodeString::fromUTF8(answer));
    if (named != buttons.end() && !named->isEmpty()) {
        return numberOf(named);
    }
    for (auto button = buttons.begin(); button != buttons.end(); ++button) {
        if (!button->isEmpty() && answer == std::to_string(numberOf(button))) {
            return numberOf(button);
        }
    }
    return 0;
}

/// The last button there is; the first also where the box has none at all.
int safeAnswer(Buttons const& buttons)
{
    int answer = 1;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        answer = buttons[i].isEmpty() ? answer : static_cast<int>(i) + 1;
    }
    return answer;
}

std::string listOf(Buttons const& buttons)
{
    std::string list;
    for (icu::UnicodeString const& button : buttons) {
        if (!button.isEmpty()) {
            list += (list.empty() ? "\"" : ", \"") + toUtf8(button) + "\"";
        }
    }
    return list;
}

}  // namespace

Boxes::Boxes(std::vector<std::string> const& script, TerminalSink sink)
    : m_script(script.begin(), script.end()), m_sink(std::move(sink))
{
}

KFRResult Boxes::ask(icu::UnicodeString const& title, icu::UnicodeString const& text,
                     icu::UnicodeString const& first, icu::UnicodeString const& second,
                     icu::UnicodeString const& third)
{
    BoxQuestion question{title, text, {first, second, third}, 0, false};
    Buttons& buttons = question.m_buttons;
    buttons[1] = second == first ? icu::UnicodeString() : second;
    buttons[2] = third == first || third == second ? icu::UnicodeString() : third;

    std::string problem = "The script has no answer";
    if (!m_script.empty()) {
        question.m_answer = buttonOf(m_script.front(), buttons);
        problem = "The answer \"" + m_script.front() + "\" is no button";
        m_script.pop_front();
    }
    question.m_scripted = question.m_answer != 0;
    if (!question.m_scripted) {
        question.m_answer = safeAnswer(buttons);
        problem += " for the box \"" + toUtf8(text) + "\" (" + listOf(buttons) + "); taken: \"" +
                   toUtf8(buttons[static_cast<std::size_t>(question.m_answer) - 1]) +
                   "\". Script one of the buttons, by its text or number.";
        tell(m_sink, appfw::Severity::warning, icu::UnicodeString::fromUTF8(problem));
    }

    KFRResult outcome = question.m_answer == 1 ? KFR::ok : question.m_answer;
    if (!question.m_scripted) {
        outcome.addParam(problem);
    }
    m_log.push_back(std::move(question));
    return outcome;
}

}  // namespace vrn::orlo::host::shell
