# cmake --install: headers, both libraries, a CMake package and a pkg-config file.
include_guard(GLOBAL)
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ModelingPluginUtilities)
install(EXPORT ModelingPluginUtilitiesTargets NAMESPACE orlo:: DESTINATION ${package_dir})
configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/ModelingPluginUtilitiesConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ModelingPluginUtilitiesConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/ModelingPluginUtilitiesConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/ModelingPluginUtilitiesConfig.cmake
    ${PROJECT_BINARY_DIR}/ModelingPluginUtilitiesConfigVersion.cmake
    DESTINATION ${package_dir})

# Relative to the file itself, so that `cmake --install --prefix` may choose any folder.
file(RELATIVE_PATH pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/modelingpluginutilities.pc.in
    ${PROJECT_BINARY_DIR}/modelingpluginutilities.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/modelingpluginutilities.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
