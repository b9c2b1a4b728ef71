# Unit tests, fuzzers and benchmarks, all found by where they stand:
#
#   tests/<room>/*_test.cpp        one executable <room>_tests; other .cpp of the folder are its helpers
#   tests/support/*.cpp            helpers of every room from control upwards
#   fuzz/<name>_fuzz.cpp           one fuzzer <name>_fuzz, with first inputs in fuzz/seeds/<name>/ and fuzz/found/<name>/,
#                                  and words in fuzz/dictionaries/<name>.dict
#   benchmarks/*_benchmark.cpp     one executable, benchmarks, built for ./bench
#
# The text TABULON_SOURCE_DIR is the folder of this project, for tests that read files of it.

# Tests are our own code too, but may throw and catch.
add_library(tabulon_outside_options INTERFACE)
target_compile_definitions(tabulon_outside_options INTERFACE TABULON_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
target_link_libraries(tabulon_outside_options INTERFACE tabulon_options)

# What is tested is optimised; most tests would take three times as long to compile for nothing. Those that
# compute much themselves, found by name, are optimised too.
add_library(tabulon_test_options INTERFACE)
target_compile_options(tabulon_test_options INTERFACE -O0)
target_link_libraries(tabulon_test_options INTERFACE tabulon_outside_options)
set(TABULON_TESTS_THAT_COMPUTE "tests/(numbers/|.*/random_[^/]*$)")

# What the sanitizers are asked for, as a list of VAR=value.
function(tabulon_sanitizer_environment result)
  set(environment "ASAN_OPTIONS=detect_stack_use_after_return=1" "UBSAN_OPTIONS=print_stacktrace=1")
  find_program(TABULON_SYMBOLIZER NAMES llvm-symbolizer-19 llvm-symbolizer)
  if(TABULON_SYMBOLIZER)
    list(APPEND environment "ASAN_SYMBOLIZER_PATH=${TABULON_SYMBOLIZER}")
  endif()
  set(${result} "${environment}" PARENT_SCOPE)
endfunction()

# The layer that a room's tests are linked to: the lowest rooms see only themselves, so that they can be
# built and tested while the rooms above them are being worked on.
function(tabulon_layer_of room result)
  if(room STREQUAL platform)
    set(${result} tabulon_headless_host PARENT_SCOPE)
  elseif(room MATCHES "^(numbers|model)$")
    set(${result} tabulon_${room} PARENT_SCOPE)
  elseif(room STREQUAL lesson)
    find_library(TABULON_GLPK glpk REQUIRED)  # a solver that is not ours
    set(${result} tabulon_lesson ${TABULON_GLPK} PARENT_SCOPE)
  else()
    set(${result} tabulon_headless tabulon_test_support PARENT_SCOPE)
  endif()
endfunction()

function(tabulon_tests)
  include(GoogleTest)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    tabulon_googletest()
    add_library(GTest::gtest_main ALIAS tabulon_googletest)
  else()
    find_package(GTest REQUIRED)
  endif()
  tabulon_sanitizer_environment(environment)
  tabulon_room(tabulon_test_support FOLDERS tests/support DEPENDS tabulon_headless)

  # GoogleTest's header is most of the work of compiling a test, so all tests share it compiled.
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/test_headers.cpp CONTENT "")
  add_library(tabulon_test_headers OBJECT ${CMAKE_BINARY_DIR}/test_headers.cpp)
  target_link_libraries(tabulon_test_headers PRIVATE tabulon_test_options GTest::gtest_main)
  target_precompile_headers(tabulon_test_headers PRIVATE <gtest/gtest.h>)

  file(GLOB_RECURSE tests RELATIVE ${PROJECT_SOURCE_DIR}/tests CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/tests/*_test.cpp)
  list(FILTER tests EXCLUDE REGEX "^activex/")  # windows-tests.cmake has those
  set(rooms ${tests})
  list(TRANSFORM rooms REPLACE "/.*" "")
  list(REMOVE_DUPLICATES rooms)
  list(FILTER rooms INCLUDE REGEX "^(${TABULON_TESTED})")

  foreach(room IN LISTS rooms)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${room}/*.cpp)
    tabulon_layer_of(${room} layer)
    set(scratch ${CMAKE_BINARY_DIR}/scratch/${room})
    file(MAKE_DIRECTORY ${scratch})
    add_executable(${room}_tests ${sources})
    target_link_libraries(${room}_tests PRIVATE tabulon_test_options ${layer} GTest::gtest_main)
    target_precompile_headers(${room}_tests REUSE_FROM tabulon_test_headers)
    list(FILTER sources INCLUDE REGEX "${TABULON_TESTS_THAT_COMPUTE}")
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -O1 SKIP_PRECOMPILE_HEADERS ON)
    # A scenario is a test by being there: a new one is found by building again.
    file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${room}/*.txt)
    set_target_properties(${room}_tests PROPERTIES LINK_DEPENDS "${scripts}")
    gtest_discover_tests(${room}_tests
      TEST_PREFIX "${room}."
      WORKING_DIRECTORY ${scratch}
      DISCOVERY_TIMEOUT 60
      PROPERTIES ENVIRONMENT "${environment}" LABELS ${room})
    # All of them in one process, as ./test runs them: most of what a test takes is starting it.
    add_test(NAME all.${room}
      COMMAND ${room}_tests --gtest_brief=1 --gtest_output=xml:${CMAKE_BINARY_DIR}/reports/${room}.xml
      WORKING_DIRECTORY ${scratch})
    set_tests_properties(all.${room} PROPERTIES ENVIRONMENT "${environment}" LABELS all TIMEOUT 600)
  endforeach()
endfunction()

function(tabulon_fuzzers)
  tabulon_sanitizer_environment(environment)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/fuzz/*_fuzz.cpp)
  math(EXPR timeout "${TABULON_FUZZ_SECONDS} + 60")
  foreach(source IN LISTS sources)
    get_filename_component(target ${source} NAME_WE)
    string(REGEX REPLACE "_fuzz$" "" name ${target})
    # The corpus stays in the build folder and grows; a failing input is left beside it. In a folder that is new
    # every run tries the same inputs, as far as the time goes: the seed is fixed, nothing is read again by the
    # clock, and no input is made of what was compared, which may be an address.
    set(folder ${CMAKE_BINARY_DIR}/fuzz/${name})
    set(seeds ${PROJECT_SOURCE_DIR}/fuzz/seeds/${name})
    set(words ${PROJECT_SOURCE_DIR}/fuzz/dictionaries/${name}.dict)
    # The reader begins with the files that other tests read, one of them as large as a tableau can be.
    if(name STREQUAL "reader")
      set(seeds ${PROJECT_SOURCE_DIR}/tests/files/golden)
      set(words ${PROJECT_SOURCE_DIR}/fuzz/dictionaries/tableau.dict)
    endif()
    # Few of the inputs that long runs have found reach all that those runs reached.
    list(APPEND seeds ${PROJECT_SOURCE_DIR}/fuzz/found/${name})
    file(MAKE_DIRECTORY ${folder}/corpus)
    add_executable(${target} ${source})
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(${target} PRIVATE tabulon_outside_options tabulon_headless tabulon_lesson)
    add_test(NAME fuzz_${name} COMMAND ${target}
      -seed=1 -reload=0 -use_cmp=0 -max_total_time=${TABULON_FUZZ_SECONDS} -timeout=10 -rss_limit_mb=2048
      -print_final_stats=1 -dict=${words} -artifact_prefix=${folder}/ ${folder}/corpus ${seeds})
    set_tests_properties(fuzz_${name} PROPERTIES
      ENVIRONMENT "${environment}" LABELS fuzz TIMEOUT ${timeout} COST ${TABULON_FUZZ_SECONDS})
  endforeach()
endfunction()

function(tabulon_benchmarks)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/benchmarks/*_benchmark.cpp)
  if(sources)
    find_package(benchmark REQUIRED)
    add_executable(benchmarks EXCLUDE_FROM_ALL ${sources})
    find_library(TABULON_GLPK glpk REQUIRED)
    find_library(TABULON_MUPARSER muparser REQUIRED)
    target_link_libraries(benchmarks PRIVATE tabulon_outside_options tabulon_headless benchmark::benchmark_main
      ${TABULON_GLPK} ${TABULON_MUPARSER})
  endif()
endfunction()
