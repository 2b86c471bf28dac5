// Messengers that write down what is asked of them, and a process that does so too.
#pragma once

#include "view/messages/messenger.h"
#include "view/process/process.h"

#include <functional>
#include <string>
#include <utility>

// A node with a letter for a name. What it is asked and told goes to one log: "a?" the surrender
// question, "a+T" became target, "a-B" lost bullseye and so on.
class Node : public virtual Kesto::CMessenger {
public:
    static constexpr std::uint32_t kBoth = kCanTarget | kCanBullseye;

    explicit Node(const char* name, CMessenger* parent = nullptr, std::uint32_t abilities = kBoth)
        : CMessenger(parent, Kesto::CObjID(name), abilities), fName(name)
    {
    }

    static inline std::string gLog;
    static std::string TakeLog() { return std::exchange(gLog, {}); }

    bool CanSurrender(bool) override
    {
        Note("?");
        return !fRefuses;
    }
    void OnBecameTarget() override
    {
        Note("+T");
        if (const auto whenTarget = fWhenTarget) // someone may be gone before it is done
            whenTarget();
    }
    void OnLostTarget() override { Note("-T"); }
    void TargetChanged() override { Note("+B"); }
    void BullseyeLost() override
    {
        Note("-B");
        if (const auto whenLost = fWhenLost) // here too
            whenLost();
    }
    void OnTargetEnable() override { Note("t"); }
    void OnTargetDisable() override { Note("!t"); }
    void OnBullseyeEnable() override { Note("b"); }
    void OnBullseyeDisable() override { Note("!b"); }
    void OnUpdateOwn() override { Note("o"); }
    void OnUpdateChain() override { Note("c"); }
    void OnBroadcast(void*, bool flag) override { Note(flag ? "*" : "."); }

    bool HandleCommand(Kesto::CCommandMessage& message) override { return Handle("cmd", message); }
    bool HandleValue(Kesto::CValueMessage& message) override { return Handle("val", message); }
    bool HandleKey(Kesto::CKeyboardMessage& message) override { return Handle("key", message); }
    bool HandleMenu(Kesto::CMenuMessage& message) override { return Handle("menu", message); }
    bool HandleOther(Kesto::CMessage& message) override { return Handle("other", message); }

    bool fRefuses = false;
    std::function<void()> fWhenTarget;
    std::function<void()> fWhenLost;
    std::function<bool(Kesto::CMessage&)> fHandler; // none: not eaten

private:
    void Note(const char* what) { gLog += fName + what + ' '; }
    bool Handle(const char* family, Kesto::CMessage& message)
    {
        Note(family);
        const auto handler = fHandler; // here too
        return handler && handler(message);
    }

    std::string fName;
};

// The process "P", which writes down what a node does.
class NotingProcess : public Kesto::CProcess, public Node {
public:
    NotingProcess() : CMessenger(nullptr, Kesto::CObjID("P")), Node("P") {}

    void OnUpdateChain() override { Node::OnUpdateChain(); }

    void DispatchAll()
    {
        while (TopEvent() != nullptr)
            DispatchTopEvent();
    }
};
