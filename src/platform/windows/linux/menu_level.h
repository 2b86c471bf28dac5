// MenuLevel, one window of a menu that is open, with the submenu that is open beside it.
//
// One row at most is lit. A row that the mouse lights opens its submenu; while one is open, another
// row has to stay lit for a moment before it takes its place, so that the mouse can go to the
// submenu the short way. Rows that the screen has no room for are scrolled: by the wheel, by keys,
// and by the mouse that rests on an arrow.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/windows/popup_menu.h"
#include "platform/windows/window_procedure.h"

#include <memory>
#include <optional>

namespace Platform {

class MenuLevel final : public WindowProcedure {
public:
    // Below a rectangle of the screen, or above it where there is more room. Rows and look outlive
    // it. The row that is checked is in sight; none is lit.
    MenuLevel(NativeWindow owner, const PixelRect& beside, std::span<const MenuRow> rows,
              const MenuLook& look);
    // A submenu, beside the row of its parent that it belongs to.
    MenuLevel(MenuLevel& parent, std::size_t row);
    ~MenuLevel();
    MenuLevel(const MenuLevel&) = delete;
    MenuLevel& operator=(const MenuLevel&) = delete;

    bool IsAlive() const;

    // The id of the row that was chosen here or in a submenu.
    std::optional<int> Chosen() const;

    // True when a point of the screen lies on it or a submenu.
    bool Covers(PixelPoint point) const;

    // The mouse has gone elsewhere: no row is lit but the one whose submenu is open.
    void MouseLeft();

    // A key goes down; it is for the innermost level in which a row is lit. False: the menu is to
    // be left.
    bool TakeKey(std::uintptr_t key);

private:
    std::int32_t RowHeight() const;
    std::int32_t HeightOf(const MenuRow& row) const;
    std::int32_t HeightOfAll(std::size_t count) const; // of the first rows
    PixelPoint Measure(std::int32_t leastWidth) const;
    void Open(const PixelRect& content);

    std::intptr_t Receive(const WindowMessage& message) override;
    void MouseAt(PixelPoint point);
    void TakeTimer(std::uintptr_t timer);

    PixelRect Local() const;
    PixelRect RowsArea() const; // between the arrows, if there are any
    PixelRect RowRect(std::size_t row) const;
    std::optional<std::size_t> RowAt(PixelPoint point) const;
    bool CanBeLit(std::size_t row) const { return fRows[row].enabled && !fRows[row].separator; }

    void Light(std::optional<std::size_t> row);
    void Step(int by); // lights the next row that can be, round the ends
    void LightByLetter(std::uintptr_t letter);
    void OpenSub();
    void CloseSub();
    void Choose();
    void Scroll(std::int32_t by);
    void ShowRow(std::size_t row); // scrolls so far that it is seen

    void Paint();
    void DrawRow(const Bitmap& bitmap, std::size_t row) const;
    void DrawArrow(const Bitmap& bitmap, const PixelRect& rect, const char* arrow, bool on) const;

    NativeWindow fOwner;
    MenuLevel* fParent = nullptr;
    std::span<const MenuRow> fRows;
    const MenuLook& fLook;
    Font fFont;
    NativeWindow fHandle = nullptr;
    bool fScrolls = false;
    std::int32_t fScrolled = 0; // pixels that lie above the area of the rows
    int fPointedArrow = 0;      // that the mouse rests on: -1 the upper one, 1 the lower
    std::optional<std::size_t> fLit;
    std::optional<int> fChosen;
    std::size_t fSubRow = 0;
    std::unique_ptr<MenuLevel> fSub;
};

} // namespace Platform
