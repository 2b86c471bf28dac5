#include "platform/windows/edit_control.h"

#include "platform/system/win32/wide.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/win32/child_notices.h"
#include "platform/windows/win32/device.h"
#include "platform/windows/win32/edit_picture.h"
#include "platform/windows/win32/edit_text.h"

#include <algorithm>
#include <utility>

namespace Platform {
namespace {

DWORD StyleBits(const EditStyle& style)
{
    DWORD bits = style.multiLine ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN : ES_AUTOHSCROLL;
    if (style.multiLine && !style.wraps)
        bits |= ES_AUTOHSCROLL;
    if (style.readOnly)
        bits |= ES_READONLY;
    if (style.password)
        bits |= ES_PASSWORD;
    if (style.side == TextSide::kMiddle)
        bits |= ES_CENTER;
    if (style.side == TextSide::kRight)
        bits |= ES_RIGHT;
    return bits;
}

HFONT MakeFont(const FontSpec& spec)
{
    LOGFONTW font{};
    font.lfHeight = -spec.pixels;
    font.lfWeight = spec.weight;
    font.lfItalic = spec.italic ? TRUE : FALSE;
    font.lfUnderline = spec.underline ? TRUE : FALSE;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = ANTIALIASED_QUALITY;
    const std::wstring face = ToWide(spec.face);
    face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&font);
}

COLORREF ToSystem(Colour colour)
{
    return RGB(colour.red, colour.green, colour.blue);
}

bool IsHeld(int key)
{
    return GetKeyState(key) < 0;
}

class SystemEdit final : public EditControl, private SystemChild {
public:
    SystemEdit(NativeWindow window, const EditStyle& style, const EditLook& look,
               EditHandler& handler)
        : SystemChild(handler, window, L"EDIT", StyleBits(style)), fHandler(handler)
    {
        if (Child() == nullptr)
            return;
        constexpr wchar_t kDot = 0x25CF;
        SendMessageW(Child(), EM_SETLIMITTEXT, kNoLimit, 0);
        if (style.password)
            SendMessageW(Child(), EM_SETPASSWORDCHAR, kDot, 0);
        SetLook(look);
    }

    ~SystemEdit() override { DropLook(); }

    using SystemChild::Refusal;
    NativeWindow Handle() const override { return Window(Child()); }
    void Place(const PixelRect& rect) override { PlaceChild(rect); }
    void SetShown(bool shown) override { ShowChild(shown); }
    void SetControlEnabled(bool enabled) override { EnableChild(enabled); }

    void SetText(std::string_view text) override
    {
        const Quiet quiet(*this);
        fUndone = false;
        SetWindowTextW(Child(), ToFieldText(text).c_str());
        fKept = text;
    }

    // A field whose window is gone has the text that was set last.
    std::string Text() const override
    {
        return Child() != nullptr ? FromFieldText(FieldText()) : fKept;
    }

    void Select(TextRange range) override
    {
        const std::wstring text = FieldText();
        SendMessageW(Child(), EM_SETSEL, UnitOfCharacter(text, range.from),
                     static_cast<LPARAM>(UnitOfCharacter(text, range.to)));
        SendMessageW(Child(), EM_SCROLLCARET, 0, 0);
    }

    TextRange Selection() const override
    {
        const auto [from, to] = SelectedRange();
        const std::wstring text = FieldText();
        return {CharacterOfUnit(text, from), CharacterOfUnit(text, to)};
    }

