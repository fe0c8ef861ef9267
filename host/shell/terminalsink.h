/// \file
/// Where the shell's lines go, and how they are worded.

#pragma once

#include "platform/appfw/severity.h"

#include <unicode/unistr.h>

#include <functional>
#include <string>

namespace vrn::orlo::host::shell {

/// Takes one line for the terminal, UTF-8, without a line end. An empty sink swallows.
using TerminalSink = std::function<void(appfw::Severity severity, std::string const& line)>;

[[nodiscard]] std::string toUtf8(icu::UnicodeString const& text);

/// The text as UTF-8 on one line: each line end or other control character becomes a blank.
[[nodiscard]] std::string toLine(icu::UnicodeString const& text);

/// Says a text behind "error: ", "warning: " or, for the two lower severities, "note: ".
void tell(TerminalSink const& sink, appfw::Severity severity, icu::UnicodeString const& text);

}  // namespace vrn::orlo::host::shell
