// Measures contestants in turn, round after round, so that what disturbs the machine disturbs them
// all, and compares the medians.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace Bench {

class Race {
public:
    explicit Race(std::string name) : fName(std::move(name)) {}

    // `every`: runs in each so many rounds only, for those that take long. `aim`: the ratio to
    // reach, 0 for none.
    void Enter(std::string name, std::function<void()> run, double aim = 0, int every = 1)
    {
        fEntrants.push_back({std::move(name), std::move(run), aim, every, {}});
    }

    // The first entrant's speed in units of each other's.
    void Run(int rounds)
    {
        for (int round = -1; round < rounds; ++round) // one to warm up
            for (Entrant& entrant : fEntrants)
                if (round % entrant.every == 0 || round < 0)
                    Measure(entrant, round >= 0);
        const double ours = Median(fEntrants[0].seconds);
        std::printf("%s\n  %-46s %8.2f ms\n", fName.c_str(), fEntrants[0].name.c_str(), ours * 1e3);
        for (size_t i = 1; i < fEntrants.size(); ++i) {
            const double theirs = Median(fEntrants[i].seconds);
            std::printf("  %-46s %8.2f ms   ours is %6.2f x", fEntrants[i].name.c_str(),
                        theirs * 1e3, theirs / ours);
            if (fEntrants[i].aim > 0)
                std::printf("   aim %.1f x", fEntrants[i].aim);
            std::printf("\n");
        }
        std::fflush(stdout);
    }

private:
    struct Entrant {
        std::string name;
        std::function<void()> run;
        double aim;
        int every;
        std::vector<double> seconds;
    };

    // The second of two runs, so that everybody finds the caches as it left them itself.
    static void Measure(Entrant& entrant, bool counts)
    {
        if (entrant.every == 1)
            entrant.run();
        const auto start = std::chrono::steady_clock::now();
        entrant.run();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        if (counts)
            entrant.seconds.push_back(taken.count());
    }

    static double Median(std::vector<double> values)
    {
        std::ranges::nth_element(values,
                                 values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
        return values[values.size() / 2];
    }

    std::string fName;
    std::vector<Entrant> fEntrants;
};

} // namespace Bench
