# The tests of the COM server: tests/activex/*.cpp, one program for Windows with GoogleTest compiled into it.
# ctest runs each test in a process of its own that has a whole Windows to itself, so that several run at a time:
#
#   tools/in-wine.sh ctest --preset windows

find_program(TABULON_WINE wine REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tools/free-wine.sh)

# The form that solve.vbs puts the control on: a library for the system's script host, with the driver of the
# scenarios in it.
function(tabulon_script_tests)
  set(folder ${PROJECT_SOURCE_DIR}/tests/activex)
  add_library(tabulon_test_form MODULE
    ${folder}/form/form.cpp ${folder}/form/form.def
    ${folder}/com_player.cpp ${folder}/container.cpp ${folder}/eyes.cpp ${folder}/person.cpp
    ${folder}/screen_picture.cpp ${folder}/window_thread.cpp
    ${PROJECT_SOURCE_DIR}/hosts/activex/text.cpp
    ${PROJECT_SOURCE_DIR}/tests/scenarios/interpreter.cpp ${PROJECT_SOURCE_DIR}/tests/scenarios/scenario.cpp)
  set_target_properties(tabulon_test_form PROPERTIES PREFIX "" UNITY_BUILD OFF)
  target_include_directories(tabulon_test_form PRIVATE ${PROJECT_SOURCE_DIR}/tests/scenarios)
  target_link_libraries(tabulon_test_form PRIVATE tabulon_test_options tabulon_headless tabulon_windows_options)
  # Named from its own folder: what begins with a slash is an option to the script host. tools/in-wine.sh has
  # registered the library.
  add_test(NAME activex.solve.vbs
    COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} cscript //nologo solve.vbs
    WORKING_DIRECTORY ${folder})
  # The script host's own exit code is 0 also where a script breaks off.
  set_tests_properties(activex.solve.vbs PROPERTIES PASS_REGULAR_EXPRESSION "[\r\n]0 failed" LABELS activex)
endfunction()

# What each file is, what it gives the system, and that it wants nothing but the system.
function(tabulon_file_test folder format objdump)
  find_program(objdump_${folder} ${objdump} REQUIRED)
  set(exports "DllCanUnloadNow.*DllGetClassObject.*DllInstall.*DllRegisterServer.*DllUnregisterServer")
  add_test(NAME activex.file_${folder}
    COMMAND ${objdump_${folder}} -p ${PROJECT_SOURCE_DIR}/dist/activex/${folder}/Tabulon.ocx)
  set_tests_properties(activex.file_${folder} PROPERTIES
    PASS_REGULAR_EXPRESSION "file format ${format}.*${exports}" LABELS activex)
  add_test(NAME activex.file_${folder}_stands_alone
    COMMAND ${objdump_${folder}} -p ${PROJECT_SOURCE_DIR}/dist/activex/${folder}/Tabulon.ocx)
  set_tests_properties(activex.file_${folder}_stands_alone PROPERTIES
    FAIL_REGULAR_EXPRESSION "DLL Name: lib" LABELS activex)
endfunction()

# That the 32-bit control computes with the same numbers as every other: its own code has no instruction of the old
# arithmetic but those that hand a result over, beside those that set how the C library computes.
function(tabulon_instructions_test)
  find_program(TABULON_DISASSEMBLER llvm-objdump-19 REQUIRED)
  set(build ${CMAKE_BINARY_DIR}/x86)
  list(TRANSFORM TABULON_ROOMS REPLACE "(.+)" "${build}/lib\\1.a" OUTPUT_VARIABLE rooms)
  add_test(NAME activex.file_x86_computes_as_others
    COMMAND sh -c "exec \"$@\" $(find '${build}/CMakeFiles/tabulon_activex.dir' -name '*.obj')" sh
      ${TABULON_DISASSEMBLER} -d --no-show-raw-insn ${rooms})
  set_tests_properties(activex.file_x86_computes_as_others PROPERTIES
    PASS_REGULAR_EXPRESSION "mulsd"
    FAIL_REGULAR_EXPRESSION "\tf(i?(add|sub|mul|div|com)|sqrt|ucom|chs|abs|rnd|prem|scale|sin|cos|patan|yl2x|2xm)"
    LABELS activex)
endfunction()

function(tabulon_windows_tests)
  include(GoogleTest)
  tabulon_googletest()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/activex/*.cpp)
  # The scenarios are played twice, in windows and without, to compare what is seen.
  list(APPEND sources
    ${PROJECT_SOURCE_DIR}/tests/scenarios/interpreter.cpp ${PROJECT_SOURCE_DIR}/tests/scenarios/scenario.cpp
    ${PROJECT_SOURCE_DIR}/tests/scenarios/player.cpp)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/scratch/activex)
  if(EXISTS /dev/full)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/scratch/activex/devices)
    file(CREATE_LINK /dev/full ${CMAKE_BINARY_DIR}/scratch/activex/devices/full SYMBOLIC)
  endif()
  add_executable(activex_tests ${sources})
  target_include_directories(activex_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests/scenarios)
  target_link_libraries(activex_tests PRIVATE
    tabulon_test_options tabulon_activex tabulon_headless tabulon_googletest urlmon)
  target_precompile_headers(activex_tests PRIVATE <gtest/gtest.h>)
  add_dependencies(activex_tests Tabulon)
  file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/scenarios/*.txt)
  set_target_properties(activex_tests PROPERTIES LINK_DEPENDS "${scripts}")
  # Asked for its tests when they are run: building needs no Wine that is set up.
  gtest_discover_tests(activex_tests
    TEST_PREFIX activex.
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/scratch/activex
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS activex)
  tabulon_file_test(x64 pei-x86-64 x86_64-w64-mingw32-objdump)
  tabulon_file_test(x86 pei-i386 i686-w64-mingw32-objdump)
  tabulon_instructions_test()
  tabulon_script_tests()
endfunction()
