# tabulon.wasm: every room and hosts/web/*.cpp, as a module that a page starts with `_initialize`. What it exports
# and imports stands in hosts/web/wire/exports.def and imports.def; the packaging refuses any other.

set(TABULON_WEB_STACK_BYTES 1048576)

# A module of these sources, <name>.wasm, on what stands in for the system and the heap.
function(tabulon_wasm target name)
  set(stand_ins ${PROJECT_SOURCE_DIR}/hosts/web/build/no_system.cpp ${PROJECT_SOURCE_DIR}/hosts/web/build/heap.cpp)
  # They define what the C library is linked to, and the libraries they stand in for are no LTO objects.
  set_source_files_properties(${stand_ins} PROPERTIES COMPILE_OPTIONS -fno-lto)

  add_executable(${target} ${ARGN} ${stand_ins})
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

# What the module has instead of a system, tried in a module itself by tests/module/*.test.mjs; built for ./test.
function(tabulon_module_tests)
  tabulon_wasm(tabulon_module_tests module_tests EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/tests/module/heap.cpp)
endfunction()

function(tabulon_web)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/web/*.cpp)
  if(NOT sources)
    message(STATUS "hosts/web has no sources: tabulon.wasm is not built")
    return()
  endif()
  tabulon_wasm(tabulon_web tabulon ${sources})
endfunction()
