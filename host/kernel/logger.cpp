#include "host/kernel/logger.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <spdlog/logger.h>
#include <spdlog/sinks/stdout_sinks.h>

namespace vrn::orlo::host::kernel {

namespace {

constexpr std::array kLevels{
    spdlog::level::debug,
    spdlog::level::info,
    spdlog::level::warn,
    spdlog::level::err,
};

spdlog::level::level_enum toSpdlog(int level)
{
    return kLevels[static_cast<std::size_t>(std::clamp(level, 0, 3))];
}

}  // namespace

Logger::Logger(LogLevel level)
    : m_logger(std::make_unique<spdlog::logger>("orlo",
                                                std::make_shared<spdlog::sinks::stderr_sink_mt>()))
{
    m_logger->set_pattern("%H:%M:%S.%e %-7l %v");
    m_logger->set_level(toSpdlog(static_cast<int>(level)));
}

Logger::~Logger() = default;

KFRResult Logger::log(std::string const& text, int level)
{
    m_logger->log(toSpdlog(level), spdlog::string_view_t(text));
    return KFR::ok;
}

KFRResult Logger::log(std::string const& text, LogLevel level)
{
    return log(text, static_cast<int>(level));
}

}  // namespace vrn::orlo::host::kernel
