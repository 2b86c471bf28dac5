#include "view/tree/test_views.h"

using namespace Kesto;

namespace {

TEST_F(Tree, EdgesFollowTheParentAsTheBindingSays)
{
    struct Case {
        const char* what;
        std::uint32_t binding;
        Rect frame;
    };
    // The root grows from 400 x 300 to 500 x 360.
    const Case cases[] = {
        {"fixed", kBind_Fixed, {100, 50, 200, 100}},
        {"left top", kBind_FixedTopLeft, {100, 50, 200, 100}},
        {"right bottom", kBind_FixedBottomRight, {200, 110, 300, 160}},
        {"left wins", kBind_Left | kBind_Right, {100, 50, 200, 100}},
        {"sizeable", kBind_Sizeable, {100, 50, 300, 160}},
        {"size left: its left edge alone follows", kBind_SizeLeft, {100, 50, 200, 100}},
        {"size right", kBind_SizeRight, {100, 50, 300, 100}},
        {"centred", kBind_FixedMiddle, {200, 155, 300, 205}},
        {"left of the centre", kBind_FixedCenterLeft, {150, 50, 250, 100}},
        {"right of the centre", kBind_FixedCenterRight, {250, 50, 350, 100}},
        {"grows about the centre", kBind_SizeMidX, {150, 50, 350, 100}},
        {"grows left of the centre", kBind_SizeCenterLeft, {100, 50, 250, 100}},
        {"grows right of the centre", kBind_SizeCenterRight, {250, 50, 400, 100}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        root.SetContextSize({400, 300});
        CPane* const view = Add("v", {100, 50, 200, 100}, nullptr, 0, row.binding);
        root.SetContextSize({500, 360});
        EXPECT_EQ(view->GetFrame(), row.frame);
        view->Dispose();
    }
}

TEST_F(Tree, AttachingAppliesTheBindingOnce)
{
    const CPane* const middle = Add("m", {0, 0, 100, 100}, nullptr, 0, kBind_FixedMiddle);
    EXPECT_EQ(middle->GetFrame(), (Rect{150, 100, 250, 200}));
    const CPane* const right = Add("r", {10, 10, 20, 20}, nullptr, 0, kBind_FixedBottomRight);
    EXPECT_EQ(right->GetFrame(), (Rect{10, 10, 20, 20}));
}

TEST_F(Tree, EachChangeOfEdgesIsToldOnce)
{
    struct Sized : CPane {
        using CPane::CPane;
        void DidResize() override { ++told; }
        int told = 0;
    };
    const Sized* const view = root.AppendChild(
        std::make_unique<Sized>(Rect{10, 10, 20, 20}, CObjID{}, 0U, kBind_Sizeable));
    EXPECT_EQ(view->told, 1) << "when it is attached";
    root.SetContextSize({500, 400});
    EXPECT_EQ(view->told, 2);
}

// What holds for every binding, over random trees and sizes.
class Bindings : public Tree {
public:
    // Three levels of panes with these bits at random.
    void Grow(CView& parent, std::uint32_t bits, int depth)
    {
        for (int i = 0; i < 4; ++i) {
            const double x = Random(100);
            const double y = Random(80);
            CPane* const child = Add("v", {x, y, x + 1 + Random(200), y + 1 + Random(200)}, &parent,
                                     0, static_cast<std::uint32_t>(Random(1 << 18)) & bits);
            if (depth > 0)
                Grow(*child, bits, depth - 1);
        }
    }
    int Random(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    static void Collect(const CView& view, std::vector<double>& numbers)
    {
        const Rect frame = view.GetFrame();
        const Rect bounds = view.GetBounds();
        for (const Rect& rect : {frame, bounds})
            numbers.insert(numbers.end(), {rect.left, rect.top, rect.right, rect.bottom});
        for (std::size_t i = 0; i < view.CountChildren(); ++i)
            Collect(*view.GetChild(i), numbers);
    }
    std::vector<double> Numbers() const
    {
        std::vector<double> numbers;
        Collect(root, numbers);
        return numbers;
    }
    static double Distance(const std::vector<double>& a, const std::vector<double>& b)
    {
        double most = a.size() == b.size() ? 0.0 : INFINITY;
        for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
            most = std::max(most, std::abs(a[i] - b[i]));
        return most;
    }

    std::mt19937 random{20};
};

// Without scrolling, whose limits pull for good: the way back leads back, and two steps are one.
TEST_F(Bindings, ResizesUndoAndCompose)
{
    constexpr std::uint32_t kReversible = kBind_Sizeable | kBind_XCenter | kBind_YCenter |
                                          kBind_Left | kBind_Top | kBind_Right | kBind_Bottom |
                                          kBind_NoPin;
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        root.DisposeContents();
        Grow(root, kReversible, 2);
        const Point before{root.GetBounds().Width(), root.GetBounds().Height()};
        const std::vector<double> first = Numbers();
        const Point far{100.0 + Random(900), 100.0 + Random(900)};
        root.SetContextSize({100.0 + Random(900), 100.0 + Random(900)});
        root.SetContextSize(far);
        const std::vector<double> bySteps = Numbers();
        root.SetContextSize(before);
        EXPECT_LT(Distance(Numbers(), first), 1e-9);
        root.SetContextSize(far);
        EXPECT_LT(Distance(Numbers(), bySteps), 1e-9);
    }
}

TEST_F(Bindings, BoundsLieInTheLimitsAndImagesKeepTheirSize)
{
    struct Check {
        static void Of(const CView& view)
        {
            const Rect& limits = view.GetScrollLimits();
            const Rect& bounds = view.GetBounds();
            EXPECT_LE(limits.left, bounds.left + 1e-9);
            EXPECT_GE(limits.right, bounds.right - 1e-9);
            EXPECT_LE(limits.top, bounds.top + 1e-9);
            EXPECT_GE(limits.bottom, bounds.bottom - 1e-9);
            if (view.IsXScrollable())
                EXPECT_NEAR(view.GetImage().Width(), 120.0, 1e-9);
            else
                EXPECT_NEAR(view.GetImage().Width(), bounds.Width(), 1e-9);
            EXPECT_NEAR(view.GetFrame().Width(), bounds.Width(), 1e-9);
        }
    };
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        root.DisposeContents();
        const auto binding = static_cast<std::uint32_t>(Random(1 << 18)) | kBind_Sizeable;
        const std::uint32_t options = round % 2 == 0 ? 0U : std::uint32_t{kView_BigCoordinates};
        CPane* const view =
            Add("v", {10, 10, 210, 160}, nullptr, options, binding & ~0xF0U & ~0xCU);
        view->SetImageExtent(120, 900);
        for (int step = 0; step < 4; ++step) {
            view->ScrollTo({1.0 * Random(300), 1.0 * Random(900)});
            root.SetContextSize({250.0 + Random(400), 200.0 + Random(400)});
            Check::Of(*view);
        }
    }
}

TEST_F(Tree, ChildrenFollowTheImage)
{
    CPane* const view = Add("v", {0, 0, 100, 100}, nullptr, 0, kBind_Sizeable | kBind_Scrollable);
    CPane* const right = Add("r", {80, 0, 90, 10}, view, 0, kBind_Right);
    view->SetImageExtent(300, 300);
    EXPECT_EQ(right->GetFrame(), (Rect{280, 0, 290, 10}));
    root.SetContextSize({500, 400});
    EXPECT_EQ(right->GetFrame(), (Rect{280, 0, 290, 10})) << "the view grew, and not the image";
}

TEST_F(Tree, PortCoordinatesKeepTheViewsZeroAtThePorts)
{
    CPane* const outer = Add("o", {10, 20, 110, 120});
    CPane* const view = Add("v", {5, 5, 25, 25}, outer, 0, kBind_PortCoordinates);
    EXPECT_EQ(view->GetBounds(), (Rect{15, 25, 35, 45}));
    outer->MoveBy(3, 4);
    EXPECT_EQ(view->GetBounds(), (Rect{18, 29, 38, 49}));
    EXPECT_EQ(view->GetPortOffset(), Point{});
}

} // namespace
