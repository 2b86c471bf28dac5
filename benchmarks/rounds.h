// Times contenders side by side: each round runs every contender once, so that whatever else the machine does meets all
// of them; the median over the rounds counts.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
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

// Seconds that one run of each contender takes, median of `rounds`, after one round that isn't counted.
inline std::vector<double> MedianSeconds(std::size_t rounds, const std::vector<Contender>& contenders)
{
    std::vector<std::vector<double>> seconds(contenders.size());
    for (std::size_t round = 0; round <= rounds; ++round)
        for (std::size_t i = 0; i < contenders.size(); ++i) {
            const auto start = std::chrono::steady_clock::now();
            contenders[i].run();
            const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
            if (round > 0)
                seconds[i].push_back(elapsed.count());
            contenders[i].cleanUp();
        }
    std::vector<double> medians;
    for (auto& times : seconds) {
        std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2));
        medians.push_back(times[times.size() / 2]);
    }
    return medians;
}

} // namespace Bench
