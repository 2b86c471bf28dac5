#include "platform/input/linux/input.h"

#include "platform/input/linux/queue.h"

#include <map>
#include <utility>

namespace Platform {
namespace {

std::map<std::uint32_t, std::vector<PenSample>>& Pens()
{
    static std::map<std::uint32_t, std::vector<PenSample>> pens;
    return pens;
}

} // namespace

MessageReceiver::MessageReceiver()
{
    Queue::Get().AddWindow(this);
}

MessageReceiver::~MessageReceiver()
{
    Queue::Get().RemoveWindow(this);
}

void MessageReceiver::SetWantsPaint(bool wants)
{
    Queue::Get().SetWantsPaint(this, wants);
}

void InjectInput(const QueuedMessage& message, std::u16string text)
{
    Queue::Get().AddInput(message, std::move(text));
}

void InjectPen(std::uint32_t pointer, std::vector<PenSample> samples)
{
    Pens()[pointer] = std::move(samples);
}

void SetInputSource(int descriptor, std::function<void()> read)
{
    Queue::Get().SetSource(descriptor, std::move(read));
}

void SetInputRouter(InputRouter router)
{
    Queue::Get().SetRouter(router);
}

std::optional<PenSample> ReadPen(std::uint32_t pointer)
{
    const std::vector<PenSample> samples = ReadPenHistory(pointer);
    return samples.empty() ? std::nullopt : std::optional(samples.back());
}

std::vector<PenSample> ReadPenHistory(std::uint32_t pointer)
{
    const auto found = Pens().find(pointer);
    return found != Pens().end() ? found->second : std::vector<PenSample>();
}

} // namespace Platform
