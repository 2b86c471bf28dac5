// A field in which text is edited, of one line or several.
//
// Text is UTF-8. Positions count characters (code points) from 0; a line end is one character, a
// line feed. Everything that a user expects of a field works in it: words, lines, selection,
// clipboard, undo.
#pragma once

#include "platform/graphics/colour.h"
#include "platform/graphics/fonts.h"
#include "platform/windows/child_control.h"

#include <memory>
#include <string>
#include <string_view>

namespace Platform {

enum class TextSide { kLeft, kMiddle, kRight };

struct EditStyle {
    bool multiLine = false;
    bool wraps = false; // lines of a field of several lines, at its width
    bool readOnly = false;
    bool password = false; // shown as dots
    TextSide side = TextSide::kLeft;
};

struct EditLook {
    FontSpec font;
    Colour text;
    Colour ground{255, 255, 255, 255};
    Colour selectedText{255, 255, 255, 255};
    Colour selectedGround{0, 0, 128, 255};
};

class EditHandler : public ChildHandler {
public:
    // What the user did has changed the text. Calls of the program tell nobody.
    virtual void TextChanged() = 0;

protected:
    ~EditHandler() = default;
};

// From and to are a caret's positions; the caret is at the end of the selection.
struct TextRange {
    std::size_t from = 0;
    std::size_t to = 0;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

class EditControl : public ChildControl {
public:
    // Replaces all; the caret is then at the start, and nothing can be undone.
    virtual void SetText(std::string_view text) = 0;
    virtual std::string Text() const = 0;

    // Ends are cut to the text. The caret is brought into view.
    virtual void Select(TextRange range) = 0;
    virtual TextRange Selection() const = 0;

    // As if it were typed: it can be undone, and the handler is told.
    virtual void ReplaceSelection(std::string_view text) = 0;

    // What can be typed or pasted, in characters; 0 for no limit. The program's own texts may be
    // longer.
    virtual void SetLimit(std::size_t characters) = 0;

    virtual void SetReadOnly(bool readOnly) = 0;
    virtual void SetLook(const EditLook& look) = 0;

    virtual void Cut() = 0;
    virtual void Copy() = 0;
    virtual void Paste() = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    virtual bool CanUndo() const = 0;
    virtual bool CanRedo() const = 0;
};

// The face in which a password's dots are round, to go with another face.
std::string DotFace(std::string_view face);

// Makes a field in a window, hidden and empty. Null, with the system's code in LastError, if the
// system refuses. The handler must outlive it.
std::unique_ptr<EditControl> MakeEditControl(NativeWindow window, const EditStyle& style,
                                             const EditLook& look, EditHandler& handler);

} // namespace Platform
