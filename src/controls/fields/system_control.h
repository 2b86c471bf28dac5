// CSystemControl, a pane that holds a control of the platform.
//
// The control is there while the pane is in a window of the screen, and lies over a part of the
// pane while that can be seen whole and used; otherwise the pane shows what the control would.
// Keys and presses of the control come to the pane first.
#pragma once

#include "controls/base/child_holder.h"
#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

#include <memory>

namespace Kesto {

class CSystemControl : public CPane {
public:
    using CPane::CPane;

    // The control's window, while it shows.
    Platform::NativeWindow GetFocusWindow() override;

    void ContextDidChange() override;
    void PortOffset() override;
    void DidResize() override;
    void DidShow() override;
    void DidHide() override;
    void DidEnable() override;
    void DidDisable() override;
    void UIScaleChanged() override;
    void DrawInContext(const CPaintEvent& event) override;

protected:
    // Makes the control for a window; takes over what it holds before it is destroyed. The base has
    // none.
    virtual std::unique_ptr<Platform::ChildControl> MakeControl(Platform::NativeWindow)
    {
        return nullptr;
    }
    virtual void WillDropControl() {}

    // What the control shows in has changed: theme, scale.
    virtual void LookChanged() {}

    // Where the control lies, in the pixels of its window.
    virtual PixelRect GetControlPixels() const;
    virtual bool WantsControlShown() const { return IsVisible() && IsUsable(); }

    // Null while there is none.
    Platform::ChildControl* GetControl() const { return fHolder.Get(); }

    // Makes the control if there can be one now, and puts it where it belongs.
    void FitControl();

    // What a handler answers for its control. True: the message goes no further.
    bool InterceptMessage(const Platform::WindowMessage& message);

    // For destructors of classes that handle the control: ends it while its handler lives.
    void DropControl();

private:
    CChildHolder fHolder;
    std::uint32_t fGeneration = 0; // of the tools that the control's look comes from
};

template <>
class CPaneBuilder<CSystemControl> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto
