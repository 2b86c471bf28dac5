#include "view/messages/message.h"

#include "platform/system/machine.h"
#include "view/messages/messenger.h"

#include <ios>
#include <sstream>

namespace Kesto {
namespace {

template <class... Words>
void AppendWords(std::string& line, const Words&... words)
{
    std::ostringstream text;
    (text << ... << words);
    line += text.str();
}

} // namespace

// Control is the command key of this system, and so sets both bits.
std::uint32_t ReadModifiers(KeyMoment keys)
{
    using Platform::IsKeyDown;
    using Platform::Key;
    std::uint32_t modifiers = 0;
    if (IsKeyDown(Key::kControl, keys))
        modifiers |= CMessage::kModifier_Control | CMessage::kModifier_Command;
    if (IsKeyDown(Key::kAlt, keys))
        modifiers |= CMessage::kModifier_Alt;
    if (IsKeyDown(Key::kShift, keys))
        modifiers |= CMessage::kModifier_Shift;
    if (Platform::IsKeyOn(Key::kCapsLock) || IsKeyDown(Key::kCapsLock, keys))
        modifiers |= CMessage::kModifier_CapsLock;
    if (IsKeyDown(Key::kSpace, keys))
        modifiers |= CMessage::kModifier_Space;
    return modifiers;
}

CMessage::CMessage(CMessenger* source, CObjID id, KeyMoment keys)
    : fSource(source), fModifiers(ReadModifiers(keys)), fTime(Platform::TickCount() / 1000.0),
      fID(id)
{
}

bool CMessage::SendTo(CMessenger& receiver)
{
    return receiver.SendOther(*this);
}

void CMessage::Describe(std::string& /*line*/) const {}

CKeyboardMessage::CKeyboardMessage(CMessenger* source, CObjID id, std::uint32_t keyCode,
                                   std::uint32_t character, std::uint32_t repeat, bool wasDown,
                                   KeyMoment keys)
    : CMessageOf(source, id, keys), fKeyCode(keyCode), fChar(character), fRepeat(repeat),
      fRepeated(repeat > 1 || wasDown ? 1 : 0)
{
}

bool CKeyboardMessage::SendTo(CMessenger& receiver)
{
    return receiver.SendKey(*this);
}

void CKeyboardMessage::Describe(std::string& line) const
{
    AppendWords(line, std::hex, std::uppercase, " key=0x", fKeyCode, " char=U+", fChar, std::dec,
                " repeat=", fRepeat, fRepeated != 0 ? " repeated" : "");
}

CMenuMessage::CMenuMessage(CMessenger* source, CObjID id, CMenu* menu, CMenuItem* item,
                           std::uint32_t index, bool enable, KeyMoment keys)
    : CMessageOf(source, id, keys), fMenu(menu), fItem(item), fIndex(index), fEnable(enable)
{
}

bool CMenuMessage::SendTo(CMessenger& receiver)
{
    return receiver.SendMenu(*this);
}

void CMenuMessage::Describe(std::string& line) const
{
    AppendWords(line, " index=", fIndex, fEnable ? " enable" : "");
}

CCommandMessage::CCommandMessage(CMessenger* source, CObjID id, KeyMoment keys)
    : CMessageOf(source, id, keys)
{
}

bool CCommandMessage::SendTo(CMessenger& receiver)
{
    return receiver.SendCommand(*this);
}

CMenuCommand::CMenuCommand(CMessenger* source, CObjID id, CMenuItem* item, KeyMoment keys)
    : CMessageOf(source, id, keys), fItem(item)
{
}

CValueMessage::CValueMessage(CMessenger* source, CObjID id, std::uint32_t phase, KeyMoment keys)
    : CMessageOf(source, id, keys), fPhase(phase)
{
}

bool CValueMessage::SendTo(CMessenger& receiver)
{
    return receiver.SendValue(*this);
}

void CValueMessage::Describe(std::string& line) const
{
    AppendWords(line, " phase=", fPhase);
}

void CValueMessage::DescribeChange(std::string& line, double oldValue, double value)
{
    AppendWords(line, " value=", value, " was=", oldValue);
}

void CValueMessage::DescribeChange(std::string& line, CObjID oldValue, CObjID value)
{
    line += " value=" + value.Name() + " was=" + oldValue.Name();
}

CValMsg<CNumber>::CValMsg(CMessenger* source, CObjID id, double value, double oldValue,
                          double startValue, std::uint32_t phase, KeyMoment keys)
    : CMessageOf(source, id, phase, keys), fValue(value), fOldValue(oldValue),
      fStartValue(startValue)
{
}

void CValMsg<CNumber>::Describe(std::string& line) const
{
    CValueMessage::Describe(line);
    DescribeChange(line, fOldValue, fValue);
}

CScrollMessage::CScrollMessage(CMessenger* source, CObjID id, double delta, std::uint32_t part,
                               KeyMoment keys)
    : CMessageOf(source, id, keys), fDelta(delta), fPart(part)
{
}

void CScrollMessage::Describe(std::string& line) const
{
    AppendWords(line, " delta=", fDelta, " part=", fPart);
}

} // namespace Kesto
