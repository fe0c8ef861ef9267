/// \file
/// The application's log.

#pragma once

#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>

namespace spdlog {
class logger;
}

namespace vrn::orlo::host::kernel {

/// Levels of messages, as KFRILoggerInterface numbers them.
enum class LogLevel : int { debug = 0, information = 1, warning = 2, error = 3 };

/// Writes to the process's error output, one line per message, with time and level in front.
///
/// Threads    Any thread; lines do not mix.
class Logger final : public KFRServiceObjectImpl<KFR::Framework::KFRILoggerInterface> {
public:
    /// \param level  the least level that is written
    explicit Logger(LogLevel level);

    /// A level outside 0 to 3 counts as the nearest. Always OK: a log that cannot be written is no
    /// reason to fail.
    KFRResult log(std::string const& text, int level) override;
    KFRResult log(std::string const& text, LogLevel level);

protected:
    ~Logger() override;

private:
    std::unique_ptr<spdlog::logger> m_logger;
};

}  // namespace vrn::orlo::host::kernel
