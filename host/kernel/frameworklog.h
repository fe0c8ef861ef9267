/// \file
/// The framework's log from the host's own services.

#pragma once

#include "host/kernel/logger.h"

#include "platform/kfr/kfrkernelaccess.h"

#include <string>

namespace vrn::orlo::host::kernel {

/// Writes one line through the framework's logger; nothing before there is one, or after.
inline void logToFramework(std::string const& text, LogLevel level)
{
    if (auto const kernel = KFR::Framework::getKernelAccessInterface(); kernel != KFR::NULLSP) {
        if (auto const logger = kernel->getLogger(); logger != KFR::NULLSP) {
            logger->log(text, static_cast<int>(level));
        }
    }
}

}  // namespace vrn::orlo::host::kernel
