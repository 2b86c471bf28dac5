#include "platform/windows/linux/edit_model.h"

#include "platform/system/unicode.h"

#include <algorithm>

namespace Platform {
namespace {

constexpr std::size_t kMostSteps = 200;

// Bytes of the character that begins here; 0 for bytes that begin none.
std::size_t LengthAt(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80                    ? 1
                               : first >= 0xC2 && first < 0xE0 ? 2
                               : first >= 0xE0 && first < 0xF0 ? 3
                               : first >= 0xF0 && first < 0xF5 ? 4
                                                               : 0;
    if (length == 0 || length > text.size())
        return 0;
    return std::ranges::all_of(text.substr(1, length - 1), IsContinuation) ? length : 0;
}

// Without malformed bytes and returns, up to so many characters.
std::string Clean(std::string_view text, std::size_t most)
{
    std::string clean;
    while (!text.empty() && most != 0) {
        const std::size_t length = LengthAt(text);
        if (length != 0 && text.front() != '\r' && text.front() != '\0') {
            clean += text.substr(0, length);
            --most;
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return clean;
}

} // namespace

void EditModel::SetText(std::string_view text)
{
    fText = Clean(text, std::string_view::npos);
    fAnchor = fCaret = 0;
    fSteps.clear();
    fDone = 0;
}

void EditModel::MoveTo(std::size_t position, bool extend)
{
    fCaret = std::min(position, fText.size());
    if (!extend)
        fAnchor = fCaret;
}

void EditModel::Select(std::size_t anchor, std::size_t caret)
{
    MoveTo(anchor, false);
    MoveTo(caret, true);
}

bool EditModel::GoesOn(std::size_t from, std::size_t to, bool isTyping) const
{
    if (!isTyping || from != to || fDone == 0 || fDone != fSteps.size())
        return false;
    const Step& last = fSteps.back();
    return last.isTyping && last.start + last.after.size() == from && !last.after.ends_with('\n');
}

bool EditModel::Replace(std::size_t from, std::size_t to, std::string_view text, bool isTyping)
{
    const std::string_view goes = std::string_view(fText).substr(from, to - from);
    const std::size_t rest = Characters() - CountCharacters(goes);
    // A limit of 0 is none. It counts characters, and text that was too long before stays.
    const std::size_t room = fLimit == 0     ? std::string_view::npos
                             : fLimit > rest ? fLimit - rest
                                             : 0;
    std::string comes = Clean(text, room);
    if (comes == goes) {
        MoveTo(to, false);
        return false;
    }
    if (GoesOn(from, to, isTyping)) {
        fSteps.back().after += comes;
    } else {
        // What was undone can't be done again after a change.
        fSteps.resize(fDone);
        fSteps.push_back({from, std::string(goes), comes, isTyping});
        if (fSteps.size() > kMostSteps)
            fSteps.erase(fSteps.begin());
        fDone = fSteps.size();
    }
    Exchange(from, to - from, comes);
    return true;
}

void EditModel::Exchange(std::size_t start, std::size_t length, const std::string& text)
{
    fText.replace(start, length, text);
    MoveTo(start + text.size(), false);
}

bool EditModel::Undo()
{
    if (!CanUndo())
        return false;
    const Step& step = fSteps[--fDone];
    Exchange(step.start, step.after.size(), step.before);
    Select(step.start, step.start + step.before.size());
    return true;
}

bool EditModel::Redo()
{
    if (!CanRedo())
        return false;
    const Step& step = fSteps[fDone++];
    Exchange(step.start, step.before.size(), step.after);
    return true;
}

std::size_t EditModel::Characters() const
{
    return CountCharacters(fText);
}

std::size_t EditModel::CharacterOf(std::size_t position) const
{
    return CountCharacters(std::string_view(fText).substr(0, position));
}

std::size_t EditModel::PositionOf(std::size_t character) const
{
    std::size_t position = 0;
    while (position < fText.size() && (character != 0 || IsContinuation(fText[position]))) {
        if (!IsContinuation(fText[position]))
            --character;
        ++position;
        while (position < fText.size() && IsContinuation(fText[position]))
            ++position;
    }
    return position;
}

} // namespace Platform
