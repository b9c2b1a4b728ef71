# tabulon.wasm: every room and hosts/web/*.cpp, as a module that a page starts with `_initialize`. What it exports
# and imports stands in hosts/web/wire/exports.def and imports.def; the packaging refuses any other.

set(TABULON_WEB_STACK_BYTES 1048576)

# A module of these sources, <name>.wasm.
function(tabulon_wasm target name)
  set(no_system ${PROJECT_SOURCE_DIR}/hosts/web/build/no_system.cpp)
  # It defines what the C library is linked to, and the libraries it stands in for are no LTO objects.
  set_source_files_properties(${no_system} PROPERTIES COMPILE_OPTIONS -fno-lto)

  add_executable(${target} ${ARGN} ${no_system} ${PROJECT_SOURCE_DIR}/hosts/web/build/heap.cpp)
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name} SUFFIX .wasm)
  target_link_libraries(${target} PRIVATE tabulon_control)
  target_link_options(${target} PRIVATE
    -mexec-model=reactor
    LINKER:--gc-sections LINKER:--strip-all LINKER:--fatal-warnings
    # The stack stands first, so that running out of it traps instead of writing over the data.
    LINKER:--stack-first LINKER:-z,stack-size=${TABULON_WEB_STACK_BYTES})
endfunction()

# The arithmetic for the benchmarks of node and the browsers; built when it is asked for.
function(tabulon_web_benchmarks)
  tabulon_wasm(tabulon_web_benchmarks benchmarks EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/benchmarks/web/work.cpp)
endfunction()

function(tabulon_web)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/web/*.cpp)
  if(NOT sources)
    message(STATUS "hosts/web has no sources: tabulon.wasm is not built")
    return()
  endif()
  tabulon_wasm(tabulon_web tabulon ${sources})
endfunction()
