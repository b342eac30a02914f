# Tests of the simulated exchange, relative to tests/feed.
set(DEPTH_TEST_FEED_SIMULATION_SOURCES
  simulation/AuctionPriceTest.cpp
  simulation/MatchingBookTest.cpp
  simulation/RandomTest.cpp
  simulation/RecordMakingTest.cpp
  simulation/ReferenceBook.cpp
  simulation/SimulatedDayTest.cpp
  simulation/SimulationSettingsTest.cpp
  simulation/TradersTest.cpp
  simulation/TradingHoursTest.cpp
  simulation/TrueBookTest.cpp
  simulation/TruthTest.cpp)
