#include "platform/system/linux/callee.h"

#include <cstdarg>
#include <cstdio>

double WeightedSum(int a, long b, int c, long d, int e, long f, double p, double q, double r,
                   double s, double t, double u, double v, double w, int g, double x)
{
    const double parts[] = {double(a), double(b), double(c), double(d), double(e), double(f),
                            p,         q,         r,         s,         t,         u,
                            v,         w,         double(g), x};
    double sum = 0;
    for (const double part : parts)
        sum = sum * 2 + part;
    return sum;
}

int Print(char* room, std::size_t size, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(room, size, format, arguments);
    va_end(arguments);
    return length;
}
