#pragma once

#include "feed/csv/ImportReport.h"
#include "host/DayTimeline.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// The rebuilt queue held against what the exchange published of it.
namespace host {

struct VerifyOptions
{
    std::int64_t refreshMs =
        0; ///< refresh interval in feed time; 0 for 500 ms and a tick wherever one is needed
    std::size_t mostListed = 10; ///< mismatches that are listed; all are counted
    feed::Progress progress;     ///< rows done, rows in all
};

/// One of the ten levels of one side, over all snapshots.
struct LevelTally
{
    std::int64_t compared = 0;
    std::int64_t prices = 0;         ///< of them with the published price
    std::int64_t volumes = 0;        ///< of them with the published volume
    std::int64_t countsCompared = 0; ///< of them with a published number of orders
    std::int64_t counts = 0;         ///< of those with that number
    std::int64_t matched = 0;        ///< all of it right
};

struct ShownLevel
{
    double price = 0; ///< yuan; 0 for none
    std::int64_t shares = 0;
    std::int64_t orders = 0; ///< 0 where not published
};

struct Mismatch
{
    std::int64_t time = 0; ///< of the snapshot, ms since 1970-01-01 UTC
    int side = 0;          ///< 1 buy, 2 sell
    int level = 0;         ///< 1 to 10; 0 for the published queue of the side
    ShownLevel published;
    ShownLevel rebuilt;
    std::string cause;  ///< what explains it, in a few words
    std::string detail; ///< the orders concerned
};

/// A snapshot that shows no moment of the feed.
struct Unplaced
{
    std::int64_t time = 0;
    int side = 0; ///< of the first level that differs at the nearest place; 0 if none does
    int level = 0;
    ShownLevel published;
    ShownLevel book; ///< what the plain book of the rows shows there
};

struct Verification
{
    bool tickBeforeCancel =
        false;               ///< a refresh tick ran before the cancel of each order dealt since the last one
    bool levelStyle = false; ///< no orders were delivered: rows and published queues are compared
    std::int64_t snapshots = 0;  ///< of continuous trading, all of them compared
    std::int64_t bySequence = 0; ///< of them placed by their sequence number
    std::int64_t byView = 0;     ///< of them placed by the ten levels that they show
    std::int64_t unplaced = 0;   ///< of them that show no moment of the feed
    std::int64_t snapshotsMatched = 0;
    std::array<LevelTally, 10> buy;
    std::array<LevelTally, 10> sell;
    std::int64_t queues = 0; ///< published queues compared, a side each
    std::int64_t queuesMatched = 0;
    std::int64_t pricelessOrders = 0; ///< orders without a price, which never enter the queue
    std::int64_t lessPriceless = 0;   ///< levels compared after such orders were taken off
    std::int64_t keptRests = 0;       ///< orders dealt in part and cancelled between two refresh ticks
    std::int64_t mismatches = 0;
    std::map<std::string, std::int64_t> causes; ///< of the mismatches
    std::vector<Mismatch> listed;
    std::vector<Unplaced> unplacedListed;
    bool cancelled = false;

    bool allMatch() const { return mismatches == 0 && unplaced == 0; }
};

/// Plays the day and compares at every snapshot of continuous trading. A day with orders: price, volume and
/// number of orders of the ten levels a side, counted from the engine's lists, after three refresh ticks at
/// the place of the feed that the snapshot shows. A day without orders: the ten rows a side against the
/// snapshot, and the queue at the best prices against the published one. An order without a price never
/// enters the queue by rule and is taken off the published level. One thread.
Verification verifyDay(const feed::InstrumentDay& day, const VerifyOptions& options);

} // namespace host
