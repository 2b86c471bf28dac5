// CTabbedPane, pages one behind the other with a row of tabs above them; CTabPane, a page.
//
// Each child is a page; the front one shows. A choice of the user is sent as a CValMsg<unsigned> of
// numbers of pages, from 0, phase 1. Keys: the arrows, Home and End on the tabs; Control with Tab,
// PageUp and PageDown also from within a page.
#pragma once

#include "controls/base/drawn_control.h"
#include "foundation/base/text.h"
#include "layout/build/pane_builder.h"

#include <optional>

namespace Kesto {

class CTabPane : public CPane {
public:
    explicit CTabPane(const Rect& frame = {}, CObjID id = {},
                      std::uint32_t options = kView_NoOptions, std::uint32_t binding = kBind_Fixed);

    const CText& GetTitle() const { return fTitle; }
    // What its tab says.
    void SetTitle(CText title);

    void DrawBackground() override; // of the pane below the tabs

private:
    CText fTitle;
};

class CTabbedPane : public CDrawnControl {
public:
    static constexpr double kTabHeight = 26.0;
    static constexpr double kPadding = 12.0; // between the pane's edge and the pages

    explicit CTabbedPane(const Rect& frame = {}, CObjID id = {},
                         std::uint32_t options = kView_NoOptions,
                         std::uint32_t binding = kBind_Fixed);

    // 0 without pages.
    std::size_t GetFront() const { return fFront; }
    // Quietly. A page that is still to come is in front once it has.
    void SetFront(std::size_t page);
    // By the user: a page that can be used comes to the front, and that is sent.
    void Choose(std::size_t page);

    // A page's title, or its id, or its number from 1.
    CText TitleOf(std::size_t page) const;
    // Where a page's tab is; all tabs are made narrower where there are too many.
    Rect TabRect(std::size_t page) const;
    std::optional<std::size_t> TabAt(const Point& local) const;

    void InsertChild(std::size_t index, std::unique_ptr<CPane> child) override;
    std::unique_ptr<CPane> RemoveChild(CPane* child) override;
    void DrawInContext(const CPaintEvent& event) override;
    void MouseOver(const CMouseEvent& event) override;
    void MouseExit() override;
    void PrimaryClick(const CMouseEvent& event) override;
    bool HandleKey(CKeyboardMessage& message) override;

private:
    void ShowFront();
    // The next page that can be used, round the end.
    std::size_t NextPage(std::size_t from, bool forward) const;
    bool UseKey(const CKeyboardMessage& message);
    void DrawTab(CSystemPort& port, std::size_t page);

    std::size_t fFront = 0;
    std::size_t fAwaited = 0; // the page that was asked for last
    std::optional<std::size_t> fHotTab;
};

template <>
class CPaneBuilder<CTabPane> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override { return {.required = kView_Target}; }
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

template <>
class CPaneBuilder<CTabbedPane> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    // Pages lie one behind the other, and keep off tabs and edges unless the text gives margins.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override
    {
        return {.fallback = kView_TabStop, .required = kView_Target};
    }
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
