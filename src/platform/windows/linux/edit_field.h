// The field of Linux: what its user does with mouse and keys, and how it looks.
#pragma once

#include "platform/windows/edit_control.h"
#include "platform/windows/linux/child_window.h"
#include "platform/windows/linux/edit_layout.h"
#include "platform/windows/linux/edit_model.h"

#include <optional>

namespace Platform {

class EditField final : public EditControl, private ChildWindow {
public:
    EditField(LinuxWindow& parent, const EditStyle& style, const EditLook& look,
              EditHandler& handler);
    ~EditField() override;

    NativeWindow Handle() const override { return ChildHandle(); }
    void Place(const PixelRect& rect) override;
    void SetShown(bool shown) override { ShowChild(shown); }
    void SetControlEnabled(bool enabled) override { EnableChild(enabled); }

    void SetText(std::string_view text) override;
    std::string Text() const override { return fModel.Text(); }
    void Select(TextRange range) override;
    TextRange Selection() const override;
    void ReplaceSelection(std::string_view text) override;
    void SetLimit(std::size_t characters) override { fModel.SetLimit(characters); }
    void SetReadOnly(bool readOnly) override { fStyle.readOnly = readOnly; }
    void SetLook(const EditLook& look) override;

    void Cut() override;
    void Copy() override;
    void Paste() override;
    void Undo() override;
    void Redo() override;
    bool CanUndo() const override { return !fStyle.readOnly && fModel.CanUndo(); }
    bool CanRedo() const override { return !fStyle.readOnly && fModel.CanRedo(); }

private:
    // How far a press with its drag selects at a time.
    enum class Grain { kCharacter, kWord, kLine };

    std::intptr_t Act(const WindowMessage& message) override;
    void Draw(const Bitmap& picture) override;
    void DrawRow(const Bitmap& picture, std::size_t row);
    PixelRect CaretPlace() const;

    void HandleKey(std::uint32_t key);
    bool MoveByKey(std::uint32_t key, bool byWord, bool extend);
    void MoveVertically(std::int32_t rows, bool extend);
    void DeleteByKey(bool forward, bool byWord);
    void HandleCharacter(std::uint32_t unit);
    void Type(std::u16string_view units);

    void Press(PixelPoint point, bool extend);
    void Drag(PixelPoint point);
    TextRange GrainAt(std::size_t position) const;
    std::size_t PositionAtPoint(PixelPoint point) const;

    void Change(std::size_t from, std::size_t to, std::string_view text, bool isTyping);
    void MoveCaret(std::size_t position, bool extend);
    void Changed(bool tell);
    void Arrange();
    void RevealCaret();
    void ShowCaret();
    void HideCaret();
    void BlinkCaret();
    void EndBlinking();
    std::int32_t RowsShown() const;

    EditHandler& fHandler;
    EditStyle fStyle;
    EditLook fLook;
    EditModel fModel;
    EditLayout fLayout;
    PixelPoint fScroll;
    std::optional<std::int32_t> fWantedX; // that moves up and down keep to
    char16_t fHighHalf = 0;               // of a character that comes as two units
    bool fCaretIsOn = false;
    int fBlinksLeft = 0; // until the caret stays on
    Grain fGrain = Grain::kCharacter;
    TextRange fPressed; // that a drag keeps selected
    PixelPoint fLastPress;
    std::uint32_t fLastPressTime = 0;
    int fPressCount = 0;
};

} // namespace Platform
