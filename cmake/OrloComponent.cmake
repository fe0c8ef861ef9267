include_guard(GLOBAL)
include(GNUInstallDirs)

# The one compile policy of the tree. -ffp-contract=off keeps a*b+c the same on every machine:
# tolerances of 1e-6 and 5e-9 are compared against such sums.
add_library(orlo_policy INTERFACE)
target_compile_features(orlo_policy INTERFACE cxx_std_20)
target_compile_options(orlo_policy INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off
    # g++ 12 sees overlaps in std::string's own concatenation (its bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${ORLO_WERROR}>:-Werror>)

# orlo_add_component(<name> [SHARED|STATIC|INTERFACE] [INSTALL]
#     [EXPORT_NAME <n>] HEADERS ... [TABLES ...] SOURCES ...
#     [DEPENDS ...] [PRIVATE_DEPENDS ...] [PRECOMPILE ...])
#
# One library of the tree. The one include root is the project's, so an
# include is always written with its folder. TABLES are .def lists: installed beside the headers, but
# not compiled on their own. INSTALL puts the library and its headers into the CMake package.
function(orlo_add_component name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "SHARED;STATIC;INTERFACE;INSTALL"
        "EXPORT_NAME" "HEADERS;TABLES;SOURCES;DEPENDS;PRIVATE_DEPENDS;PRECOMPILE")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "orlo_add_component(${name}): unknown ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT arg_EXPORT_NAME)
        set(arg_EXPORT_NAME ${name})
    endif()

    set(scope PUBLIC)
    if(arg_INTERFACE)
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
    elseif(arg_SHARED)
        add_library(${name} SHARED)
    else()
        add_library(${name} STATIC)
    endif()
    add_library(orlo::${arg_EXPORT_NAME} ALIAS ${name})

    target_sources(${name}
        ${scope} FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_HEADERS}
        ${scope} FILE_SET tables TYPE HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_TABLES})
    target_compile_features(${name} ${scope} cxx_std_20)
    target_link_libraries(${name} ${scope} ${arg_DEPENDS})
    if(NOT arg_INTERFACE)
        target_sources(${name} PRIVATE ${arg_SOURCES})
        target_link_libraries(${name} PRIVATE ${arg_PRIVATE_DEPENDS} $<BUILD_INTERFACE:orlo_policy>)
        set_target_properties(${name} PROPERTIES
            CXX_VISIBILITY_PRESET hidden
            VISIBILITY_INLINES_HIDDEN ON
            POSITION_INDEPENDENT_CODE ON
            INSTALL_RPATH "$ORIGIN")      # the libraries of the package find each other
        if(arg_PRECOMPILE)
            target_precompile_headers(${name} PRIVATE ${arg_PRECOMPILE})
        endif()
    endif()
    set_target_properties(${name} PROPERTIES
        EXPORT_NAME ${arg_EXPORT_NAME}
        CXX_EXTENSIONS OFF
        VERIFY_INTERFACE_HEADER_SETS ON     # each header must compile on its own
        INTERFACE_HEADER_SETS_TO_VERIFY HEADERS)

    if(arg_INSTALL)
        install(TARGETS ${name} EXPORT ModelingPluginUtilitiesTargets
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orlo
            FILE_SET tables DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orlo)
    endif()
endfunction()

# For programs run under the address sanitizer: the geometry kernel's own leaks are none of ours.
set(ORLO_SANITIZER_ENV "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0")

# orlo_add_test(<name> SOURCES ... DEPENDS ... [LABELS ...]): one program per subsystem, one ctest
# case per TEST, each in a process of its own, so that statics start afresh.
function(orlo_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;LABELS")
    if(NOT arg_LABELS)
        set(arg_LABELS ${name})
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE orlo_policy ${arg_DEPENDS} GTest::gmock_main)
    set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS "${arg_LABELS}" ENVIRONMENT "${ORLO_SANITIZER_ENV}")
endfunction()

if(ORLO_BUILD_TESTS)
    include(GoogleTest)
endif()
