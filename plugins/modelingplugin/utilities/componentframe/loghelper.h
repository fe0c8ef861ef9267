/// \file
/// The leveled log and the performance log.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/logimpl.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <cstdarg>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// What the two logs share: the buffer that a line is formatted in, and the writing of a line with
/// its time. A line is "YYYY-MM-DD hh:mm:ss >> " in local time, and the text.
///
/// Copy-assignment copies the members as they are, and with them the ownership of sink and buffer:
/// it is there for callers that link against it, and not to be used.
class MODELING_API LogBuffer {
public:
    LogBuffer(LogBuffer const&) = delete;
    LogBuffer& operator=(LogBuffer const&) = default;

protected:
    LogBuffer();
    ~LogBuffer();

    /// Formats by the rules of printf. A format that fails gives the empty text.
    /// \return the text, which the buffer keeps the room for
    std::string format(char const* format, std::va_list arguments);
    /// Writes the line, if there is a sink.
    void writeLine(std::string const& text, int level);

    // Owned, and in this order.
    LogImpl* m_sink = nullptr;
    char* m_buffer;
    int m_capacity;
    bool m_enabled = true;
};

/// The library's log for developers. Levels: 0 debug, 1 information, 2 warning, 3 error.
///
/// Call sites ask isAllowLog() before they build a text; logMessage() itself lets everything
/// through. Lines go to the framework's log.
///
/// Failure    Silent.
/// Threads    Main thread: one buffer serves all.
/// Cost       isAllowLog: one comparison after the first call.
class MODELING_API LogHelper : private LogBuffer {
public:
    static LogHelper* instance();

    /// Whether `level` is at or above the developers' setting, which is read once per process.
    /// Without the setting nothing is let through but the level 4, which no message has.
    static bool isAllowLog(int level);

    void logMessage(int level, char const* format, ...) __attribute__((format(printf, 3, 4)));
    void write(std::string const& text, int level);
    /// Ends the log: later writes do nothing.
    void release();

    LogHelper& operator=(LogHelper const&) = default;

private:
    LogHelper() = default;
    ~LogHelper() = default;
};

/// Times of long operations, in a file of its own in the plug-in's folder. Callers ask
/// PluginEnv::isEnablePerformanceLog() first.
///
/// Failure    Silent.
/// Threads    Main thread.
class MODELING_API PerformanceLogger : private LogBuffer {
public:
    static PerformanceLogger* instance();

    void logMessage(int level, char const* format, ...) __attribute__((format(printf, 3, 4)));
    void write(std::string const& text, int level);
    /// Closes the file. Unlike with LogHelper a later write makes a new one.
    void release();

    PerformanceLogger& operator=(PerformanceLogger const&) = default;

private:
    PerformanceLogger() = default;
    ~PerformanceLogger() = default;
};

}  // namespace vrn::orlo::plugin::modeling
