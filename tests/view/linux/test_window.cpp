#include "view/test_window.h"

#include "platform/input/linux/input.h"

#include <ctime>

struct TestWindow::Native : Platform::MessageReceiver {
    explicit Native(TestWindow& owner) : window(owner) {}

    std::intptr_t Receive(std::uint32_t number, std::uintptr_t, std::intptr_t) override
    {
        window.received.push_back(number);
        window.onMessage();
        return 0;
    }

    TestWindow& window;
};

TestWindow::TestWindow() : fNative(std::make_unique<Native>(*this)) {}

TestWindow::~TestWindow() = default;

Platform::NativeWindow TestWindow::Handle() const
{
    return fNative->Handle();
}

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}
