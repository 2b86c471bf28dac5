// A message that climbs ten levels, against the same climb with bare virtual calls; and looking up
// ids, against hash maps that hold the same texts.
#include "rounds.h"
#include "view/messages/message_ids.h"
#include "view/messages/message_recorder.h"
#include "view/messages/messenger.h"

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <new>
#include <string>
#include <unordered_map>
#include <vector>

#ifdef SIDECAR_HAS_ABSL
#include <absl/container/flat_hash_map.h>
#endif

using namespace Kesto;

namespace {

std::size_t gAllocations = 0;

}

[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++gAllocations;
    if (void* const memory = std::malloc(size != 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

constexpr std::size_t kLevels = 10;
constexpr std::size_t kSends = 20000;

// The least that a climb can be: two virtual calls for each level.
class Level {
public:
    explicit Level(Level* parent) : fParent(parent) {}
    virtual ~Level() = default;

    virtual bool Handle(CCommandMessage&) { return false; }
    virtual bool Send(CCommandMessage& message)
    {
        return Handle(message) || (fParent != nullptr && fParent->Send(message));
    }

private:
    Level* fParent;
};

class Eater : public Level {
public:
    Eater() : Level(nullptr) {}
    bool Handle(CCommandMessage& message) override { return message.fID == kDefault_Ok; }
};

class EatingMessenger : public CMessenger {
public:
    bool HandleCommand(CCommandMessage& message) override { return message.fID == kDefault_Ok; }
};

void MeasureSend()
{
    EatingMessenger top;
    std::deque<CMessenger> chain;
    Eater topLevel;
    std::deque<Level> levels;
    for (std::size_t i = 1; i < kLevels; ++i) {
        chain.emplace_back(i == 1 ? static_cast<CMessenger*>(&top) : &chain.back());
        levels.emplace_back(i == 1 ? static_cast<Level*>(&topLevel) : &levels.back());
    }
    CCommandMessage message(nullptr, kDefault_Ok);
    CMessenger* volatile leaf = &chain.back();
    Level* volatile lowest = &levels.back();
    const std::size_t allocations = gAllocations;
    for (std::size_t i = 0; i < kSends; ++i)
        leaf->Send(message);
    std::printf("Send through %zu levels: %zu allocations in %zu sends\n", kLevels,
                gAllocations - allocations, kSends);

    const auto send = [&] {
        for (std::size_t i = 0; i < kSends; ++i)
            Bench::Keep(leaf->Send(message));
    };
    const auto climb = [&] {
        for (std::size_t i = 0; i < kSends; ++i)
            Bench::Keep(lowest->Send(message));
    };
    const auto seconds = Bench::MedianSeconds(201, {{send}, {climb}});
    std::printf(
        "Send through %zu levels: %.1f ns; speed against two bare virtual calls a level %.2f\n",
        kLevels, seconds[0] / kSends * 1e9, seconds[1] / seconds[0]);
}

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const
    {
        return std::hash<std::string_view>()(text);
    }
};

void MeasureIds(std::size_t count)
{
    std::vector<std::string> names;
    std::unordered_map<std::string, std::uint32_t, TextHash, std::equal_to<>> standard;
    for (std::size_t i = 0; i < count; ++i) {
        names.push_back("Project/Dialog" + std::to_string(i / 20) + "/Setting" + std::to_string(i));
        standard.emplace(names.back(), CObjID(names.back().c_str()).Value());
    }
    std::vector<Bench::Contender> contenders = {
        {[&] {
            for (const std::string& name : names)
                Bench::Keep(CObjID(name.c_str()));
        }},
        {[&] {
            for (const std::string& name : names)
                Bench::Keep(standard.find(std::string_view(name.c_str())));
        }}};
#ifdef SIDECAR_HAS_ABSL
    const absl::flat_hash_map<std::string, std::uint32_t> flat(standard.begin(), standard.end());
    contenders.push_back({[&] {
        for (const std::string& name : names)
            Bench::Keep(flat.find(absl::string_view(name.c_str())));
    }});
#endif
    const auto seconds = Bench::MedianSeconds(401, contenders);
    std::printf("An id of %zu texts that are known: %.1f ns; speed against std::unordered_map %.2f",
                count, seconds[0] / static_cast<double>(count) * 1e9, seconds[1] / seconds[0]);
    if (seconds.size() > 2)
        std::printf(", against absl::flat_hash_map %.2f", seconds[2] / seconds[0]);
    std::printf("\n");
}

// Texts that are new: the table grows and keeps them for good, so each round has its own.
void MeasureNewIds()
{
    constexpr std::size_t kNew = 2000;
    std::size_t serial = 0;
    std::vector<std::string> names(kNew);
    const auto nextNames = [&] {
        for (std::string& name : names)
            name = "Project/New/" + std::to_string(serial++);
    };
    std::unordered_map<std::string, std::uint32_t> standard;
    nextNames();
    const auto intern = [&] {
        for (const std::string& name : names)
            Bench::Keep(CObjID(name.c_str()));
    };
    const auto insert = [&] {
        for (const std::string& name : names)
            Bench::Keep(standard.emplace(name, 0).first);
    };
    const auto seconds = Bench::MedianSeconds(11, {{insert}, {intern, nextNames}});
    std::printf("An id of a new text: %.1f ns; speed against std::unordered_map %.2f\n",
                seconds[1] / kNew * 1e9, seconds[0] / seconds[1]);
}

} // namespace

int main()
{
    CMessageRecorder::Stop();
    MeasureSend();
    MeasureIds(300);
    MeasureIds(2000);
    MeasureNewIds();
}
