// The text of a field with its caret, its selection and what can be undone. It knows nothing of
// fonts or windows.
//
// The text is UTF-8 with line feeds; positions are bytes and lie between characters. The selection
// lies between anchor and caret.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

class EditModel {
public:
    const std::string& Text() const { return fText; }
    std::size_t Caret() const { return fCaret; }
    std::size_t From() const { return fAnchor < fCaret ? fAnchor : fCaret; }
    std::size_t To() const { return fAnchor < fCaret ? fCaret : fAnchor; }
    bool HasSelection() const { return fAnchor != fCaret; }
    std::string_view Selected() const
    {
        return std::string_view(fText).substr(From(), To() - From());
    }

    // Replaces all; nothing can be undone then. Malformed bytes are dropped.
    void SetText(std::string_view text);

    // Moves the caret, cut to the text; `extend` leaves the anchor where it is.
    void MoveTo(std::size_t position, bool extend);
    void Select(std::size_t anchor, std::size_t caret);

    // Characters that the text may grow to by Replace; 0 for no limit. What is too much is cut off.
    void SetLimit(std::size_t characters) { fLimit = characters; }

    // Replaces what lies between two positions; the caret is then after it, even if nothing
    // changed, which false tells. Typing goes on with the step before, as long as it grows at its
    // end, and is undone with it.
    bool Replace(std::size_t from, std::size_t to, std::string_view text, bool isTyping);

    // False if there is nothing to undo.
    bool Undo();
    bool Redo();
    bool CanUndo() const { return fDone != 0; }
    bool CanRedo() const { return fDone < fSteps.size(); }

    std::size_t Characters() const;
    std::size_t CharacterOf(std::size_t position) const;
    std::size_t PositionOf(std::size_t character) const;

private:
    struct Step {
        std::size_t start;
        std::string before;
        std::string after;
        bool isTyping;
    };

    void Exchange(std::size_t start, std::size_t length, const std::string& text);
    bool GoesOn(std::size_t from, std::size_t to, bool isTyping) const;

    std::string fText;
    std::size_t fAnchor = 0;
    std::size_t fCaret = 0;
    std::size_t fLimit = 0;
    std::vector<Step> fSteps; // the first fDone are in the text
    std::size_t fDone = 0;
};

} // namespace Platform
