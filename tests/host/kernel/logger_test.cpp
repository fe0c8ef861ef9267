#include "host/kernel/logger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::host::kernel {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(Logger, WritesItsLevelAndAboveAndTakesNoTextForAFormat)
{
    ::testing::internal::CaptureStderr();
    auto const logger = KFR::make<Logger>(LogLevel::warning);
    logger->log("quiet", 1);
    logger->log("half {} done %n", 2);
    logger->log("far too quiet", -5);
    logger->log("far too loud", 9);
    std::string const written = ::testing::internal::GetCapturedStderr();
    EXPECT_THAT(written, Not(HasSubstr("quiet")));
    EXPECT_THAT(written, HasSubstr("warning half {} done %n\n"));
    EXPECT_THAT(written, HasSubstr("error   far too loud\n"));
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
