// CMessage and the families that messages come in. What a message is about is its class; what it
// means is its id.
//
// A message lives where it was made for as long as it is sent; a posted one is a clone that its
// event owns. Every concrete class is a CMessageOf, which brings the clone and, through its base,
// the family that it belongs to.
#pragma once

#include "platform/input/keyboard.h"
#include "view/messages/object_id.h"

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>

namespace Kesto {

class CMenu;
class CMenuItem;
class CMessenger;

using Platform::KeyMoment;

// The modifier keys that are down at a moment, as bits of CMessage::fModifiers.
std::uint32_t ReadModifiers(KeyMoment moment);

// The constructors of messages read the time, and the modifier keys at the moment `keys`.
class CMessage {
public:
    // Bits of fModifiers.
    static constexpr std::uint32_t kModifier_Control = 1U << 0;
    static constexpr std::uint32_t kModifier_Alt = 1U << 1;
    static constexpr std::uint32_t kModifier_Command = 1U << 2; // goes with Control
    static constexpr std::uint32_t kModifier_Shift = 1U << 3;
    static constexpr std::uint32_t kModifier_CapsLock = 1U << 4; // on, or held
    static constexpr std::uint32_t kModifier_Space = 1U << 5;

    // Bits of fFlags.
    static constexpr std::uint32_t kMessage_Posted = 1U
                                                     << 0; // set on the clone of a posted message

    virtual ~CMessage() = default;

    // A copy in memory of its own.
    virtual std::unique_ptr<CMessage> Clone() const = 0;

    // Hands the message to the operation of `receiver` for its family, and returns whether it was
    // eaten.
    virtual bool SendTo(CMessenger& receiver);

    // Appends what the message carries, a blank before each word, to the recorder's line. The base
    // appends nothing.
    virtual void Describe(std::string& line) const;

    CMessenger* fSource; // who sent it; null for nobody, and once that messenger is gone
    std::uint32_t fModifiers;
    double fTime; // seconds of the tick count at creation
    CObjID fID;   // the kind of message, or the id of its sender
    std::uint32_t fFlags = 0;

protected:
    CMessage(CMessenger* source, CObjID id, KeyMoment keys);
    CMessage(const CMessage&) = default;
    CMessage& operator=(const CMessage&) = default;
};

// `Base`, cloned as a `Concrete`.
template <class Concrete, class Base = CMessage>
class CMessageOf : public Base {
public:
    std::unique_ptr<CMessage> Clone() const override
    {
        return std::make_unique<Concrete>(static_cast<const Concrete&>(*this));
    }

protected:
    using Base::Base;
};

class CKeyboardMessage : public CMessageOf<CKeyboardMessage> {
public:
    // `id` is one of the eight key ids. `repeat` is the platform's count, 1 for a key that goes up;
    // `wasDown` says that the key was down already.
    CKeyboardMessage(CMessenger* source, CObjID id, std::uint32_t keyCode, std::uint32_t character,
                     std::uint32_t repeat = 1, bool wasDown = false,
                     KeyMoment keys = KeyMoment::kLastMessage);

    bool SendTo(CMessenger& receiver) override;
    void Describe(std::string& line) const override;

    std::uint32_t fKeyCode;
    std::uint32_t fChar; // the key's character
    std::uint32_t fRepeat;
    std::uint32_t fRepeated; // 1 or 0
};

// Asks for the state of a menu's item, or reports it.
class CMenuMessage : public CMessageOf<CMenuMessage> {
public:
    CMenuMessage(CMessenger* source, CObjID id, CMenu* menu, CMenuItem* item, std::uint32_t index,
                 bool enable, KeyMoment keys = KeyMoment::kLastMessage);

    bool SendTo(CMessenger& receiver) override;
    void Describe(std::string& line) const override;

    CMenu* fMenu;
    CMenuItem* fItem; // may be null
    std::uint32_t fIndex;
    bool fEnable;
};

// A command without a value: a button pressed, an item chosen.
class CCommandMessage : public CMessageOf<CCommandMessage> {
public:
    explicit CCommandMessage(CMessenger* source, CObjID id,
                             KeyMoment keys = KeyMoment::kLastMessage);

    bool SendTo(CMessenger& receiver) override;
};

class CMenuCommand : public CMessageOf<CMenuCommand, CCommandMessage> {
public:
    CMenuCommand(CMessenger* source, CObjID id, CMenuItem* item,
                 KeyMoment keys = KeyMoment::kLastMessage);

    CMenuItem* fItem; // the chosen one
};

// A control's value changed.
class CValueMessage : public CMessageOf<CValueMessage> {
public:
    // Phases that all controls know: a value that passes by in a drag, and a final one. Fields have
    // more.
    static constexpr std::uint32_t kPhase_Passing = 0;
    static constexpr std::uint32_t kPhase_Final = 1;

    CValueMessage(CMessenger* source, CObjID id, std::uint32_t phase = kPhase_Final,
                  KeyMoment keys = KeyMoment::kLastMessage);

    bool SendTo(CMessenger& receiver) override;
    void Describe(std::string& line) const override;

    std::uint32_t fPhase;

protected:
    static void DescribeChange(std::string& line, double oldValue, double value);
    static void DescribeChange(std::string& line, CObjID oldValue, CObjID value);
};

// A value with its type: CObjID of a radio group, unsigned of a list, EButtonValue of a button.
template <class T>
class CValMsg : public CMessageOf<CValMsg<T>, CValueMessage> {
public:
    CValMsg(CMessenger* source, CObjID id, T value, T oldValue,
            std::uint32_t phase = CValueMessage::kPhase_Final,
            KeyMoment keys = KeyMoment::kLastMessage)
        : CMessageOf<CValMsg<T>, CValueMessage>(source, id, phase, keys), fValue(value),
          fOldValue(oldValue)
    {
    }

    void Describe(std::string& line) const override
    {
        CValueMessage::Describe(line);
        if constexpr (std::is_same_v<T, CObjID>)
            this->DescribeChange(line, fOldValue, fValue);
        else
            this->DescribeChange(line, static_cast<double>(fOldValue), static_cast<double>(fValue));
    }

    T fValue;
    T fOldValue;
};

// Stands for the numbers of fields and sliders.
class CNumber;

template <>
class CValMsg<CNumber> : public CMessageOf<CValMsg<CNumber>, CValueMessage> {
public:
    CValMsg(CMessenger* source, CObjID id, double value, double oldValue, double startValue,
            std::uint32_t phase = kPhase_Final, KeyMoment keys = KeyMoment::kLastMessage);

    void Describe(std::string& line) const override;

    double fValue;
    double fOldValue;
    double fStartValue; // before the drag or the typing began
};

// A scroll bar's wish, for its pane.
class CScrollMessage : public CMessageOf<CScrollMessage> {
public:
    CScrollMessage(CMessenger* source, CObjID id, double delta, std::uint32_t part,
                   KeyMoment keys = KeyMoment::kLastMessage);

    void Describe(std::string& line) const override;

    double fDelta;
    std::uint32_t fPart; // which part of the bar was used
};

} // namespace Kesto
