/// \file
/// Tests of what happens once per process.

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

/// Calls the lambda, which holds the expectations, in a process whose statics nobody has touched:
/// this program is started again for it. The test must touch nothing itself before.
#define EXPECT_HOLDS_IN_FRESH_PROCESS(...)                        \
    do {                                                          \
        GTEST_FLAG_SET(death_test_style, "threadsafe");           \
        EXPECT_EXIT(                                              \
            {                                                     \
                (__VA_ARGS__)();                                  \
                std::exit(::testing::Test::HasFailure() ? 1 : 0); \
            },                                                    \
            ::testing::ExitedWithCode(0), "");                    \
    } while (false)
