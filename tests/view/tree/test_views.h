// A tree for tests: an off-screen root, and panes that write down what they are told.
#pragma once

#include "support/testing.h"
#include "view/messages/message_ids.h"
#include "view/tree/context.h"
#include "view/tree/pane.h"

class Tree;

class LoggedPane : public Kesto::CPane {
public:
    LoggedPane(Tree& tree, std::string name, const Kesto::Rect& frame, std::uint32_t options,
               std::uint32_t binding)
        : CPane(frame, Kesto::CObjID(name.c_str()), options, binding), fTree(tree),
          fName(std::move(name))
    {
    }

    const std::string& Name() const { return fName; }

    bool CanSurrender(bool) override { return Said("asked") && surrenders; }
    void DidShow() override { Said("shown"); }
    void DidHide() override { Said("hidden"); }
    void DidEnable() override { Said("enabled"); }
    void DidDisable() override { Said("disabled"); }
    void MouseEnter(const Kesto::CMouseEvent&) override { Said("enter"); }
    void MouseExit() override { Said("exit"); }
    void MouseEnterChild(Kesto::CView&) override { Said("enterChild"); }
    void MouseExit2(Kesto::CView&) override { Said("exitChild"); }
    void PrimaryClick(const Kesto::CMouseEvent&) override { Said("click"); }
    bool PrimaryMultiClick(const Kesto::CMouseEvent&, int count) override
    {
        return Said("multi" + std::to_string(count)) && eatsMultiClicks;
    }
    void PrimaryUp(const Kesto::CMouseEvent&) override { Said("up"); }
    void SelectContents() override { Said("select"); }
    void DrawInContext(const Kesto::CPaintEvent&) override { Said("draw"); }
    void ScrollChanged(const Kesto::Rect&, const Kesto::Point& at, const Kesto::Point&,
                       const Kesto::Point&) override
    {
        Said("at" + std::to_string(static_cast<int>(at.x)) + "," +
             std::to_string(static_cast<int>(at.y)));
    }

    bool surrenders = true;
    bool eatsMultiClicks = true;

private:
    bool Said(const std::string& what);

    Tree& fTree;
    std::string fName;
};

class Tree : public testing::Test {
public:
    // Adds a pane below `parent`, or below the root.
    LoggedPane* Add(const std::string& name, const Kesto::Rect& frame,
                    Kesto::CView* parent = nullptr, std::uint32_t options = Kesto::kView_NoOptions,
                    std::uint32_t binding = Kesto::kBind_Fixed)
    {
        return (parent != nullptr ? *parent : root)
            .AppendChild(std::make_unique<LoggedPane>(*this, name, frame, options, binding));
    }

    Kesto::CMouseEvent At(double x, double y) const
    {
        Kesto::CMouseEvent event;
        event.fID = Kesto::kMessage_MouseMoved;
        event.fPortPoint = {x, y};
        event.fTime = now;
        return event;
    }
    void Move(double x, double y) { root.DispatchMouse(At(x, y)); }
    void Press(double x, double y, Kesto::CObjID button = Kesto::kMouseButton_Primary)
    {
        Button(x, y, button, Kesto::kMessage_MouseDown);
    }
    void Release(double x, double y, Kesto::CObjID button = Kesto::kMouseButton_Primary)
    {
        Button(x, y, button, Kesto::kMessage_MouseUp);
    }

    // Draws all of the tree and returns what was called.
    std::string Drawn()
    {
        root.InvalidateAll();
        return Paint();
    }
    std::string Paint()
    {
        Take();
        root.UpdateNow();
        return Take();
    }

    // A pixel of the root, as a number that is written 0xBBGGRR; all of them, row by row.
    std::uint32_t PixelAt(std::int32_t x, std::int32_t y) const
    {
        const std::uint8_t* const at = RowAt(y) + static_cast<std::ptrdiff_t>(x) * 4;
        return static_cast<std::uint32_t>(at[0] << 16 | at[1] << 8 | at[2]);
    }
    std::string Pixels() const
    {
        std::string pixels;
        const Kesto::PixelPoint size = root.GetClientPixels();
        for (std::int32_t y = 0; y < size.y; ++y)
            pixels.append(reinterpret_cast<const char*>(RowAt(y)),
                          static_cast<std::size_t>(size.x) * 4);
        return pixels;
    }

    // What was written down since the last call, without the blank in front.
    std::string Take()
    {
        const std::string text = std::exchange(log, {});
        return text.empty() ? text : text.substr(1);
    }

    std::string log;
    std::function<void(LoggedPane&, const std::string& what)> onHook; // after it is written down
    double now = 100.0;
    Kesto::CContext root{{400.0, 300.0}, Kesto::CObjID("root"), Kesto::kView_Target};

private:
    const std::uint8_t* RowAt(std::int32_t y) const
    {
        return root.GetBitmap().Bits() + root.GetBitmap().RowBytes() * y;
    }
    void Button(double x, double y, Kesto::CObjID button, Kesto::CObjID id)
    {
        Kesto::CMouseEvent event = At(x, y);
        event.fID = id;
        event.fButton = button;
        EXPECT_TRUE(root.DispatchMouse(event));
    }
};

inline bool LoggedPane::Said(const std::string& what)
{
    fTree.log += " " + fName + ":" + what;
    if (fTree.onHook)
        fTree.onHook(*this, what);
    return true;
}
