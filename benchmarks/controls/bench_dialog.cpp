// The frame dialog, from its text to views and to pixels, against the equal .ui by Qt's loader: off
// screen, one thread each, in the same run. Above 1 a ratio says that we are faster.
#include "controls/qt_dialog.h"
#include "controls/registered_classes.h"
#include "layout/build/layout_owner.h"
#include "rounds.h"
#include "view/window/window.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

using namespace Kesto;

namespace {

constexpr std::size_t kRounds = 101;

std::unique_ptr<CWindow> Build(const std::string& text)
{
    LayoutOwner owner;
    LoadLayoutFromText(owner, text.c_str());
    return owner.TakeWindow();
}

// Into the pixels of the window, all anew.
void Draw(CWindow& window, double scale)
{
    if (window.GetScale() != scale)
        window.ChangeScale(scale);
    window.InvalidateAll();
    window.UpdateNow();
}

void Compare(const char* what, const Bench::Contender& ours, const Bench::Contender& peer)
{
    const auto seconds = Bench::MedianSeconds(kRounds, {ours, peer}, Bench::ProcessorSeconds);
    std::printf("%-40s %8.1f us %8.2f Qt\n", what, seconds[0] * 1e6, seconds[1] / seconds[0]);
}

} // namespace

int main()
{
    RegisterViewClasses();
    std::ifstream file(SIDECAR_SOURCE_DIR "/resources/layouts/electricimage.vex", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    Bench::QtDialog peer;
    std::unique_ptr<CWindow> window;
    Compare("frame dialog, built", {[&] { window = Build(text); }, [&] { window.reset(); }},
            {[&] { peer.Build(); }});
    for (const double scale : {1.0, 2.0}) {
        char name[64];
        std::snprintf(name, sizeof name, "frame dialog, built and drawn, %g", scale);
        Compare(name,
                {[&] {
                     window = Build(text);
                     Draw(*window, scale);
                 },
                 [&] { window.reset(); }},
                {[&] {
                    peer.Build();
                    peer.Draw(scale);
                }});
    }
}
