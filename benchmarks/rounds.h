// Times contenders side by side: each round runs every contender once, so that whatever else the
// machine does meets all of them; the median over the rounds counts.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <functional>
#include <vector>

namespace Bench {

// Keeps the compiler from dropping work whose result nobody reads.
template <class T>
void Keep(const T& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

// What is timed, and what is done untimed after each run.
struct Contender {
    std::function<void()> run;
    std::function<void()> cleanUp = [] {};
};

// Seconds since some moment: of time, or of the processor's work for this process, which is what
// counts for contenders that only compute, since it leaves out the time that other processes take
// away.
inline double WallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}
inline double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Seconds that one run of a contender takes: the median over the rounds, and the round that met the
// least of what else the machine does.
struct Seconds {
    double median;
    double best;
};

// Those of each contender over `rounds` rounds, after one that isn't counted.
inline std::vector<Seconds> TimeRounds(std::size_t rounds, const std::vector<Contender>& contenders,
                                       double (*now)() = WallSeconds)
{
    std::vector<std::vector<double>> seconds(contenders.size());
    for (std::size_t round = 0; round <= rounds; ++round)
        for (std::size_t i = 0; i < contenders.size(); ++i) {
            const double start = now();
            contenders[i].run();
            const double elapsed = now() - start;
            if (round > 0)
                seconds[i].push_back(elapsed);
            contenders[i].cleanUp();
        }
    std::vector<Seconds> results;
    for (auto& times : seconds) {
        std::ranges::sort(times);
        results.push_back({times[times.size() / 2], times.front()});
    }
    return results;
}

// The medians alone.
inline std::vector<double> MedianSeconds(std::size_t rounds,
                                         const std::vector<Contender>& contenders,
                                         double (*now)() = WallSeconds)
{
    std::vector<double> medians;
    for (const Seconds& each : TimeRounds(rounds, contenders, now))
        medians.push_back(each.median);
    return medians;
}

} // namespace Bench
