# Tests under load and on hostile input.
list(APPEND DEPTH_TEST_ENGINE_MORE
  thread_all_at_once_test.cpp
  thread_life_test.cpp)
