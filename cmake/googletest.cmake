# GoogleTest, compiled here: the distribution has it for other systems than its own as source alone.
function(tabulon_googletest)
  find_path(TABULON_GOOGLETEST src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  add_library(tabulon_googletest STATIC
    ${TABULON_GOOGLETEST}/src/gtest-all.cc ${TABULON_GOOGLETEST}/src/gtest_main.cc)
  target_compile_options(tabulon_googletest PRIVATE -O0)
  target_include_directories(tabulon_googletest SYSTEM
    PUBLIC ${TABULON_GOOGLETEST}/include PRIVATE ${TABULON_GOOGLETEST})
  if(TABULON_WINDOWS)
    target_include_directories(tabulon_googletest SYSTEM BEFORE PUBLIC ${PROJECT_SOURCE_DIR}/tests/activex/googletest)
  endif()
endfunction()
