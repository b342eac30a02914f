# Tests of the simulated exchange, relative to tests/feed.
set(DEPTH_TEST_FEED_SIMULATION_SOURCES
  simulation/auction_price_test.cpp
  simulation/instrument_kinds_test.cpp
  simulation/matching_book_test.cpp
  simulation/random_test.cpp
  simulation/record_making_test.cpp
  simulation/ReferenceBook.cpp
  simulation/simulated_day_test.cpp
  simulation/simulation_settings_test.cpp
  simulation/traders_test.cpp
  simulation/trading_hours_test.cpp
  simulation/true_book_test.cpp
  simulation/truth_test.cpp)
