# What nearly every file of a kind includes is compiled once: the standard library, the toolkit, the test library. Every
# file still names what it uses: the sanitizers' build goes without.
option(QM_PRECOMPILE "Compile the headers of libraries once" ON)

# qm_precompiled(NAME HEADERS... LINK...): one set of headers; qm_precompile(TARGET NAME) lets a target use it.
function(qm_precompiled name)
  if(NOT QM_PRECOMPILE)
    return()
  endif()
  cmake_parse_arguments(arg "" "" "HEADERS;LINK" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE qm_flags ${arg_LINK})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

function(qm_precompile target name)
  if(QM_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()

set(plain <algorithm> <cmath> <cstdint> <filesystem> <fstream> <functional> <iostream> <map> <memory> <optional> <sstream>
    <string> <string_view> <utility> <vector>)
set(toolkit <QAccessible> <QApplication> <QKeyEvent> <QLabel> <QLineEdit> <QPainter> <QPointer> <QPushButton> <QScrollBar>
    <QTimer> <QVBoxLayout> <QWidget>)

qm_precompiled(pch_plain HEADERS ${plain})
if(QM_SCREENS)
  set(toolkit_libraries Qt6::Widgets Qt6::Svg Qt6::PrintSupport)
  qm_precompiled(pch_toolkit HEADERS ${plain} ${toolkit} LINK ${toolkit_libraries})
endif()
if(QM_TESTS)
  qm_precompiled(pch_tests HEADERS ${plain} <gmock/gmock.h> LINK qm_test_flags GTest::gmock)
  if(QM_SCREENS)
    qm_precompiled(pch_screen_tests HEADERS ${plain} ${toolkit} <gmock/gmock.h> LINK qm_test_flags Qt6::Widgets GTest::gmock)
  endif()
endif()
