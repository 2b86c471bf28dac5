// What bench_dialog and bench_windows measure themselves against: the frame dialog by Qt's loader
// of .ui files, off screen.
#pragma once

#include <memory>

namespace Bench {

class QtDialog {
public:
    QtDialog();
    ~QtDialog();

    // From text to widgets with their layout done; those that were there go.
    void Build();
    // The whole dialog into an image of its size.
    void Draw(double scale);
    // Builds it and runs it modally until it has been painted once.
    void Run();

private:
    struct Parts;
    std::unique_ptr<Parts> fParts;
};

} // namespace Bench
