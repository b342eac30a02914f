# The simulated exchange, relative to src/feed. Listed here so that the folder keeps its own account of its files.
set(DEPTH_FEED_SIMULATION_SOURCES
  simulation/ArrivalTimes.cpp
  simulation/AuctionPrice.cpp
  simulation/MarketChannel.cpp
  simulation/MatchingBook.cpp
  simulation/OrderFlow.cpp
  simulation/Random.cpp
  simulation/SimulatedExchange.cpp
  simulation/SimulationSettings.cpp
  simulation/TickSet.cpp
  simulation/TradingHours.cpp
  simulation/TrueBook.cpp
  simulation/instrument_kinds.cpp
  simulation/notices.cpp
  simulation/published_rows.cpp)

# A fused multiplication and addition rounds once instead of twice: a day would differ between machines.
set_source_files_properties(${DEPTH_FEED_SIMULATION_SOURCES} PROPERTIES COMPILE_OPTIONS -ffp-contract=off)
