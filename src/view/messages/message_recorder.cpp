#include "view/messages/message_recorder.h"

#include "foundation/errors/system_checks.h"
#include "view/messages/messenger.h"

#include <cxxabi.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace Kesto {
namespace {

CMessageRecorder::Sink gSink;
CMessageRecorder::Watch gWatch;

// The class's name as a programmer writes it, without the namespaces.
std::string ClassName(const std::type_info& type)
{
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> plain(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr));
    std::string name = plain != nullptr ? plain.get() : type.name();
    for (const std::string_view space : {"Kesto::", "Project::", "(anonymous namespace)::"})
        for (std::size_t at = 0; (at = name.find(space, at)) != std::string::npos;)
            name.erase(at, space.size());
    return name;
}

std::string Title(const std::type_info& type, CObjID id)
{
    return ClassName(type) + (id.IsNone() ? "" : '(' + id.Name() + ')');
}

std::string Title(const CMessenger& messenger)
{
    return Title(typeid(messenger), messenger.GetID());
}

} // namespace

CMessageRecorder::Step* CMessageRecorder::Step::gClimb = nullptr;

void CMessageRecorder::Start(Sink sink)
{
    gSink = std::move(sink);
    gIsOn = gSink != nullptr || gWatch != nullptr;
}

void CMessageRecorder::SetWatch(Watch watch)
{
    gWatch = std::move(watch);
    gIsOn = gSink != nullptr || gWatch != nullptr;
}

void CMessageRecorder::StartFile(const char* path)
{
    const std::shared_ptr<std::FILE> file(std::fopen(path, "a"), [](std::FILE* log) {
        if (log != nullptr)
            std::fclose(log);
    });
    OSThrowLastNull(file.get());
    Start([file](const std::string& line) {
        std::fprintf(file.get(), "%s\n", line.c_str());
        std::fflush(file.get());
    });
}

void CMessageRecorder::Stop()
{
    Start(nullptr);
}

CMessageRecorder::Step::Step(const CMessenger& at, const CMessage& message)
    : fMessage(&message), fFirst(this)
{
    // The same message that is sent anew from within its handler begins a climb of its own.
    if (gClimb != nullptr && gClimb->fMessage == &message && !gClimb->fAsking) {
        fFirst = gClimb;
        return;
    }
    fCause = std::exchange(gClimb, this);
    for (const Step* cause = fCause; cause != nullptr; cause = cause->fCause)
        fLine += "  ";
    fLine += Title(typeid(message), message.fID);
    message.Describe(fLine);
    if ((message.fFlags & CMessage::kMessage_Posted) != 0)
        fLine += " posted";
    fLine += " to " + Title(at);
}

CMessageRecorder::Step::~Step()
{
    if (fFirst != this)
        return;
    gClimb = fCause;
    if (gSink != nullptr)
        gSink(fLine + ": " + Outcome());
}

void CMessageRecorder::Step::Asks(const CMessenger& messenger)
{
    fFirst->fAsked = Title(messenger);
    fFirst->fAsking = true;
    ++fFirst->fLevels;
    if (gWatch != nullptr)
        gWatch(messenger, *fMessage);
}

void CMessageRecorder::Step::Answered(bool eaten)
{
    fFirst->fAsking = false;
    fFirst->fEaten = eaten;
}

std::string CMessageRecorder::Step::Outcome() const
{
    if (fAsking)
        return "thrown out of " + fAsked;
    if (!fEaten)
        return "not eaten, the last asked is " + fAsked;
    return "eaten by " + fAsked + (fLevels > 1 ? ", level " + std::to_string(fLevels) : "");
}

} // namespace Kesto
