# SPDX-License-Identifier: Apache-2.0
# The compiler and linker options of every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Emits DT_RUNPATH and not DT_RPATH, so that LD_LIBRARY_PATH can substitute other
# modules.
add_link_options(-Wl,--enable-new-dtags)

add_library(lectern_options INTERFACE)
target_include_directories(lectern_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(lectern_options INTERFACE _GNU_SOURCE)
target_compile_options(lectern_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -fvisibility=hidden)
if(LECTERN_WERROR)
    target_compile_options(lectern_options INTERFACE -Werror)
endif()
if(LECTERN_SANITIZE)
    add_compile_options(-fsanitize=${LECTERN_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${LECTERN_SANITIZE})
    if(LECTERN_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()