    void ReplaceSelection(std::string_view text) override
    {
        std::wstring units = ToFieldText(text);
        units.resize(std::min(units.size(), RoomFor(units)));
        SendMessageW(Child(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(units.c_str()));
        ThrowStopped();
    }

    void SetLimit(std::size_t characters) override { fLimit = characters; }

    void SetReadOnly(bool readOnly) override
    {
        SendMessageW(Child(), EM_SETREADONLY, readOnly ? TRUE : FALSE, 0);
    }

    void SetLook(const EditLook& look) override
    {
        const HFONT font = MakeFont(look.font);
        fLook = look;
        SendMessageW(Child(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        SendMessageW(Child(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
        DropLook();
        fFont = font;
        fGround = CreateSolidBrush(ToSystem(look.ground));
        if (Child() != nullptr)
            InvalidateRect(Child(), nullptr, TRUE);
    }

    void Cut() override { Send(WM_CUT); }
    void Copy() override { Send(WM_COPY); }
    void Paste() override { Send(WM_PASTE); }

    // The system's field knows one step, which it does and takes back in turn.
    void Undo() override
    {
        if (!CanUndo())
            return;
        Send(EM_UNDO);
        fUndone = true;
    }
    void Redo() override
    {
        if (!CanRedo())
            return;
        Send(EM_UNDO);
        fUndone = false;
    }
    bool CanUndo() const override { return !fUndone && Asks(EM_CANUNDO); }
    bool CanRedo() const override { return fUndone && Asks(EM_CANUNDO); }

private:
    static constexpr WPARAM kNoLimit = 0x7FFFFFFE;

    // The program's own changes tell nobody.
    struct Quiet {
        explicit Quiet(SystemEdit& edit) : fEdit(edit), fBefore(std::exchange(edit.fIsQuiet, true))
        {
        }
        ~Quiet() { fEdit.fIsQuiet = fBefore; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

        SystemEdit& fEdit;
        bool fBefore;
    };

    // Half a character is no change yet.
    void Notice(WORD code) override
    {
        if (code != EN_CHANGE || fIsQuiet || EndsInHalf(FieldText(), SelectedRange().first))
            return;
        fUndone = false;
        fHandler.TextChanged();
    }

    // While the field draws for its picture, in that one's colours.
    HBRUSH Colours(HDC device) override
    {
        SetTextColor(device, fDrawn != nullptr ? fDrawn->text : ToSystem(fLook.text));
        SetBkColor(device, fDrawn != nullptr ? fDrawn->ground : ToSystem(fLook.ground));
        return fDrawn != nullptr ? fDrawn->brush : fGround;
    }

    bool Paint(HDC device) override
    {
        RECT client{};
        GetClientRect(Child(), &client);
        Bitmap picture;
        const bool hasSelection = GetFocus() == Child() && SelectedUnits() != 0;
        if (fDrawn != nullptr || client.right <= 0 || client.bottom <= 0 ||
            !MakeEditPicture(
                picture, {client.right, client.bottom}, fLook, hasSelection,
                [this](HDC on, COLORREF text, COLORREF ground) { DrawIn(on, text, ground); }))
            return false;
        BitBlt(device, 0, 0, client.right, client.bottom, MemoryDevice(picture).Get(), 0, 0,
               SRCCOPY);
        return true;
    }

    void DrawIn(HDC device, COLORREF text, COLORREF ground)
    {
        const Drawn drawn{text, ground, CreateSolidBrush(ground)};
        fDrawn = &drawn;
        SendMessageW(Child(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(device), 0);
        SendMessageW(Child(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(device), PRF_CLIENT);
        fDrawn = nullptr;
        DeleteObject(drawn.brush);
    }

    // What the field has drawn by itself is painted anew.
    void AfterSystem(UINT number, WPARAM first) override
    {
        const bool isKey = number >= WM_KEYFIRST && number <= WM_KEYLAST;
        const bool isDrag =
            number >= WM_MOUSEFIRST && number <= WM_MOUSELAST && (first & MK_LBUTTON);
        const bool isEdit = number >= WM_CUT && number <= WM_UNDO;
        const bool isFocus = number == WM_SETFOCUS || number == WM_KILLFOCUS;
        if (isKey || isDrag || isEdit || isFocus || number == EM_SETSEL ||
            number == EM_REPLACESEL || number == EM_UNDO)
            InvalidateRect(Child(), nullptr, FALSE);
        if (number == WM_SETFOCUS || number == WM_SETFONT)
            WidenCaret();
        if (number == WM_KEYDOWN && first == 'A' && IsHeld(VK_CONTROL) && !IsHeld(VK_MENU))
            SendMessageW(Child(), EM_SETSEL, 0, -1); // fields of several lines don't know it
    }

    // The system's caret is a pixel wide at every scale, or as the user has set it.
    void WidenCaret()
    {
        constexpr std::int32_t kPixelsPerCaret = 11; // of the font, for each of the caret's width
        const std::int32_t width = fLook.font.pixels / kPixelsPerCaret;
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        if (!GetGUIThreadInfo(GetCurrentThreadId(), &state) || state.hwndCaret != Child() ||
            state.rcCaret.right - state.rcCaret.left >= width)
            return;
        const RECT& caret = state.rcCaret;
        CreateCaret(Child(), nullptr, width, caret.bottom - caret.top);
        SetCaretPos(caret.left, caret.top);
        ShowCaret(Child());
    }

    // The system's limit counts units: before a text comes it is set to what that may fill.
    void BeforeSystem(UINT number, WPARAM first) override
    {
        const bool pastes = number == WM_PASTE || (number == WM_KEYDOWN && first == VK_INSERT);
        if (fLimit == 0 || (!pastes && number != WM_CHAR))
            return;
        const std::wstring comes = pastes ? ToFieldText(ClipboardText().value_or(""))
                                          : std::wstring(1, static_cast<wchar_t>(first));
        SendMessageW(Child(), EM_SETLIMITTEXT,
                     FieldText().size() - SelectedUnits() + RoomFor(comes), 0);
    }

    // What there is room for, in units, in the selection's place.
    std::size_t RoomFor(std::wstring_view comes) const
    {
        if (fLimit == 0)
            return comes.size();
        const std::wstring text = FieldText();
        const auto [from, to] = SelectedRange();
        return RoomBetween(std::wstring_view(text).substr(0, from),
                           std::wstring_view(text).substr(std::min<std::size_t>(to, text.size())),
                           comes, fLimit);
    }

    std::size_t SelectedUnits() const
    {
        const auto [from, to] = SelectedRange();
        return to - from;
    }

    std::pair<DWORD, DWORD> SelectedRange() const
    {
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(Child(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
        return {from, to};
    }

    void Send(UINT number)
    {
        SendMessageW(Child(), number, 0, 0);
        ThrowStopped();
    }
    bool Asks(UINT number) const { return SendMessageW(Child(), number, 0, 0) != 0; }

    std::wstring FieldText() const
    {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Child())), L'\0');
        const int length = GetWindowTextW(Child(), text.data(), static_cast<int>(text.size() + 1));
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    void DropLook()
    {
        if (fFont != nullptr)
            DeleteObject(fFont);
        if (fGround != nullptr)
            DeleteObject(fGround);
    }

    // How the field draws for its picture.
    struct Drawn {
        COLORREF text;
        COLORREF ground;
        HBRUSH brush;
    };

    EditHandler& fHandler;
    EditLook fLook;
    const Drawn* fDrawn = nullptr;
    HFONT fFont = nullptr;
    HBRUSH fGround = nullptr;
    std::string fKept;
    std::size_t fLimit = 0;
    bool fIsQuiet = false;
    bool fUndone = false;
};

} // namespace

std::string DotFace(std::string_view face)
{
    return std::string(face);
}

std::unique_ptr<EditControl> MakeEditControl(NativeWindow window, const EditStyle& style,
                                             const EditLook& look, EditHandler& handler)
{
    return IfNotRefused(std::make_unique<SystemEdit>(window, style, look, handler));
}

} // namespace Platform
