/// \file
/// What the tests of the shell share: lines for the terminal, and how texts are read.

#pragma once

#include "host/shell/terminalsink.h"
#include "platform/kfr/kfrany.h"

#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::shell {

/// Keeps the lines that a sink is given.
class Lines {
public:
    [[nodiscard]] TerminalSink sink()
    {
        return [this](appfw::Severity severity, std::string const& line) {
            m_said.emplace_back(severity, line);
        };
    }
    /// What was said since the last call.
    [[nodiscard]] std::vector<std::pair<appfw::Severity, std::string>> take()
    {
        return std::exchange(m_said, {});
    }

private:
    std::vector<std::pair<appfw::Severity, std::string>> m_said;
};

/// The text that a failing result comes with.
inline std::string reasonOf(KFRResult const& result)
{
    KFRSequence<KFRAny> const params = result.getParams();
    auto const* const text = params.empty() ? nullptr : params.front().get<std::string>();
    return text != nullptr ? *text : "no text";
}

}  // namespace vrn::orlo::host::shell
