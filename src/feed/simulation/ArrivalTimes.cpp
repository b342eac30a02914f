#include "feed/simulation/ArrivalTimes.h"

#include "feed/simulation/TradingHours.h"

#include <algorithm>
#include <limits>

namespace feed {
namespace {

constexpr double kDecay = 2.0;          // per second: a burst lasts half a second
constexpr double kOpeningWeight = 0.6;  // rate of the opening auction over that of the quiet hours
constexpr double kLastHalfMinute = 4.0; // rush before the opening match
constexpr double kClosingWeight = 1.2;
constexpr double kAfternoonOpen = 2.0;    // rate at 13:00
constexpr double kLastMinutes = 1.8;      // rate at 14:57
constexpr double kOpenFadesMinutes = 4.0; // the rate of the open halves its excess within so many minutes
constexpr int kMinute = 60;

double continuousWeight(int second, double busyOpen)
{
    if (second < hours::kBreak)
        return 1 + (busyOpen - 1) / (1 + (second - hours::kMorning) / (kMinute * kOpenFadesMinutes));
    const double afternoon =
        1 + (kAfternoonOpen - 1) / (1 + (second - hours::kAfternoon) / (kMinute * kOpenFadesMinutes));
    const double late =
        std::max(0, second - hours::at(14, 30)) / double(hours::kClosingAuction - hours::at(14, 30));
    return afternoon + (kLastMinutes - 1) * late;
}

} // namespace

ArrivalTimes::ArrivalTimes(double messages, double burstStrength, double busyOpen, Random& random)
    : m_random(random), m_jump(burstStrength * kDecay)
{
    addPiece(hours::kOpeningAuction, hours::kOpeningMatch - kMinute / 2, kOpeningWeight);
    addPiece(hours::kOpeningMatch - kMinute / 2, hours::kOpeningMatch, kLastHalfMinute);
    for (int second = hours::kMorning; second < hours::kBreak; second += kMinute)
        addPiece(second, second + kMinute, continuousWeight(second, busyOpen));
    for (int second = hours::kAfternoon; second < hours::kClosingAuction; second += kMinute)
        addPiece(second, second + kMinute, continuousWeight(second, busyOpen));
    addPiece(hours::kClosingAuction, hours::kClose, kClosingWeight);

    double weight = 0;
    for (const Piece& piece : m_pieces)
        weight += piece.rate * (piece.to - piece.from);
    // Each message that comes by itself draws 1 / (1 - burstStrength) messages in all, itself included.
    const double scale = std::max(messages, 0.0) * (1 - burstStrength) / weight;
    for (Piece& piece : m_pieces)
        piece.rate *= scale;
    m_now = m_pieces.front().from;
}

void ArrivalTimes::addPiece(double from, double to, double weight)
{
    m_pieces.push_back({from, to, weight});
}

double ArrivalTimes::next()
{
    while (m_piece < m_pieces.size()) {
        const Piece& piece = m_pieces[m_piece];
        if (m_now < piece.from) {
            // A pause lies between: what excited the traders is forgotten.
            m_now = piece.from;
            m_excitement = 0;
        }
        const double ceiling = piece.rate + m_excitement;
        const double wait =
            ceiling > 0 ? m_random.exponential() / ceiling : std::numeric_limits<double>::infinity();
        if (!(m_now + wait < piece.to)) {
            m_excitement *= portableExp(-kDecay * (piece.to - m_now));
            m_now = piece.to;
            ++m_piece;
            continue;
        }
        m_now += wait;
        m_excitement *= portableExp(-kDecay * wait);
        if (m_random.unit() * ceiling <= piece.rate + m_excitement) {
            m_excitement += m_jump;
            return m_now;
        }
    }
    return std::numeric_limits<double>::infinity();
}

} // namespace feed
