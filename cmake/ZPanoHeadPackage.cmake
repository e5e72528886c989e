# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# What find_package(ZPanoHead) finds once the tree is installed. Which files go where is told by the
# folders that make them.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/ZPanoHead")
configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/ZPanoHeadConfig.cmake.in"
    "${CMAKE_CURRENT_BINARY_DIR}/ZPanoHeadConfig.cmake"
    INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file(
    "${CMAKE_CURRENT_BINARY_DIR}/ZPanoHeadConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/ZPanoHeadConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/ZPanoHeadConfigVersion.cmake"
    DESTINATION "${package_folder}")
install(EXPORT ZPanoHeadTargets NAMESPACE ZPanoHead:: DESTINATION "${package_folder}")

install(FILES LICENSE docs/hosting.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY examples/minimal-host DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples")
