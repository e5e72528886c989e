# SPDX-FileCopyrightText: 2026 The ZPanoHead authors
# SPDX-License-Identifier: GPL-3.0-or-later

# What every target of the tree is built with, and the three kinds of target it has:
#   panohead_core(NAME SOURCES... LINK...)  reading and converting; refuses Qt Widgets
#   panohead_page(NAME SOURCES... LINK...)  wizard pages and what they share; adds Qt Widgets
#   panohead_test(NAME SOURCES... LINK...)  a Qt Test program, run offscreen by CTest; its label is its folder;
#                                           one that skips a part, and fails in none, counts as skipped

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# Links are decided by comparing floating-point values: the result must not depend on whether the
# compiler contracts a product and a sum into one rounding.
add_compile_options(-Wall -Wextra -ffp-contract=off)
add_compile_definitions(
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
if(ZPANOHEAD_WERROR)
    add_compile_options(-Werror)
endif()
if(ZPANOHEAD_SANITIZE)
    add_compile_options(-fsanitize=${ZPANOHEAD_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZPANOHEAD_SANITIZE})
endif()
if(ZPANOHEAD_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
include_directories("${CMAKE_SOURCE_DIR}")

function(panohead_core name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ZPanoHead::Host Qt::Core Qt::Gui ${ARG_LINK})
    # In Debian Qt Widgets' headers lie in a folder of their own, which a core is not given: a stray
    # #include <QWidget> does not compile.
endfunction()

function(panohead_page name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ZPanoHead::Host Qt::Core Qt::Gui Qt::Widgets ${ARG_LINK})
endfunction()

function(panohead_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    get_filename_component(folder "${CMAKE_CURRENT_SOURCE_DIR}" NAME)
    add_executable(${name} ${name}.cpp ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Qt::Test ${ARG_LINK})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=;TZ=UTC"
        LABELS ${folder}
        SKIP_REGULAR_EXPRESSION "Totals: [0-9]+ passed, 0 failed, [1-9][0-9]* skipped"
        TIMEOUT 300)
endfunction()
