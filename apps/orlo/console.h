/// \file
/// What the command line says besides its results: progress, warnings, errors. All of it goes to
/// the standard error stream, so that the results can be piped.

#pragma once

#include <string>
#include <string_view>

namespace vrn::orlo::app {

/// Exit statuses of `orlo`.
enum ExitStatus : int {
    kDone = 0,
    kModelRefused = 1,  ///< The model does not allow what was asked.
    kBadInput = 2,      ///< A usage or input error.
    kToolFailed = 3,    ///< A tool or a part of the host failed.
};

/// One line, "orlo: " and the text, with line ends in it made into spaces.
void reportError(std::string_view text);
/// One line, "warning: " and the text.
void reportWarning(std::string_view text);
/// One line as it is.
void reportLine(std::string_view line);

/// A progress line that is drawn over and over on a terminal, and not at all elsewhere.
class ProgressLine {
public:
    ProgressLine();
    ProgressLine(ProgressLine const&) = delete;
    ProgressLine& operator=(ProgressLine const&) = delete;
    ~ProgressLine();  ///< Wipes the line.

    /// \param fraction  0 to 1
    void show(double fraction, std::string const& step);
    void wipe();

private:
    bool m_isTerminal;
    bool m_isDrawn = false;
    int m_percent = -1;
    std::string m_step;
};

}  // namespace vrn::orlo::app
