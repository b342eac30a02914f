#pragma once

#include "records/SDepthFilterParam.h"

#include <cstdint>

/// The one rule by which the lists of deals, orders and cancels keep a row. Any thread.
namespace Kel {

/// Time, size and amount:
/// * the row's whole second of the exchange's day lies between `start` and `end`, both inside, so that a
///   start past the end keeps nothing;
/// * `lots` against `volume` and `shares` times `price` (yuan, with the tolerance) against `amount`, combined
///   by `relate`. "或" is a plain or: with one threshold at 0 and "≥" every row in the time range is kept.
///
/// A comparison or combination that has no meaning counts as the first of its kind ("≥", "或").
/// `seconds` counts from 1970-01-01 UTC.
bool passesFilter(const SDepthFilterParam& param, std::int32_t seconds, std::int32_t lots,
                  std::int64_t shares, double price);

/// Whether a new order of this side (1 buy, 2 sell) is wanted; one of no side is while any order is.
bool wantsOrder(const SDepthFilterParam& param, int side);

/// Whether a cancel of an order of this side is wanted; with the side unknown (0) it is while any cancel is.
bool wantsCancel(const SDepthFilterParam& param, int side);

} // namespace Kel
