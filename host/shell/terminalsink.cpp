#include "host/shell/terminalsink.h"

#include <unicode/uchar.h>

namespace vrn::orlo::host::shell {

namespace {

char const* prefixOf(appfw::Severity severity)
{
    switch (severity) {
        case appfw::Severity::error:
            return "error: ";
        case appfw::Severity::warning:
            return "warning: ";
        case appfw::Severity::information:
        case appfw::Severity::plain:
            break;
    }
    return "note: ";
}

}  // namespace

std::string toUtf8(icu::UnicodeString const& text)
{
    std::string utf8;
    return text.toUTF8String(utf8);
}

std::string toLine(icu::UnicodeString const& text)
{
    icu::UnicodeString line(text);
    for (int i = 0; i < line.length(); ++i) {
        if (u_iscntrl(line.charAt(i)) != 0) {
            line.setCharAt(i, u' ');
        }
    }
    return toUtf8(line);
}

void tell(TerminalSink const& sink, appfw::Severity severity, icu::UnicodeString const& text)
{
    if (sink) {
        sink(severity, prefixOf(severity) + toLine(text));
    }
}

}  // namespace vrn::orlo::host::shell
