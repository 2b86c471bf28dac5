// A native window without looks that writes down which messages were dispatched to it.
#pragma once

#include "platform/input/message_queue.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class TestWindow {
public:
    TestWindow();
    ~TestWindow();

    Platform::NativeWindow Handle() const;

    // Those of keys, of the mouse, of timers, and of numbers from kUser on.
    std::vector<std::uint32_t> received;
    std::function<void()> onMessage = [] {};

private:
    struct Native;
    std::unique_ptr<Native> fNative;
};

// Processor time that this program has used, in seconds.
double ProcessorSeconds();
