// What the test of late binding calls: a library that is there, and one that isn't.
#pragma once

#include <cstddef>

extern "C" {
[[gnu::visibility("default")]] double WeightedSum(int a, long b, int c, long d, int e, long f,
                                                  double p, double q, double r, double s, double t,
                                                  double u, double v, double w, int g, double x);
[[gnu::visibility("default"), gnu::format(printf, 3, 4)]] int Print(char* room, std::size_t size,
                                                                    const char* format, ...);
[[gnu::visibility("default")]] int Unreachable();
}
