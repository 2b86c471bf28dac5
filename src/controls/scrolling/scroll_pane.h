// CScrollPane, a view whose contents can be larger than it is.
//
// The image reaches over the children, unless the layout gives its extent. Wheel and keys scroll
// it, bars do when it is in a CScroller, and a child that gets the focus comes into sight.
#pragma once

#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

namespace Kesto {

class CScrollPane;

// Hears when a pane has scrolled, or its size or extent has changed.
class CScrollListener {
public:
    virtual ~CScrollListener() = default;
    virtual void ScrollPaneChanged(CScrollPane& pane) = 0;
};

class CScrollPane : public CPane {
public:
    static constexpr double kLine = 16.0;  // units that an arrow key scrolls
    static constexpr double kNotch = 48.0; // and a notch of the wheel

    explicit CScrollPane(const Rect& frame = {}, CObjID id = {},
                         std::uint32_t options = kView_NoOptions,
                         std::uint32_t binding = kBind_Fixed);

    // How far it can be scrolled, both ways; 0 where everything is seen.
    Point GetScrollWay() const;

    // An extent that is given stays whatever children come.
    void SetImageExtent(double width, double height) override;

    // To the nearest whole pixel.
    void ScrollTo(const Point& position) override;

    // One listener, who outlives the pane or takes himself off with null.
    void SetListener(CScrollListener* listener) { fListener = listener; }

    void InsertChild(std::size_t index, std::unique_ptr<CPane> child) override;
    void DidResize() override;
    void ScrollChanged(const Rect& image, const Point& position, const Point& imageSize,
                       const Point& size) override;
    bool MouseWheel(const CMouseEvent& event) override;
    bool HandleKey(CKeyboardMessage& message) override;
    void OnUpdateChain() override;

private:
    void Tell();
    void ReachOverChildren();

    CScrollListener* fListener = nullptr;
    bool fHasExtent = false;
};

template <>
class CPaneBuilder<CScrollPane> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto
