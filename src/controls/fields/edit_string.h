// CEditString, a field in which a text is edited, of one line or several.
//
// The text is edited in a control of the platform; without one it is kept here and shown. What the
// user changes is sent as a CValueMessage with phase 4; a change that is left by Return with phase
// 2, by the focus going elsewhere with phase 5. A field without an id sends nothing. Calls of the
// program send nothing.
//
// Keys: Tab and Escape go on to the window, and so does Return, once what was typed is committed,
// but where it makes a new line. What edits stays in the field.
#pragma once

#include "controls/fields/system_control.h"
#include "drawing/ports/drawing_state.h"
#include "drawing/tools/font_kinds.h"
#include "foundation/base/text.h"
#include "layout/vocabulary/text_options.h"
#include "platform/windows/edit_control.h"
#include "view/process/timer.h"

#include <cstddef>
#include <cstdint>

namespace Kesto {

class CEditString : public CSystemControl, public CTimer, protected Platform::EditHandler {
public:
    // Phases of messages, beside those that all controls know.
    static constexpr std::uint32_t kPhase_Return = 2; // final
    static constexpr std::uint32_t kPhase_Live = 4;   // while it is typed
    static constexpr std::uint32_t kPhase_Leave = 5;  // final: the focus is lost

    // Units from the field's edge to its text, at the sides.
    static constexpr double kTextMargin = 5.0;

    explicit CEditString(const Rect& frame = {}, CObjID id = {},
                         std::uint32_t options = kView_TabStop,
                         std::uint32_t binding = kBind_Fixed);
    ~CEditString() override;

    // Positions count characters from 0; ends beyond the text are its end. The program's texts may
    // be longer than what can be typed. ReplaceSelection is as if it were typed.
    virtual void SetText(const CText& text);
    virtual CText GetText() const;
    virtual void SelectAll();
    virtual void Select(std::size_t from, std::size_t to);
    virtual Platform::TextRange GetSelection() const;
    virtual void ReplaceSelection(const CText& text);
    bool CanUndo() const; // what was typed

    // EEditOptions. Of a field that is in a window, one line or several and hidden or not stay as
    // they were.
    std::uint32_t GetTextOptions() const { return fTextFlags & kText_Options; }
    void SetTextOptions(std::uint32_t options);
    bool HasTextOption(std::uint32_t option) const { return (fTextFlags & option) != 0; }
    void SetMaxChars(std::size_t characters); // that can be typed; 0 for no limit
    std::size_t GetMaxChars() const { return fMaxChars; }
    void SetTextAlign(std::int32_t x, std::int32_t y);
    void SetFont(EFontKind font);

    // With kEdit_AutoGrow the field is as large as its text, between these; 0 for no limit.
    struct GrowLimits {
        std::int32_t minLines = 0;
        std::int32_t maxLines = 0;
        double minWidth = 0.0;
        double maxWidth = 128.0;
    };
    void SetGrowLimits(const GrowLimits& limits) { fGrowLimits = limits; }

    // Compares the field's text with what was sent last, and sends what is new. Run after each
    // change and by the timer.
    virtual void CheckLiveValue();

    // Takes over the field's text. False: the focus is to stay.
    virtual bool Commit() { return CommitWith(kPhase_Leave, true); }

    // Whether a typed character may enter the text.
    virtual bool FilterKey(const CKeyboardMessage& message) const;

    // A key that the field uses itself, with which the text's control has nothing to do.
    virtual void HandleFieldKey(CKeyboardMessage& message, bool& eaten);

    // Hook, before all that: true eats a key.
    virtual bool HandleEditKey(CKeyboardMessage&) { return false; }

    bool HandleKey(CKeyboardMessage& message) override;
    void SelectContents() override { SelectAll(); }
    void DidBecomeBullseye() override;
    void DidLoseBullseye() override;
    void MouseEnter(const CMouseEvent& event) override;
    void MouseExit() override;
    void DrawInContext(const CPaintEvent& event) override;
    void Fire(double now, double elapsed) override;

    // The size of a field with so many units of text in a line.
    static Point SizeOf(double textWidth, std::int32_t lines);

protected:
    // Bits of the text flags: the options, and more.
    static constexpr std::uint32_t kText_Options = 0x3FF;
    static constexpr std::uint32_t kText_IsNumber = 1U << 15;
    static constexpr std::uint32_t kText_AlertIsUp = 1U << 16;
    static constexpr std::uint32_t kText_NoCommit = 1U << 17;

    void PutTextFlag(std::uint32_t flag, bool on);

    // Puts a text in without a message.
    void PutText(const CText& text);

    // The user has changed the text. The base checks the live value.
    virtual void TextWasEdited();

    // Takes over the field's text and sends it with a phase. False: the focus is to stay.
    virtual bool CommitWith(std::uint32_t phase, bool mayAlert);

    // What the user has changed and nobody has committed.
    bool IsEdited() const { return fIsEdited; }

    // The field is drawn with the ring and the sign of what can't be.
    virtual bool LooksInvalid() const { return false; }

    std::unique_ptr<Platform::ChildControl> MakeControl(Platform::NativeWindow window) override;
    void WillDropControl() override;
    void LookChanged() override;
    PixelRect GetControlPixels() const override;

    bool Intercept(const Platform::WindowMessage& message) override;
    void ChildFocused(bool focused) override;
    void TextChanged() override;

private:
    // Who a key is for.
    enum class Use { kText, kWindow, kNobody };

    Platform::EditControl* Edit() const;
    Platform::EditLook Look() const;
    Platform::TextSide Side() const;
    Rect TextRect() const;
    double BaseLine() const;
    Use UseOf(const CKeyboardMessage& message) const;
    bool IsNewLine() const;
    void SendText(std::uint32_t phase);
    void Grow();
    void DrawText(CSystemPort& port) const;
    std::string ShownText() const;
    CFont TextFont() const;
    Platform::FontSpec DeviceFont() const;

    CText fText; // while there is no control; and the selection
    Platform::TextRange fSelection;
    std::uint32_t fTextFlags = kEdit_NoOptions;
    std::size_t fMaxChars = 0;
    std::int32_t fAlignX = kAlign_Default;
    std::int32_t fAlignY = kAlign_Default;
    EFontKind fFont = kFont_UI;
    GrowLimits fGrowLimits;
    CText fSent; // the text as everybody knows it
    bool fIsEdited = false;
    bool fIsHot = false;
    bool fGoesToControl = false; // the key that is being handled
};

} // namespace Kesto
