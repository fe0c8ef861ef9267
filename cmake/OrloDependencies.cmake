# Every library that the project links, in one place. scripts/setup.sh installs the packages.
include_guard(GLOBAL)

find_package(Threads REQUIRED)
find_package(ICU 70 REQUIRED COMPONENTS uc i18n io data)
find_package(absl REQUIRED)
find_package(TBB REQUIRED)
find_package(pugixml REQUIRED)
find_package(spdlog REQUIRED)
find_package(yaml-cpp REQUIRED)
find_package(SQLite3 REQUIRED)

# Transforms: MKL where it is found, else FFTW behind the same calls.
find_package(MKL CONFIG QUIET)
if(NOT MKL_FOUND)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(FFTW3 REQUIRED IMPORTED_TARGET fftw3)
endif()

if(ORLO_HOST_CAD)
    find_package(OpenCASCADE REQUIRED)  # 7.6; its package accepts no "or newer"
    find_package(nlohmann_json REQUIRED)
    find_package(CLI11 REQUIRED)
    # The mesher: its package has no CMake configuration.
    find_library(GMSH_LIBRARY gmsh REQUIRED)
    find_path(GMSH_INCLUDE_DIR gmsh.h REQUIRED)
endif()
if(ORLO_BUILD_TESTS)
    find_package(GTest REQUIRED)
endif()
