#pragma once

#include "feed/simulation/Random.h"

#include <vector>

namespace feed {

/// When traders send something, in seconds after midnight of exchange time. A rate over the day (two
/// auctions, busy opens, a livelier last half hour) is excited by each message for a short while, so that
/// messages come in bursts (a self-exciting point process with an exponential kernel, drawn by thinning). One
/// thread.
class ArrivalTimes
{
public:
    /// `messages`: expected number over the day; `burstStrength`: messages that one draws after it on
    /// average, below 1; `busyOpen`: rate at 09:30 over the quiet rate. `random` outlives this object.
    ArrivalTimes(double messages, double burstStrength, double busyOpen, Random& random);

    /// The next arrival, later than the one before; infinity when the day has no more.
    double next();

private:
    struct Piece
    {
        double from;
        double to;
        double rate; ///< messages a second without excitation
    };

    void addPiece(double from, double to, double weight);

    Random& m_random;
    std::vector<Piece> m_pieces; ///< in order of time; no messages outside them
    std::size_t m_piece = 0;
    double m_now = 0;
    double m_excitement = 0; ///< messages a second on top of the piece's rate
    double m_jump;           ///< what one message adds to the excitement
};

} // namespace feed
