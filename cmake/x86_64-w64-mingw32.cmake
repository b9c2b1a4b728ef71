# clang 19 for 64-bit Windows, with the distribution's mingw-w64.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw32.cmake)
