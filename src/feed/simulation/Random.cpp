#include "feed/simulation/Random.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace feed {
namespace {

constexpr double kLn2 = 0.69314718055994530942;
constexpr double kSqrt2 = 1.41421356237309504880;

std::uint64_t splitmix(std::uint64_t& state)
{
    std::uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

std::uint64_t rotateLeft(std::uint64_t x, int by)
{
    return (x << by) | (x >> (64 - by));
}

} // namespace

double portableLog(double x)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    int exponent = static_cast<int>((bits >> 52) & 0x7FF) - 1023;
    bits = (bits & 0x000FFFFFFFFFFFFFull) | 0x3FF0000000000000ull;
    double mantissa = 1;
    std::memcpy(&mantissa, &bits, sizeof mantissa);
    if (mantissa > kSqrt2) {
        mantissa /= 2;
        ++exponent;
    }
    // log m = 2 artanh s with s = (m - 1) / (m + 1), |s| < 0.172: nine terms reach the last bit.
    const double s = (mantissa - 1) / (mantissa + 1);
    const double q = s * s;
    double series = 1.0 / 19;
    for (int odd = 17; odd >= 1; odd -= 2)
        series = series * q + 1.0 / odd;
    return 2 * s * series + exponent * kLn2;
}

double portableExp(double x)
{
    x = std::clamp(x, -700.0, 700.0);
    const int power = static_cast<int>(std::floor(x / kLn2 + 0.5));
    const double rest = x - power * kLn2;
    double series = 1;
    for (int n = 13; n >= 1; --n)
        series = 1 + series * rest / n;
    const std::uint64_t bits = static_cast<std::uint64_t>(power + 1023) << 52;
    double scale = 1;
    std::memcpy(&scale, &bits, sizeof scale);
    return series * scale;
}

Random::Random(std::uint64_t seed)
{
    for (std::uint64_t& word : m_state)
        word = splitmix(seed);
}

std::uint64_t Random::next()
{
    const std::uint64_t result = rotateLeft(m_state[1] * 5, 7) * 9;
    const std::uint64_t shifted = m_state[1] << 17;
    m_state[2] ^= m_state[0];
    m_state[3] ^= m_state[1];
    m_state[1] ^= m_state[2];
    m_state[0] ^= m_state[3];
    m_state[2] ^= shifted;
    m_state[3] = rotateLeft(m_state[3], 45);
    return result;
}

double Random::unit()
{
    return (static_cast<double>(next() >> 12) + 0.5) * (1.0 / 4503599627370496.0);
}

std::uint32_t Random::below(std::uint32_t n)
{
    return static_cast<std::uint32_t>(((next() >> 32) * n) >> 32);
}

double Random::normal()
{
    // Four even numbers of 16 bits have the sum's mean 131070 and the deviation 65536 / sqrt(3).
    const std::uint64_t bits = next();
    const std::uint64_t sum =
        (bits & 0xFFFF) + ((bits >> 16) & 0xFFFF) + ((bits >> 32) & 0xFFFF) + (bits >> 48);
    return (static_cast<double>(sum) - 131070.0) / 37837.2270529;
}

double Random::pareto(double alpha)
{
    const double exponent = std::min(exponential() / std::max(alpha, 0.05), 27.6);
    return portableExp(exponent);
}

} // namespace feed
