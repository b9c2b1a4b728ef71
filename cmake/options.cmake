# How every target is compiled. Optimisation, warnings and floating point are decided here and nowhere else.

# Where there is a ccache, what has been compiled before is taken from it. Precompiled headers have no times in them
# (-fno-pch-timestamp, below), so that those that are made again are the same.
find_program(TABULON_CCACHE ccache)
if(TABULON_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${TABULON_CCACHE})
endif()

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# The web counts bytes as well as time: all but the arithmetic is made small there.
if(TABULON_SANITIZE)
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1 -fno-omit-frame-pointer")
elseif(TABULON_WEB)
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-Oz -DNDEBUG")
elseif(TABULON_WINDOWS)
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -DNDEBUG")
else()
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
endif()

add_library(tabulon_options INTERFACE)
target_include_directories(tabulon_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(tabulon_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  # A machine with a fused multiply-add rounds a*b+c once, WebAssembly rounds it twice. Never fusing
  # keeps the last digit the same on every host.
  -ffp-contract=off
  # Tables that are made while compiling take more steps with libc++, whose containers call more functions.
  -fconstexpr-steps=16777216
  -fno-rtti
  "SHELL:-Xclang -fno-pch-timestamp")

# A module is linked whole: which classes there are is known then, so a virtual function that nobody can call is left
# out, and one that a single class has is called as itself.
if(TABULON_WEB)
  target_compile_options(tabulon_options INTERFACE
    -fvisibility=hidden -fwhole-program-vtables -fvirtual-function-elimination)
  # In a page nobody reads what the C++ library has to say before it gives up.
  target_compile_options(tabulon_options INTERFACE "-D_LIBCPP_VERBOSE_ABORT(...)=__builtin_trap()")
endif()

# What 32-bit programs compute with otherwise has more digits than a Double, or fewer, as the program around it says.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND NOT TABULON_WEB)
  target_compile_options(tabulon_options INTERFACE -msse2 -mfpmath=sse)
endif()

if(TABULON_SANITIZE)
  target_compile_options(tabulon_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all)
  target_compile_definitions(tabulon_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(tabulon_options INTERFACE -fsanitize=address,undefined)
endif()

# Rooms throw nothing. Fuzzers find their way by what is reached in them.
add_library(tabulon_room_options INTERFACE)
target_compile_options(tabulon_room_options INTERFACE -fno-exceptions)
target_link_libraries(tabulon_room_options INTERFACE tabulon_options)
if(TABULON_SANITIZE)
  target_compile_options(tabulon_room_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(NOT CMAKE_CROSSCOMPILING)
  target_link_options(tabulon_options INTERFACE -fuse-ld=lld)
endif()
