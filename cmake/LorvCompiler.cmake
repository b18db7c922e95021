# Flags that all builds share, and ccache when it is there.

if(LORV_CCACHE AND NOT EXISTS "${LORV_CCACHE}")
    unset(LORV_CCACHE CACHE)
endif()
find_program(LORV_CCACHE ccache)
if(LORV_CCACHE)
    # The environment's cache wins; without one the cache stays in the build directory. Relative paths let
    # two clones share what they compile, and the sloppiness is what ccache asks for with precompiled headers.
    set(_launcher "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime)
    if(NOT DEFINED ENV{CCACHE_DIR})
        list(APPEND _launcher "CCACHE_DIR=${CMAKE_SOURCE_DIR}/build/ccache")
    endif()
    set(CMAKE_C_COMPILER_LAUNCHER ${_launcher} "${LORV_CCACHE}")
    set(CMAKE_CXX_COMPILER_LAUNCHER ${_launcher} "${LORV_CCACHE}")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
    else()
        set(CMAKE_PCH_INSTANTIATE_TEMPLATES OFF)
        add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
    endif()
endif()

add_library(lorv_warnings INTERFACE)
target_compile_options(lorv_warnings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Werror>)

if(WIN32)
    add_compile_definitions(UNICODE= _UNICODE= NOMINMAX= WINVER=0x0A00 _WIN32_WINNT=0x0A00 NTDDI_VERSION=0x0A000000)
    # winnt.h draws in every vector instruction of the processor, which costs many times what the rest of
    # windows.h does. Their header's own guard (gcc's name, clang's name) keeps them out; <emmintrin.h>, which
    # winnt.h really needs, comes in by itself.
    add_compile_definitions(_X86INTRIN_H_INCLUDED= __X86INTRIN_H=)
    add_link_options(-static)
endif()

# The module is built as it ships; tests and tools give up speed for a shorter build.
add_library(lorv_release INTERFACE)
add_library(lorv_quick INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND LORV_BUILD STREQUAL "cross")
    target_compile_options(lorv_release INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:-O2>)
    target_compile_options(lorv_quick INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:-O1>)
endif()
target_compile_definitions(lorv_release INTERFACE $<$<COMPILE_LANGUAGE:C,CXX>:NDEBUG>)
target_link_libraries(lorv_release INTERFACE lorv_warnings)
target_link_libraries(lorv_quick INTERFACE lorv_warnings)

# CONFIGURE_DEPENDS: a new file needs no word in any CMakeLists.txt.
function(lorv_glob out)
    file(GLOB _files CONFIGURE_DEPENDS ${ARGN})
    set(${out} "${_files}" PARENT_SCOPE)
endfunction()
