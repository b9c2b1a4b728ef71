# Half of the work of compiling a room is the standard library's headers, so all rooms share them compiled. The
# web's build goes without, and so finds a source that does not include what it uses.
function(tabulon_room_headers)
  if(TABULON_WEB)
    return()
  endif()
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/room_headers.cpp CONTENT "")
  add_library(tabulon_room_headers OBJECT ${CMAKE_BINARY_DIR}/room_headers.cpp)
  target_link_libraries(tabulon_room_headers PRIVATE tabulon_room_options)
  target_precompile_headers(tabulon_room_headers PRIVATE
    <algorithm> <array> <cmath> <coroutine> <expected> <functional> <memory> <optional> <span> <string> <string_view>
    <utility> <variant> <vector>)
endfunction()

# tabulon_room(<name> FOLDERS <folder>... [ONLY <regex>] [EXCEPT <regex>] [DEPENDS <room>...])
#
#   tabulon_room(tabulon_numbers FOLDERS numbers DEPENDS tabulon_platform)
#
# A library of every .cpp directly in the folders, found again at each build. ONLY and EXCEPT choose by
# file name. A room without sources yet is a library of headers.
function(tabulon_room name)
  cmake_parse_arguments(PARSE_ARGV 1 ROOM "" "ONLY;EXCEPT" "FOLDERS;DEPENDS")
  list(TRANSFORM ROOM_FOLDERS APPEND "/*.cpp" OUTPUT_VARIABLE patterns)
  list(TRANSFORM patterns PREPEND "${PROJECT_SOURCE_DIR}/")
  file(GLOB found CONFIGURE_DEPENDS ${patterns})
  set(sources "")
  foreach(source IN LISTS found)
    get_filename_component(file_name ${source} NAME)
    if(DEFINED ROOM_ONLY AND NOT file_name MATCHES "${ROOM_ONLY}")
      continue()
    endif()
    if(DEFINED ROOM_EXCEPT AND file_name MATCHES "${ROOM_EXCEPT}")
      continue()
    endif()
    list(APPEND sources ${source})
  endforeach()

  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC tabulon_options ${ROOM_DEPENDS} PRIVATE tabulon_room_options)
    if(TARGET tabulon_room_headers)
      target_precompile_headers(${name} REUSE_FROM tabulon_room_headers)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE tabulon_options ${ROOM_DEPENDS})
  endif()
endfunction()
