# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# Fetches the viewer that panohost copies into web folders: Pannellum (MIT licence), from the npm
# registry, by version and checksum. Without a network the build goes on without it.
set(viewer_version 2.5.7)
set(viewer_url "https://registry.npmjs.org/pannellum/-/pannellum-${viewer_version}.tgz")
# As the registry states it, in hexadecimal.
string(CONCAT viewer_sha512
    "00731161d2cfc5eb7084183894ee44828679e42fdefb0ac917659a150210035f"
    "0749572f2efb1d5c48c32fb5a90fc30f205c0d9c7f6aa140ec52a3fc705e2980")

set(viewer_archive "${CMAKE_BINARY_DIR}/viewer/pannellum-${viewer_version}.tgz")
set(viewer_found "")
if(EXISTS "${viewer_archive}")
    file(SHA512 "${viewer_archive}" viewer_found)
endif()
if(ZPANOHEAD_WEB_VIEWER AND NOT viewer_found STREQUAL viewer_sha512)
    # Not with EXPECTED_HASH, which would end the build where there is no network.
    file(DOWNLOAD "${viewer_url}" "${viewer_archive}"
        STATUS viewer_status INACTIVITY_TIMEOUT 20 TIMEOUT 120)
    list(GET viewer_status 0 viewer_code)
    if(viewer_code EQUAL 0)
        file(SHA512 "${viewer_archive}" viewer_found)
        if(NOT viewer_found STREQUAL viewer_sha512)
            file(REMOVE "${viewer_archive}")
            message(FATAL_ERROR "${viewer_url} is not what it should be: its checksum differs")
        endif()
    else()
        file(REMOVE "${viewer_archive}")
        list(GET viewer_status 1 viewer_problem)
        message(STATUS "panohost stitch --web will not work: ${viewer_url}: ${viewer_problem}")
    endif()
endif()
# Beside the built program as beside the installed one.
set(viewer_folder "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_DATADIR}/panohost/viewer")
set(ZPANOHEAD_HAS_VIEWER FALSE)
if(ZPANOHEAD_WEB_VIEWER AND viewer_found STREQUAL viewer_sha512)
    set(ZPANOHEAD_HAS_VIEWER TRUE)
    if(NOT EXISTS "${viewer_folder}/COPYING")
        file(ARCHIVE_EXTRACT INPUT "${viewer_archive}" DESTINATION "${CMAKE_BINARY_DIR}/viewer")
        file(COPY
            "${CMAKE_BINARY_DIR}/viewer/package/build/pannellum.js"
            "${CMAKE_BINARY_DIR}/viewer/package/build/pannellum.css"
            "${CMAKE_BINARY_DIR}/viewer/package/COPYING"
            DESTINATION "${viewer_folder}")
        file(REMOVE_RECURSE "${CMAKE_BINARY_DIR}/viewer/package")
    endif()
    install(DIRECTORY "${viewer_folder}/" DESTINATION "${CMAKE_INSTALL_DATADIR}/panohost/viewer")
else()
    # What an earlier configuration left.
    file(REMOVE_RECURSE "${viewer_folder}")
endif()
