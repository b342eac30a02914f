#pragma once

#include <array>
#include <cstdint>

namespace feed {

/// Natural logarithm of a positive finite number, made of additions, multiplications and one division only,
/// so that every machine gives the same bits. Relative error below 1e-14.
double portableLog(double x);

/// e to the power x, bit for bit the same everywhere. Clamped to the range [-700, 700] of x.
double portableExp(double x);

/// The random numbers of the simulation: xoshiro256** seeded through splitmix64. The distributions of the
/// standard library differ between libraries; these do not, so that a seed gives the same day on every
/// machine. One thread.
class Random
{
public:
    explicit Random(std::uint64_t seed);

    std::uint64_t next();

    /// Evenly spread in the open interval (0, 1).
    double unit();

    /// Evenly spread over 0 .. n - 1; 0 for n of 0. `n` up to 2^32 - 1.
    std::uint32_t below(std::uint32_t n);

    /// True with probability `p`; never for p <= 0, always for p >= 1.
    bool chance(double p) { return unit() < p; }

    /// Exponential waiting time with mean 1.
    double exponential() { return -portableLog(unit()); }

    /// Close to the normal distribution with mean 0 and deviation 1; never beyond 3.5.
    double normal();

    /// Heavy tail from 1 on: greater than x with probability x^-alpha. At most 1e12.
    double pareto(double alpha);

private:
    std::array<std::uint64_t, 4> m_state;
};

} // namespace feed
