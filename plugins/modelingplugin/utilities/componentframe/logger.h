/// \file
/// The debug log, steered by environment variables alone.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <climits>
#include <set>
#include <sstream>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// For a developer who runs the application from a console. It shares nothing with LogHelper; not
/// even the direction of its filter, where a lower number lets more through.
///
/// Failure    Silent.
/// Threads    Main thread, no lock.
/// Cost       The tests are one comparison when the log is off.
class MODELING_API Logger {
public:
    Logger() = delete;

    /// Reads, in this order, and stops without a word at the first that cannot be read:
    ///   MODELING_LOG_FILTER, else LogFilter   the filter; without both the rest is not read
    ///   args                                  "-console" anywhere in it: to the standard output
    ///   MODELING_LOG_SCOPE                    up to ten scopes, with '|' between them; empty for
    ///                                         all
    ///   OutputDebugString                     exactly "true": to the debug output
    /// With a filter the log goes to the framework's log as well.
    static void initialize();
    static void uninitialize();

    static bool enableDebugLog() { return s_filter < 1; }
    /// For one subsystem, by its short tag: "MBHelper".
    static bool enableDebugLog(std::string const& scope)
    {
        return s_filter <= 0 && (s_scopes.empty() || s_scopes.contains(scope));
    }
    /// The same, making no text of the tag while the log is off.
    static bool enableDebugLog(char const* scope)
    {
        return s_filter <= 0 && enableDebugLog(std::string(scope));
    }
    static bool enableErrorLog() { return s_filter < 4; }

    /// To every place that initialize() switched on. The level is not used.
    static void write(std::string const& text, int level);

private:
    static int s_filter;
    static bool s_console;
    static bool s_framework;
    static bool s_debugOutput;
    static std::set<std::string> s_scopes;
};

/// Collects a text and writes it when it goes.
///
/// \code
/// if (Logger::enableDebugLog("MBHelper")) {
///     ScopeLog log(0);
///     log.stream() << "nodes " << count;
/// }
/// \endcode
class MODELING_API ScopeLog {
public:
    explicit ScopeLog(int level);
    ScopeLog(ScopeLog const&) = delete;
    ScopeLog& operator=(ScopeLog const&) = delete;
    /// Writes what is left, also when that is nothing.
    ~ScopeLog();

    std::ostringstream& stream() { return m_stream; }
    /// Writes what is there and begins anew.
    void sink();

private:
    int m_level;
    std::ostringstream m_stream;
};

/// Texts that are exported by name. Nothing here reads them.
namespace logconstants {
MODELING_API extern char const* const kKeep;
MODELING_API extern char const* const kCodes1;
MODELING_API extern char const* const kCodes2;
MODELING_API extern char const* const kCodes3;
MODELING_API extern char const* const kCodes4;
}  // namespace logconstants

}  // namespace vrn::orlo::plugin::modeling
