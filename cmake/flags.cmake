# The one place for compiler flags: every target links qm_flags.
add_library(qm_flags INTERFACE)
target_compile_features(qm_flags INTERFACE cxx_std_20)
target_compile_options(qm_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_include_directories(qm_flags INTERFACE ${CMAKE_SOURCE_DIR})
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_EXTENSIONS OFF)
if(QM_SANITIZE)
  target_compile_options(qm_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qm_flags INTERFACE -fsanitize=address,undefined)
endif()
if(QM_FUZZ)
  # Coverage in every library, so that the fuzzers find their way; their main comes with each (tests/fuzz).
  target_compile_options(qm_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(qm_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# qm_library(NAME SOURCES... LINK...): a folder's library. All are linked into libqmcls.so or libqmscreens.so.
function(qm_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC qm_flags ${arg_LINK} PRIVATE ${arg_PRIVATE})
endfunction()

# qm_screens(FOLDER LINK...): a folder of screens: each form with what the designer's file of its name becomes, which
# its header includes.
function(qm_screens name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.ui)
  qm_library(${name} SOURCES ${sources} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOUIC ON)
  # The step that reads the designer's files does not see by itself that one has joined the folder.
  file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/include)
endfunction()
