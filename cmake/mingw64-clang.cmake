# clang with the headers of the cross compiler. It knows the system's own headers by its target;
# those of the C++ library stand in a directory of the cross gcc that it does not look for by itself.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(LORV_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_RC_COMPILER ${LORV_TRIPLE}-windres)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

file(GLOB _candidates /usr/lib/gcc/${LORV_TRIPLE}/*-posix/include/c++)
list(GET _candidates 0 _cxx)
foreach(_dir "${_cxx}" "${_cxx}/${LORV_TRIPLE}" "${_cxx}/backward")
    string(APPEND CMAKE_CXX_FLAGS_INIT " -isystem ${_dir}")
endforeach()
