# Tabulon.ocx, the control as a COM server: every room and hosts/activex/, for the machine of the toolchain
# file. From hosts/activex/Tabulon.idl come Tabulon.tlb, which stands in it as a resource, and Tabulon_idl.h.
#
# The sources of hosts/activex/ are the object library tabulon_activex, so that the tests have them too.

enable_language(RC)

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(TABULON_BITS 64)
  set(TABULON_DIST_FOLDER x64)
else()
  set(TABULON_BITS 32)
  set(TABULON_DIST_FOLDER x86)
endif()

# Windows 7 is the oldest system.
add_library(tabulon_windows_options INTERFACE)
target_compile_definitions(tabulon_windows_options INTERFACE
  UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
target_link_libraries(tabulon_windows_options INTERFACE
  ole32 oleaut32 uuid gdi32 user32 comctl32 comdlg32 advapi32)

# Makes Tabulon.tlb and Tabulon_idl.h, and leaves their folder in `result`.
function(tabulon_type_library result)
  set(idl ${PROJECT_SOURCE_DIR}/hosts/activex/Tabulon.idl)
  set(folder ${CMAKE_BINARY_DIR}/idl)
  file(MAKE_DIRECTORY ${folder})
  find_program(TABULON_WIDL ${CMAKE_CXX_COMPILER_TARGET}-widl REQUIRED)
  # What the system itself declares: as text to import, and as a library to refer to.
  file(GLOB libraries /usr/lib/*/wine/*-windows /usr/lib/wine/*-windows)
  find_path(TABULON_SYSTEM_IDL oaidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
    NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  find_path(TABULON_SYSTEM_TLB stdole2.tlb PATHS ${libraries} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  # widl writes the hour into the library; with a clock that stands still the same source makes the same bytes.
  find_program(TABULON_FAKETIME faketime REQUIRED)
  set(clock ${CMAKE_COMMAND} -E env TZ=UTC ${TABULON_FAKETIME} -f "2026-01-01 00:00:00")
  set(widl ${clock} ${TABULON_WIDL} --win${TABULON_BITS} -I${TABULON_SYSTEM_IDL} -L${TABULON_SYSTEM_TLB})
  add_custom_command(OUTPUT ${folder}/Tabulon.tlb ${folder}/Tabulon_idl.h
    COMMAND ${widl} -t -o ${folder}/Tabulon.tlb ${idl}
    COMMAND ${widl} -h -o ${folder}/Tabulon_idl.h ${idl}
    DEPENDS ${idl}
    COMMENT "Type library and header of Tabulon.idl"
    VERBATIM)
  add_custom_target(tabulon_idl DEPENDS ${folder}/Tabulon.tlb ${folder}/Tabulon_idl.h)
  set(${result} ${folder} PARENT_SCOPE)
endfunction()

function(tabulon_ocx idl_folder)
  set(folder ${PROJECT_SOURCE_DIR}/hosts/activex)
  add_library(Tabulon MODULE ${folder}/Tabulon.rc ${folder}/Tabulon.def $<TARGET_OBJECTS:tabulon_activex>)
  set_target_properties(Tabulon PROPERTIES
    PREFIX "" SUFFIX .ocx
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_SOURCE_DIR}/dist/activex/${TABULON_DIST_FOLDER})
  set_source_files_properties(${folder}/Tabulon.rc PROPERTIES
    INCLUDE_DIRECTORIES ${idl_folder}
    COMPILE_DEFINITIONS "VERSION_MAJOR=${PROJECT_VERSION_MAJOR};VERSION_MINOR=${PROJECT_VERSION_MINOR};VERSION_PATCH=${PROJECT_VERSION_PATCH}"
    OBJECT_DEPENDS ${idl_folder}/Tabulon.tlb)
  set_target_properties(Tabulon PROPERTIES LINK_DEPENDS ${folder}/Tabulon.def)
  target_link_libraries(Tabulon PRIVATE tabulon_control tabulon_windows_options)
  # Without the clock's time in it, the same source makes the same bytes.
  target_link_options(Tabulon PRIVATE LINKER:--gc-sections LINKER:--strip-all LINKER:--no-insert-timestamp)
endfunction()

# The same for 32-bit programs, in a build folder of its own inside this one.
function(tabulon_ocx_for_32_bit)
  include(ExternalProject)
  ExternalProject_Add(tabulon_x86
    SOURCE_DIR ${PROJECT_SOURCE_DIR}
    BINARY_DIR ${CMAKE_BINARY_DIR}/x86
    CMAKE_ARGS
      -DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/i686-w64-mingw32.cmake
      -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DCMAKE_UNITY_BUILD=${CMAKE_UNITY_BUILD} -DTABULON_WINDOWS=ON
    BUILD_ALWAYS ON
    BUILD_COMMAND ${CMAKE_COMMAND} --build . --target Tabulon
    INSTALL_COMMAND "")
  # Two builds at a time would want more of the machine than it has.
  add_dependencies(tabulon_x86 Tabulon)
endfunction()

function(tabulon_windows)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/activex/*.cpp)
  tabulon_type_library(idl_folder)
  add_library(tabulon_activex OBJECT ${sources})
  add_dependencies(tabulon_activex tabulon_idl)
  target_compile_options(tabulon_activex PRIVATE -fno-exceptions)
  target_include_directories(tabulon_activex SYSTEM PUBLIC ${idl_folder})
  target_link_libraries(tabulon_activex PUBLIC tabulon_control tabulon_windows_options)
  target_precompile_headers(tabulon_activex PRIVATE
    <algorithm> <array> <cmath> <coroutine> <expected> <functional> <memory> <optional> <string> <string_view>
    <utility> <variant> <vector> <windows.h> <ole2.h> <olectl.h>)
  tabulon_ocx(${idl_folder})
  if(TABULON_BITS EQUAL 64)
    tabulon_ocx_for_32_bit()
  endif()
endfunction()
