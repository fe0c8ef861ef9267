#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"

#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <new>
#include <utility>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr int kSpare = 1024;  // what a buffer has beyond the text that it is made for

std::string timeStamp()
{
    std::time_t const now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
    return text.data();
}

}  // namespace

LogBuffer::LogBuffer() : m_buffer(new char[kSpare]), m_capacity(kSpare)
{
}

LogBuffer::~LogBuffer()
{
    delete m_sink;
    delete[] m_buffer;
}

std::string LogBuffer::format(char const* format, std::va_list arguments)
{
    std::va_list counted;
    va_copy(counted, arguments);
    int const length = std::max(std::vsnprintf(nullptr, 0, format, counted), -1);
    va_end(counted);
    if (length < 0) {
        return {};  // the buffer still holds an older text
    }
    if (length + 2 >= m_capacity) {
        int const capacity = length + 2 + kSpare;
        delete[] std::exchange(m_buffer, nullptr);
        m_capacity = 0;  // should there be no memory for the new one
        m_buffer = new char[static_cast<std::size_t>(capacity)];
        m_capacity = capacity;
        std::fill_n(m_buffer, length + 2, '\0');
    }
    std::vsnprintf(m_buffer, static_cast<std::size_t>(m_capacity), format, arguments);
    return m_buffer;
}

void LogBuffer::writeLine(std::string const& text, int level)
{
    if (m_sink != nullptr) {
        m_sink->write(timeStamp() + " >> " + text, level);
    }
}

LogHelper* LogHelper::instance()
{
    static LogHelper log;
    return &log;
}

bool LogHelper::isAllowLog(int level)
{
    static long long filter = -1;
    if (filter == -1) {
        filter = PluginEnv::instance()->getModelingLogFilter();
    }
    return filter != -1 && level >= filter;
}

void LogHelper::logMessage(int level, char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = LogBuffer::format(format, arguments);
    va_end(arguments);
    write(text, level);
}

void LogHelper::write(std::string const& text, int level)
{
    if (m_sink == nullptr) {
        if (!m_enabled) {
            return;
        }
        m_sink = new (std::nothrow) KFRLogImpl;
    }
    writeLine(text, level);
}

void LogHelper::release()
{
    delete std::exchange(m_sink, nullptr);
    m_enabled = false;
}

PerformanceLogger* PerformanceLogger::instance()
{
    static PerformanceLogger log;
    return &log;
}

void PerformanceLogger::logMessage(int level, char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = LogBuffer::format(format, arguments);
    va_end(arguments);
    write(text, level);
}

void PerformanceLogger::write(std::string const& text, int level)
{
    if (m_sink == nullptr) {
        m_sink = new (std::nothrow) LogFileImpl;  // also after release(), which is meant
    }
    writeLine(text, level);
}

void PerformanceLogger::release()
{
    delete std::exchange(m_sink, nullptr);
    m_enabled = false;
}

}  // namespace vrn::orlo::plugin::modeling
