#include "apps/orlo/console.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace vrn::orlo::app {

namespace {

void writeLine(std::string_view prefix, std::string_view text)
{
    std::string line(prefix);
    line.append(text);
    std::replace(line.begin(), line.end(), '\n', ' ');
    line.push_back('\n');
    std::fflush(stdout);  // what was said before comes before, also where both go to one place
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void reportError(std::string_view text)
{
    writeLine("orlo: ", text);
}

void reportWarning(std::string_view text)
{
    writeLine("warning: ", text);
}

void reportLine(std::string_view line)
{
    writeLine("", line);
}

ProgressLine::ProgressLine() : m_isTerminal(::isatty(STDERR_FILENO) != 0)
{
}

ProgressLine::~ProgressLine()
{
    wipe();
}

void ProgressLine::show(double fraction, std::string const& step)
{
    int const percent = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100.0);
    if (!m_isTerminal || (percent == m_percent && step == m_step)) {
        return;
    }
    m_percent = percent;
    m_step = step;
    m_isDrawn = true;
    std::fprintf(stderr, "\r\033[K%3d %%  %s", percent, step.c_str());
    std::fflush(stderr);
}

void ProgressLine::wipe()
{
    if (m_isDrawn) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        m_isDrawn = false;
    }
}

}  // namespace vrn::orlo::app
