# tabulon.wasm: every room but lesson/ and hosts/web/*.cpp, as a module that a page starts with `_initialize`. What it
# exports and imports stands in hosts/web/wire/exports.def and imports.def; the packaging refuses any other.

set(TABULON_WEB_STACK_BYTES 1048576)

find_program(TABULON_WASM_OPT wasm-opt REQUIRED)

# What is lower than 1024 is the end of the stack, for the stack stands first: nothing there is found by an offset
# from another place. What is said of alignment is a hint that no browser takes, and takes room.
function(tabulon_make_small target)
  add_custom_command(TARGET ${target} POST_BUILD VERBATIM
    COMMAND ${TABULON_WASM_OPT} --enable-bulk-memory --enable-nontrapping-float-to-int --enable-sign-ext
      --dealign -Os --always-inline-max-function-size=6 --converge --low-memory-unused --strip-target-features
      $<TARGET_FILE:${target}> -o $<TARGET_FILE:${target}>)
endfunction()

# tabulon_wasm(<target> <name> [LIBRARY_FUNCTIONS] [FUNCTIONS <source>] [ROOM <room>] <source>...)
#
# A module of these sources and a room, tabulon_control unless another is given: <name>.wasm, on what stands in for the
# system, the heap and functions of the C library: those of elementary.cpp, of FUNCTIONS, or with LIBRARY_FUNCTIONS none.
function(tabulon_wasm target name)
  set(folder ${PROJECT_SOURCE_DIR}/hosts/web/build)
  cmake_parse_arguments(PARSE_ARGV 2 WASM LIBRARY_FUNCTIONS "FUNCTIONS;ROOM" "")
  if(NOT WASM_ROOM)
    set(WASM_ROOM tabulon_control)
  endif()
  set(stand_ins ${folder}/no_system.cpp ${folder}/heap.cpp ${folder}/memory.cpp ${WASM_FUNCTIONS})
  if(NOT WASM_FUNCTIONS AND NOT WASM_LIBRARY_FUNCTIONS)
    list(APPEND stand_ins ${folder}/elementary.cpp)
  endif()
  # They define what the C library is linked to, and the libraries they stand in for are no LTO objects. They are few
  # bytes, and much is done in them.
  set(not_linked_whole -fno-lto -fno-whole-program-vtables -fno-virtual-function-elimination)
  set_source_files_properties(${stand_ins} PROPERTIES COMPILE_OPTIONS "${not_linked_whole};-O2")

  add_executable(${target} ${WASM_UNPARSED_ARGUMENTS} ${stand_ins})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name} SUFFIX .wasm)
  target_link_libraries(${target} PRIVATE ${WASM_ROOM})
  target_link_options(${target} PRIVATE
    -mexec-model=reactor
    LINKER:--gc-sections LINKER:--strip-all LINKER:--fatal-warnings
    # The stack stands first, so that running out of it traps instead of writing over the data.
    LINKER:--stack-first LINKER:-z,stack-size=${TABULON_WEB_STACK_BYTES}
    # A loop that has a pointer for each array it walks along is longer, and packed longer still. Without that
    # expressions are read faster, and the one loop that became slower (CellRow::add_values) is written so.
    LINKER:-mllvm,-disable-lsr
    # The driver would run wasm-opt in a way of its own; linking itself optimises as before.
    -O0)
  tabulon_make_small(${target})
endfunction()

# The arithmetic for the benchmarks of node and the browsers; built when it is asked for.
function(tabulon_web_benchmarks)
  tabulon_wasm(tabulon_web_benchmarks benchmarks EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/benchmarks/web/work.cpp)
endfunction()

# What the module has instead of a system, tried in a module itself by tests/module/*.test.mjs; built for ./test.
function(tabulon_module_tests)
  set(folder ${PROJECT_SOURCE_DIR}/tests/module)
  tabulon_wasm(tabulon_module_tests module_tests EXCLUDE_FROM_ALL ${folder}/heap.cpp ${folder}/elementary.cpp)
  tabulon_wasm(tabulon_library_functions library_functions
    LIBRARY_FUNCTIONS EXCLUDE_FROM_ALL ${folder}/elementary.cpp)
  add_dependencies(tabulon_module_tests tabulon_library_functions)
endfunction()

function(tabulon_web)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/web/*.cpp)
  if(NOT sources)
    message(STATUS "hosts/web has no sources: tabulon.wasm is not built")
    return()
  endif()
  tabulon_wasm(tabulon_web tabulon ${sources})

  tabulon_web_lesson()
  tabulon_unpacker()
endfunction()

# lesson.wasm, what thinks for the lesson around the control: a module by itself, so that a page without a lesson does
# not load it. Its tables stand in hosts/web/lesson/wire/. It answers one step at a time, so the rooms that it stands
# on are made small too.
function(tabulon_web_lesson)
  tabulon_room(tabulon_small_numbers FOLDERS numbers DEPENDS tabulon_platform)
  tabulon_room(tabulon_small_model FOLDERS control ONLY "^basSafeCtl" DEPENDS tabulon_small_numbers)
  tabulon_room(tabulon_small_operations FOLDERS simplex ONLY "^(pivot|sweep)\\." DEPENDS tabulon_small_model)
  set_target_properties(tabulon_small_numbers tabulon_small_model tabulon_small_operations PROPERTIES UNITY_BUILD ON)
  tabulon_room(tabulon_lesson FOLDERS lesson DEPENDS tabulon_small_operations)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/web/lesson/*.cpp)
  tabulon_wasm(tabulon_web_lesson lesson
    ROOM tabulon_lesson FUNCTIONS ${PROJECT_SOURCE_DIR}/hosts/web/lesson/build/page_functions.cpp ${sources})
endfunction()

# unpack.wasm, by which a page unpacks the others. It has nothing under it, not even the C library.
function(tabulon_unpacker)
  add_executable(tabulon_unpacker ${PROJECT_SOURCE_DIR}/hosts/web/unpack/unpack.cpp)
  # A page waits for it: a hundred bytes more than with -Oz, and a quarter less time.
  target_compile_options(tabulon_unpacker PRIVATE -Os)
  set_target_properties(tabulon_unpacker PROPERTIES OUTPUT_NAME unpack SUFFIX .wasm)
  target_link_libraries(tabulon_unpacker PRIVATE tabulon_room_options)
  target_link_options(tabulon_unpacker PRIVATE
    -nostartfiles LINKER:--no-entry LINKER:--export=unpack LINKER:--export=packed LINKER:--export=unpacked
    LINKER:--gc-sections LINKER:--strip-all LINKER:--fatal-warnings LINKER:--stack-first LINKER:-z,stack-size=4096 -O0)
  tabulon_make_small(tabulon_unpacker)
endfunction()
