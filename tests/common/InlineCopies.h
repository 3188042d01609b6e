#pragma once

#include <cstdint>

// Both use the same function of the standard library, which neither compiles into its own code; the linker
// keeps one file's copy of it.

/// The first number of a Mersenne twister, in a file compiled with -O2.
std::uint32_t drawnModerately(std::uint32_t seed);

/// What many numbers of one come to, in a file compiled with -O3.
std::uint32_t drawnFast(std::uint32_t seed, int count);
