// A bar on the terminal for long operations; nothing when messages go elsewhere.
#pragma once

#include <cstdint>
#include <string>

namespace Host {

class ProgressBar {
public:
    // `title` comes before the bar, such as "Opening".
    explicit ProgressBar(std::string title, bool wanted = true);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // Draws anew when the whole percentage has changed, so it can be called for each row.
    void Show(int64_t current, int64_t total);

private:
    void Draw(int percent);

    std::string fTitle;
    bool fEnabled;
    int fShown = -1;   // percent on the screen; -1: nothing yet
    int64_t fNext = 0; // what is below it leaves the percentage as it is
};

} // namespace Host
