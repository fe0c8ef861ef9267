/// \file
/// Mesh files for tests: real ones from the shared folder, and texts.

#pragma once

#include "host/meshing/abaqusreader.h"

#include "tests/support/shareddata.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace vrn::orlo::host::meshing {

/// Tests on real mesh files.
class RealMesh : public test::WithSharedData {
protected:
    [[nodiscard]] static std::filesystem::path meshFile(std::string const& name)
    {
        return sharedFile("mesh", name);
    }
};

/// A folder of its own for each test, removed at the end.
class WithMeshFolder : public ::testing::Test {
protected:
    WithMeshFolder()
    {
        auto const* const test = ::testing::UnitTest::GetInstance()->current_test_info();
        m_folder = std::filesystem::path(::testing::TempDir()) /
                   (std::string("meshing_") + test->test_suite_name() + "." + test->name());
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
    }
    ~WithMeshFolder() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    [[nodiscard]] std::filesystem::path const& folder() const { return m_folder; }
    std::filesystem::path write(std::string const& name, std::string const& content) const
    {
        std::ofstream(m_folder / name, std::ios::binary) << content;
        return m_folder / name;
    }

private:
    std::filesystem::path m_folder;
};

}  // namespace vrn::orlo::host::meshing
