# The one place for compiler flags: every target links qm_flags.
add_library(qm_flags INTERFACE)
target_compile_features(qm_flags INTERFACE cxx_std_20)
target_compile_options(qm_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_include_directories(qm_flags INTERFACE ${CMAKE_SOURCE_DIR})
# The same for libraries and programs, so that they can share precompiled headers.
target_compile_options(qm_flags INTERFACE -fPIC)
set(CMAKE_CXX_EXTENSIONS OFF)
# A compiler's cache, where the machine has one.
find_program(QM_CCACHE ccache)
if(QM_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${QM_CCACHE})
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(qm_flags INTERFACE -fpch-preprocess)  # the cache sees through precompiled headers
  if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # This release sees overruns in the + of texts that are not there.
    target_compile_options(qm_flags INTERFACE -Wno-array-bounds -Wno-restrict)
  endif()
endif()
# Tests are built more often than run: their own code is not optimised in the everyday build, what they test is.
add_library(qm_test_flags INTERFACE)
target_link_libraries(qm_test_flags INTERFACE qm_flags)
target_compile_options(qm_test_flags INTERFACE $<$<CONFIG:RelWithDebInfo>:-O0>)
if(QM_SANITIZE)
  target_compile_options(qm_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qm_flags INTERFACE -fsanitize=address,undefined)
endif()
if(QM_FUZZ)
  # Coverage in every library, so that the fuzzers find their way; their main comes with each (tests/fuzz).
  target_compile_options(qm_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(qm_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# qm_library(NAME SOURCES... LINK... PRECOMPILED): a folder's library. All are linked into libqmcls.so or libqmscreens.so.
function(qm_library name)
  cmake_parse_arguments(arg "" "PRECOMPILED" "SOURCES;LINK;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC qm_flags ${arg_LINK} PRIVATE ${arg_PRIVATE})
  if(NOT arg_PRECOMPILED)
    set(arg_PRECOMPILED pch_plain)
  endif()
  qm_precompile(${name} ${arg_PRECOMPILED})
endfunction()

# qm_forms(TARGET UI...): what the designer's files become, one rule each: a header ui_NAME.h that a form includes.
function(qm_forms name)
  qt6_wrap_ui(headers ${ARGN})
  target_sources(${name} PRIVATE ${headers})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# qm_screens(FOLDER LINK...): a folder of screens: each form with what the designer's file of its name becomes.
function(qm_screens name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  file(GLOB forms CONFIGURE_DEPENDS *.ui)
  qm_library(${name} SOURCES ${sources} PRECOMPILED pch_toolkit ${ARGN})
  qm_forms(${name} ${forms})
endfunction()
