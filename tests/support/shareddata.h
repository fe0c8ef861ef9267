/// \file
/// Tests on real files, which lie in a folder beside the project.

#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace vrn::orlo::test {

/// Skips its tests, with a loud line, where the folder is missing. The target defines
/// ORLO_SHARED_DATA.
class WithSharedData : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(ORLO_SHARED_DATA)) {
            GTEST_SKIP() << "REAL FILES NOT TESTED: there is no folder " << ORLO_SHARED_DATA;
        }
    }
    /// \param kind  the folder within: "step", "mesh"
    [[nodiscard]] static std::filesystem::path sharedFile(char const* kind, std::string const& name)
    {
        return std::filesystem::path(ORLO_SHARED_DATA) / kind / name;
    }
};

}  // namespace vrn::orlo::test
