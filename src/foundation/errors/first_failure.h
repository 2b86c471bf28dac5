// CFirstFailure, for steps that are all to be done, whatever becomes of the others.
#pragma once

#include <concepts>
#include <exception>

namespace Kesto {

class CFirstFailure {
public:
    // Runs a step. What it throws is kept if it is the first that is thrown.
    template <std::invocable Step>
    void Try(Step step)
    {
        try {
            step();
        } catch (...) {
            if (fFailure == nullptr)
                fFailure = std::current_exception();
        }
    }

    // Behind the last step: throws what was kept, if anything was.
    void Throw() const
    {
        if (fFailure != nullptr)
            std::rethrow_exception(fFailure);
    }

private:
    std::exception_ptr fFailure;
};

} // namespace Kesto
