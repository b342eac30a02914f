# depth_library(NAME SOURCES ... LINKS ...): a library of this project; headers and sources are listed by its folder.
function(depth_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC depth_settings ${ARG_LINKS})
endfunction()

# depth_gui_library(NAME SOURCES ... LINKS ...): the same for a library of widgets; the headers of Qt and Boost that all
# of them read are compiled once, for the first such library.
function(depth_gui_library name)
  depth_library(${name} ${ARGN})
  target_link_libraries(${name} PUBLIC Qt5::Widgets Qt5::Svg)
  if(NOT TARGET depth_gui_headers)
    file(WRITE "${PROJECT_BINARY_DIR}/gui_headers.cpp" "// Compiles the precompiled headers.\n")
    add_library(depth_gui_headers OBJECT "${PROJECT_BINARY_DIR}/gui_headers.cpp")
    target_link_libraries(depth_gui_headers PRIVATE
      depth_settings Qt5::Widgets Qt5::Svg Boost::thread Boost::system Boost::chrono PkgConfig::LOG4CXX)
    target_precompile_headers(depth_gui_headers PRIVATE
      <QtWidgets> <boost/function.hpp> <boost/shared_ptr.hpp> <boost/thread/recursive_mutex.hpp>
      <functional> <map> <memory> <string> <vector>)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
      # A time stamp in the header's file would keep the compiler cache from ever hitting.
      target_compile_options(depth_gui_headers PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
  endif()
  target_precompile_headers(${name} REUSE_FROM depth_gui_headers)
endfunction()

# depth_test(NAME SOURCES ... LINKS ...): one GoogleTest program per folder. Each test case is one ctest entry,
# found when ctest runs, so that a failure is named by its rule.
function(depth_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE depth_test_support ${ARG_LINKS})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 600 LABELS "${ARG_LABELS}")
endfunction()
