// Timers and idlers that call back.
#pragma once

#include "view/process/idler.h"
#include "view/process/timer.h"

#include <functional>
#include <utility>

struct CallTimer : Kesto::CTimer {
    explicit CallTimer(
        double period, std::function<void()> what = [] {})
        : CTimer(period), call(std::move(what))
    {
    }
    void OnStart() override { ++starts; }
    void OnStop() override { ++stops; }
    void Fire(double, double since) override
    {
        ++fired;
        elapsed += since;       // a late firing may have the next one close behind it
        const auto copy = call; // the timer may die in it
        copy();
    }

    std::function<void()> call;
    int starts = 0;
    int stops = 0;
    int fired = 0;
    double elapsed = 0.0;
};

struct CallIdler : Kesto::CIdler {
    explicit CallIdler(std::function<void()> what, double period = 0.0)
        : CIdler(period), call(std::move(what))
    {
    }
    void Idle() override { call(); }

    std::function<void()> call;
};
