#include "plugins/modelingplugin/utilities/componentframe/logger.h"

#include "plugins/modelingplugin/utilities/componentframe/logimpl.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr int kFrameworkLevel = 1;

/// Stands in for OutputDebugStringA, which this system does not have.
void debugOutput(char const* text)
{
    std::fputs(text, stderr);
}

}  // namespace

namespace logconstants {
char const* const kKeep = "Please do not remove this line";
char const* const kCodes1 = "1001,1003,1022";
char const* const kCodes2 = "1004,1005,1015,1020,1027";
char const* const kCodes3 = "1002,1007,1009,1011,1012,1013,1014,1018,1019";
char const* const kCodes4 = "1006,1010,1024,1025,2002";
}  // namespace logconstants

int Logger::s_filter = INT_MAX;
bool Logger::s_console = false;
bool Logger::s_framework = false;
bool Logger::s_debugOutput = false;
std::set<std::string> Logger::s_scopes;

void Logger::initialize()
{
    try {
        char const* filter = std::getenv("MODELING_LOG_FILTER");
        if (filter == nullptr) {
            filter = std::getenv("LogFilter");
        }
        if (filter == nullptr) {
            return;
        }
        s_filter = std::stoi(filter);
        s_framework = true;
        if (char const* const args = std::getenv("args");
            args != nullptr && std::string_view(args).find("-console") != std::string_view::npos) {
            s_console = true;
        }
        if (char const* const scopes = std::getenv("MODELING_LOG_SCOPE");
            scopes != nullptr && *scopes != '\0') {
            constexpr int kMost = 10;  // pieces, be they equal or empty
            std::string_view left = scopes;
            for (int piece = 0; piece < kMost; ++piece) {
                std::size_t const end = left.find('|');
                s_scopes.emplace(left.substr(0, end));
                if (end == std::string_view::npos) {
                    break;
                }
                left.remove_prefix(end + 1);
            }
        }
        if (char const* const debug = std::getenv("OutputDebugString");
            debug != nullptr && std::string_view(debug) == "true") {
            s_debugOutput = true;
        }
    } catch (std::exception const&) {
        return;  // a filter that is no number: the log stays as it is
    }
}

void Logger::uninitialize()
{
}

void Logger::write(std::string const& text, int /*level*/)
{
    if (s_console) {
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fputc('\n', stdout);
        std::fflush(stdout);
    }
    if (s_framework) {
        if (auto const logger = frameworkLogger(); logger != KFR::NULLSP) {
            static_cast<void>(logger->log(text, kFrameworkLevel));
        }
    }
    if (s_debugOutput) {
        debugOutput(text.c_str());
        debugOutput("\n");
    }
}

ScopeLog::ScopeLog(int level) : m_level(level), m_stream(std::ios_base::out)
{
}

ScopeLog::~ScopeLog()
{
    Logger::write(m_stream.str(), m_level);
}

void ScopeLog::sink()
{
    Logger::write(m_stream.str(), m_level);
    m_stream.str({});
}

}  // namespace vrn::orlo::plugin::modeling
