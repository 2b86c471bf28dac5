// A tree of rows of cells, as forms and tool panels are: what building, resizing, hit tests and
// drawing cost, and whether the cost for each view stays flat as trees grow.
#include "rounds.h"
#include "view/tree/context.h"
#include "view/tree/pane.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Kesto;

namespace {

constexpr double kCell = 6.0; // units
constexpr std::size_t kRounds = 9;

class Cell : public CPane {
public:
    using CPane::CPane;
    void DrawInContext(const CPaintEvent&) override
    {
        GetPort()->Paint(fBounds, Colour{0x40, 0x80, 0xC0});
    }
};

// About `views` views: so many rows as a row has cells. Rows stretch, cells keep their places.
class Form {
public:
    explicit Form(std::size_t views) : fSide(static_cast<std::size_t>(std::sqrt(views)))
    {
        const double side = static_cast<double>(fSide) * kCell;
        fRoot = std::make_unique<CContext>(Point{side, side});
        for (std::size_t y = 0; y < fSide; ++y) {
            const double top = static_cast<double>(y) * kCell;
            CPane* const row = fRoot->AppendChild(std::make_unique<CPane>(
                Rect{0, top, side, top + kCell}, CObjID{}, 0U, kBind_XSizeable));
            for (std::size_t x = 0; x < fSide; ++x) {
                const double left = static_cast<double>(x) * kCell;
                row->AppendChild(std::make_unique<Cell>(Rect{left + 1, 1, left + kCell, kCell},
                                                        CObjID{}, 0U, kBind_Right));
            }
        }
        fRoot->UpdateNow();
    }

    CContext& Root() { return *fRoot; }
    std::size_t Count() const { return fSide * (fSide + 1); }
    CView& CellAt(std::size_t index)
    {
        return *fRoot->GetChild(index / fSide % fSide)->GetChild(index % fSide);
    }

    void Resize()
    {
        const Rect bounds = fRoot->GetBounds();
        fWide = !fWide;
        fRoot->SetContextSize({bounds.Width() + (fWide ? 10 : -10), bounds.Height()});
    }

private:
    std::size_t fSide;
    std::unique_ptr<CContext> fRoot;
    bool fWide = false;
};

struct Times {
    double build, resize, draw; // nanoseconds for each view
    double hit, redraw;         // microseconds for each time
};

Times TimeTree(std::size_t views)
{
    constexpr std::size_t kTimes = 100;
    Form form(views);
    std::unique_ptr<Form> built;
    std::size_t at = 0;
    const std::vector<Bench::Contender> contenders = {
        {[&] { built = std::make_unique<Form>(views); }, [&] { built.reset(); }},
        {[&] { form.Resize(); }},
        {[&] {
            form.Root().InvalidateAll();
            form.Root().UpdateNow();
        }},
        {[&] {
            const double side = form.Root().GetBounds().Height();
            for (std::size_t i = 0; i < kTimes; ++i)
                Bench::Keep(form.Root().ChildAtPoint(
                    {std::fmod(i * 61.8, side), std::fmod(i * 38.2, side)}));
        }},
        {[&] {
            for (std::size_t i = 0; i < kTimes; ++i) {
                form.CellAt(at += 7919).InvalidateAll();
                form.Root().UpdateNow();
            }
        }},
    };
    const std::vector<Bench::Seconds> seconds =
        Bench::TimeRounds(kRounds, contenders, Bench::ProcessorSeconds);
    const double each = 1e9 / static_cast<double>(form.Count());
    return {seconds[0].median * each, seconds[1].median * each, seconds[2].median * each,
            seconds[3].median * 1e6 / kTimes, seconds[4].median * 1e6 / kTimes};
}

} // namespace

int main()
{
    std::printf("a tree of views: ns for each view, us for each time\n");
    std::printf("%8s %10s %10s %10s %12s %18s\n", "views", "build", "resize", "draw all",
                "hit test", "redraw of one");
    for (const std::size_t views : {100U, 1000U, 10000U, 100000U}) {
        const Times t = TimeTree(views);
        std::printf("%8zu %7.0f ns %7.0f ns %7.0f ns %9.2f us %15.2f us\n", views, t.build,
                    t.resize, t.draw, t.hit, t.redraw);
    }
}
