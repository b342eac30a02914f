#pragma once

#include "feed/DayRows.h"

#include <vector>

/// Rows of a made-up day: several deals a second, orders that deal with several others.
std::vector<feed::DealRow> someDeals(int first, int count);
