#include "support/testing.h"
#include "view/messages/message_event.h"
#include "view/messages/message_ids.h"
#include "view/messages/message_recorder.h"
#include "view/test_messengers.h"

using namespace Kesto;
using Routing = CMessageEvent::Routing;

namespace {

struct CustomMessage : CMessageOf<CustomMessage> {
    CustomMessage() : CMessageOf(nullptr, CObjID("Test/Custom"), KeyMoment::kLastMessage) {}
};

class SendTest : public testing::Test {
protected:
    SendTest() { Node::TakeLog(); }

    NotingProcess process;
    std::unique_ptr<Node> a = std::make_unique<Node>("a", &process);
    std::unique_ptr<Node> b = std::make_unique<Node>("b", a.get());
    CCommandMessage command{nullptr, kDefault_Ok};
};

TEST_F(SendTest, TheClassOfAMessageDecidesWhoHandlesIt)
{
    CMenuMessage menu(nullptr, {}, nullptr, nullptr, 0, false);
    CKeyboardMessage key(nullptr, kMessage_KeyDown, 65, 'a');
    CMenuCommand chosen(nullptr, {}, nullptr);
    CValueMessage plain(nullptr, {});
    CValMsg<CNumber> number(nullptr, {}, 1, 2, 3);
    CValMsg<CObjID> radio(nullptr, {}, kAlert_Ok, kAlert_Cancel);
    CScrollMessage scroll(nullptr, {}, 1, 0);
    CustomMessage custom;
    const std::pair<CMessage*, std::string> cases[] = {
        {&menu, "menu"},  {&key, "key"},   {&command, "cmd"},  {&chosen, "cmd"},  {&plain, "val"},
        {&number, "val"}, {&radio, "val"}, {&scroll, "other"}, {&custom, "other"}};
    for (const auto& [message, family] : cases) {
        SCOPED_TRACE(typeid(*message).name());
        EXPECT_FALSE(b->Send(*message));
        EXPECT_EQ(Node::TakeLog(), 'b' + family + " a" + family + " P" + family + ' ');
        const std::unique_ptr<CMessage> clone = message->Clone();
        const CMessage& copy = *clone;
        EXPECT_TRUE(typeid(copy) == typeid(*message));
        EXPECT_FALSE(b->SendToParent(*clone));
        EXPECT_EQ(Node::TakeLog(), 'a' + family + " P" + family + ' ');
    }
    a->fHandler = [](CMessage&) { return true; };
    EXPECT_TRUE(b->Send(number));
    EXPECT_EQ(Node::TakeLog(), "bval aval ");
    EXPECT_TRUE(b->SendCommandToParent(command));
    EXPECT_FALSE(process.SendToParent(command));
    EXPECT_EQ(b->FindMessenger(CObjID("b")), b.get());
    EXPECT_EQ(a->FindMessenger(CObjID("b")), nullptr);
}

TEST_F(SendTest, ABroadcastReachesEveryLevelAndRepeatedKeysAreMarked)
{
    b->Broadcast(nullptr, true);
    EXPECT_EQ(Node::TakeLog(), "b* a* P* ");
    EXPECT_EQ(CKeyboardMessage(nullptr, {}, 1, 1, 1, false).fRepeated, 0U);
    EXPECT_EQ(CKeyboardMessage(nullptr, {}, 1, 1, 2, false).fRepeated, 1U);
    EXPECT_EQ(CKeyboardMessage(nullptr, {}, 1, 1, 1, true).fRepeated, 1U);
}

TEST_F(SendTest, AMessengerMayDieInItsHandlerAndInANestedSend)
{
    b->fHandler = [this](CMessage&) {
        b.reset();
        return false;
    };
    command.fSource = b.get();
    EXPECT_FALSE(b->Send(command));
    EXPECT_EQ(Node::TakeLog(), "bcmd acmd Pcmd ") << "the climb goes on at the parent";
    EXPECT_EQ(command.fSource, nullptr);

    b = std::make_unique<Node>("b", a.get());
    Node outer("o", b.get());
    auto inner = std::make_unique<Node>("i", &outer);
    CMessageEvent::Post(command, a.get());
    CMessageEvent::Post(command, b.get(), Routing::kBullseye);
    inner->fHandler = [&](CMessage&) {
        inner.reset();
        outer.SetParentMessenger(a.get());
        b.reset();
        return false;
    };
    outer.fHandler = [&](CMessage& message) {
        if (inner == nullptr)
            return false;
        CustomMessage nested;
        EXPECT_FALSE(inner->Send(nested));
        outer.SetParentMessenger(&process);
        a.reset();
        return inner != nullptr && message.fID.IsNone();
    };
    EXPECT_FALSE(outer.Send(command));
    EXPECT_EQ(Node::TakeLog(), "ocmd iother oother aother Pother Pcmd ");
    process.DispatchAll();
    EXPECT_EQ(Node::TakeLog(), "Pcmd ")
        << "of the two that were posted the one to the bullseye is left";
}

TEST_F(SendTest, PostedMessagesAreSentLaterAlongTheirRoute)
{
    b->BecomeBullseye(false);
    Node::TakeLog();
    process.fHandler = a->fHandler = b->fHandler = [this](CMessage& message) {
        EXPECT_EQ(message.fFlags, CMessage::kMessage_Posted);
        EXPECT_EQ(message.fSource, nullptr);
        return &message != &command;
    };
    auto source = std::make_unique<Node>("s");
    command.fSource = source.get();
    EXPECT_NE(CMessageEvent::Post(command, a.get()), nullptr);
    EXPECT_NE(CMessageEvent::Post(command, nullptr, Routing::kProcess), nullptr);
    EXPECT_NE(CMessageEvent::Post(command, b.get(), Routing::kBullseye, -1), nullptr);
    EXPECT_EQ(CMessageEvent::Post(command, nullptr), nullptr);
    EXPECT_EQ(command.fFlags, 0U);
    b.reset();
    source.reset();
    EXPECT_EQ(Node::TakeLog(), "");
    process.DispatchAll();
    EXPECT_EQ(Node::TakeLog(), "acmd Pcmd Pcmd ") << "without b the process has the keyboard";
    EXPECT_FALSE(CMessageEvent(nullptr, a.get(), Routing::kProcess, 0).IsAlive());
}

TEST_F(SendTest, TheRecorderTellsWhoAteWhat)
{
    std::vector<std::string> lines;
    CMessageRecorder::Start([&lines](const std::string& line) { lines.push_back(line); });
    a->fHandler = [this](CMessage& message) {
        CValMsg<CNumber> value(nullptr, CObjID("Test/Value"), 2.5, 1, 1, 0);
        process.Send(value);
        return message.fID == kDefault_Ok;
    };
    b->Send(command);
    CKeyboardMessage key(nullptr, kMessage_KeyDown, 0x41, 'a', 2);
    b->Send(key);
    b->fHandler = [](CMessage&) -> bool { throw std::runtime_error("no"); };
    EXPECT_THROW(b->Send(command), std::runtime_error);
    CMessageRecorder::Stop();
    b->fHandler = nullptr;
    b->Send(command);
    const std::string uneaten = "not eaten, the last asked is NotingProcess(P)";
    const std::string value =
        "  CValMsg<CNumber>(Test/Value) phase=0 value=2.5 was=1 to NotingProcess(P): " + uneaten;
    const std::string ok = "CCommandMessage(kesto/default/ok) to Node(b): ";
    const std::string pressed =
        "CKeyboardMessage(Kesto/Message/KeyDown) key=0x41 char=U+61 repeat=2 repeated to Node(b): ";
    EXPECT_THAT(lines, testing::ElementsAre(value, ok + "eaten by Node(a), level 2", value,
                                            pressed + uneaten, ok + "thrown out of Node(b)"));
}

} // namespace
