# depth_library(NAME SOURCES ... LINKS ...): a library of this project; headers and sources are listed by its folder.
function(depth_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC depth_settings ${ARG_LINKS})
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
