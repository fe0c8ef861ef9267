/// \file
/// The framework's log, for modules that do not hold a logger.

#pragma once

#include "host/kernel/logger.h"

#include "platform/kfr/kfrkernelaccess.h"

#include <exception>
#include <string>

namespace vrn::orlo::host::kernel {

/// Writes a line through the logger of the kernel that is set; nothing without one.
///
/// Failure    None: a log that cannot be written is no reason to fail.
/// Threads    Any thread.
inline void logToFramework(std::string const& text, LogLevel level) noexcept
{
    try {
        if (auto const access = KFR::Framework::getKernelAccessInterface(); access != KFR::NULLSP) {
            if (auto const logger = access->getLogger(); logger != KFR::NULLSP) {
                logger->log(text, static_cast<int>(level));
            }
        }
    } catch (std::exception const&) {
        return;  // there is nobody left to tell
    }
}

}  // namespace vrn::orlo::host::kernel
