#pragma once

namespace kiv::test {

// Models for runs of the command.

// More pigeons than holes, told by pairs: no search can exclude all ways in the time of a test.
inline constexpr const char* kEndless =
    "param n : int = 14; p[n] : enum int = [1, n - 1];\n"
    "for i in 1..n, j in i+1..n { p[i] <> p[j]; }\n"
    "solve;";

// Its first solution comes at once; to prove that none is better takes as long.
inline constexpr const char* kEndlessOptimisation =
    "param n : int = 14; p[n] : enum int = [1, n]; e : enum int = [0, 1];\n"
    "for i in 1..n, j in i+1..n { p[i] <> p[j]; }\n"
    "for i in 1..n { p[i] <= n - 1 + e; }\n"
    "branch on e, p by input_order, greatest;\n"
    "minimize e;";

// Objectives 1, 2, 3, ... 9, when the smallest values go first.
inline constexpr const char* kClimb = "x : enum int = [1, 9]; maximize x;";

}  // namespace kiv::test
