# Tests under load and on hostile input.
list(APPEND DEPTH_TEST_ENGINE_MORE
  malice_feed_test.cpp
  malice_instrument_test.cpp
  order_number_map_test.cpp
  thread_all_at_once_test.cpp
  thread_life_test.cpp)
