# The tests of the COM server: tests/activex/*.cpp, one program for Windows with GoogleTest compiled into it.
# ctest runs each test in a process of its own under Wine, so it wants a display and a registered Tabulon.ocx:
#
#   tools/in-wine.sh ctest --preset windows

find_program(TABULON_WINE wine REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${TABULON_WINE})

# The distribution has GoogleTest for other systems than its own as source alone.
function(tabulon_googletest)
  find_path(TABULON_GOOGLETEST src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  add_library(tabulon_googletest STATIC
    ${TABULON_GOOGLETEST}/src/gtest-all.cc ${TABULON_GOOGLETEST}/src/gtest_main.cc)
  target_compile_options(tabulon_googletest PRIVATE -O0)
  target_include_directories(tabulon_googletest SYSTEM
    PUBLIC ${PROJECT_SOURCE_DIR}/tests/activex/googletest ${TABULON_GOOGLETEST}/include
    PRIVATE ${TABULON_GOOGLETEST})
endfunction()

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
  add_test(NAME activex.form_is_registered COMMAND ${TABULON_WINE} regsvr32 /s $<TARGET_FILE:tabulon_test_form>)
  add_test(NAME activex.form_is_unregistered COMMAND ${TABULON_WINE} regsvr32 /s /u $<TARGET_FILE:tabulon_test_form>)
  # Named from its own folder: what begins with a slash is an option to the script host.
  add_test(NAME activex.solve.vbs COMMAND ${TABULON_WINE} cscript //nologo solve.vbs WORKING_DIRECTORY ${folder})
  set_tests_properties(activex.form_is_registered PROPERTIES FIXTURES_SETUP form LABELS activex)
  set_tests_properties(activex.form_is_unregistered PROPERTIES FIXTURES_CLEANUP form LABELS activex)
  # The script host's own exit code is 0 also where a script breaks off.
  set_tests_properties(activex.solve.vbs PROPERTIES
    FIXTURES_REQUIRED form RESOURCE_LOCK screen PASS_REGULAR_EXPRESSION "[\r\n]0 failed" LABELS activex)
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

# Asked for its tests when they are run: building needs no Wine that is set up.
function(tabulon_windows_test_group filter)
  string(MAKE_C_IDENTIFIER "tests${filter}" list)
  gtest_discover_tests(activex_tests
    TEST_FILTER "${filter}"
    TEST_LIST ${list}
    TEST_PREFIX activex.
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/scratch/activex
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS activex ${ARGN})
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
  set_target_properties(activex_tests PROPERTIES UNITY_BUILD OFF)
  add_dependencies(activex_tests Tabulon)
  file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/scenarios/*.txt)
  set_target_properties(activex_tests PROPERTIES LINK_DEPENDS "${scripts}")
  # Two at a time, but for those that show windows, which would take the one keyboard from each other, those that
  # use the one clipboard, and those that take the control out of the registry. Where a control is in its place beyond
  # the edge of the screen (InPlace* without InAContainer) it is in nobody's way.
  set(on_screen "*InAContainer:*ScenarioInWindows.*:*InAContainer.*:FileDialogs.*:OnTheClipboard.*")
  set(registering "Registration.*")
  tabulon_windows_test_group("${on_screen}" RESOURCE_LOCK screen)
  tabulon_windows_test_group("${registering}" RUN_SERIAL ON)
  tabulon_windows_test_group("-${on_screen}:${registering}")
  tabulon_file_test(x64 pei-x86-64 x86_64-w64-mingw32-objdump)
  tabulon_file_test(x86 pei-i386 i686-w64-mingw32-objdump)
  tabulon_script_tests()
endfunction()
