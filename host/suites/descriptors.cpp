#include "suites/descriptors.h"

#include "lumograph/results.h"
#include "suites/string_ids.h"

#include <algorithm>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

namespace {

struct Object {
    uint32_t type;
    std::unique_ptr<HostDescriptorBlock> value;
};
using List = std::unique_ptr<HostListBlock>;

} // namespace

struct HostListBlock {
    std::vector<Object> members;
};

struct HostDescriptorBlock {
    using Value = std::variant<int32_t, double, bool, std::string, Object, List>;
    std::vector<std::pair<uint32_t, Value>> values;
};

namespace Host {
namespace {

// By handle, what was made and not given away.
template <class Block>
using Book = std::map<Block*, std::unique_ptr<Block>>;
Book<HostDescriptorBlock> gDescriptors;
Book<HostListBlock> gLists;

// Nothing is thrown to a module.
template <class Body>
int32_t Guarded(Body body)
{
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return kHostMemoryFull;
    }
}

template <class Block>
int32_t Make(Book<Block>& book, Block** out)
{
    if (out == nullptr)
        return kHostBadParameter;
    return Guarded([&] {
        auto made = std::make_unique<Block>();
        Block* const handle = made.get();
        book.emplace(handle, std::move(made));
        *out = handle;
        return int32_t{kHostNoError};
    });
}

template <class Block>
int32_t Free(Book<Block>& book, Block* handle)
{
    return handle == nullptr || book.erase(handle) == 1 ? kHostNoError : kHostBadParameter;
}

// Takes the block out of the book, for its new owner; null when it isn't there.
template <class Block>
std::unique_ptr<Block> Take(Book<Block>& book, Block* handle)
{
    auto node = book.extract(handle);
    return node ? std::move(node.mapped()) : nullptr;
}

int32_t Put(HostDescriptor descriptor, uint32_t key, HostDescriptorBlock::Value value)
{
    if (!gDescriptors.contains(descriptor))
        return kHostBadParameter;
    auto& values = descriptor->values;
    const auto found =
        std::ranges::find(values, key, &std::pair<uint32_t, HostDescriptorBlock::Value>::first);
    if (found != values.end())
        found->second = std::move(value);
    else
        values.emplace_back(key, std::move(value));
    return kHostNoError;
}

int32_t PutInteger(HostDescriptor descriptor, uint32_t key, int32_t value)
{
    return Guarded([&] { return Put(descriptor, key, value); });
}

int32_t PutFloat(HostDescriptor descriptor, uint32_t key, double value)
{
    return Guarded([&] { return Put(descriptor, key, value); });
}

int32_t PutBoolean(HostDescriptor descriptor, uint32_t key, uint8_t value)
{
    return Guarded([&] { return Put(descriptor, key, value != 0); });
}

int32_t PutString(HostDescriptor descriptor, uint32_t key, const char* text)
{
    if (text == nullptr)
        return kHostBadParameter;
    return Guarded([&] { return Put(descriptor, key, std::string(text)); });
}

int32_t PutObject(HostDescriptor descriptor, uint32_t key, uint32_t type, HostDescriptor object)
{
    if (object == descriptor || !gDescriptors.contains(descriptor) ||
        !gDescriptors.contains(object))
        return kHostBadParameter;
    return Guarded([&] { return Put(descriptor, key, Object{type, Take(gDescriptors, object)}); });
}

int32_t PutList(HostDescriptor descriptor, uint32_t key, HostList list)
{
    if (!gDescriptors.contains(descriptor) || !gLists.contains(list))
        return kHostBadParameter;
    return Guarded([&] { return Put(descriptor, key, Take(gLists, list)); });
}

int32_t Append(HostList list, uint32_t type, HostDescriptor object)
{
    if (!gLists.contains(list) || !gDescriptors.contains(object))
        return kHostBadParameter;
    return Guarded([&] {
        list->members.push_back({type, Take(gDescriptors, object)});
        return int32_t{kHostNoError};
    });
}

Json JsonOf(const HostDescriptorBlock& descriptor);

Json JsonOf(const Object& object)
{
    Json fields = JsonOf(*object.value);
    if (NameOfKey(object.type) != "rectangle")
        return fields;
    Json numbers = Json::array();
    for (const auto& field : fields)
        numbers.push_back(field);
    return numbers;
}

// Turns each kind of value into its own of JSON.
struct ToJson {
    Json operator()(const Object& object) const { return JsonOf(object); }
    Json operator()(const List& list) const
    {
        Json members = Json::array();
        for (const Object& member : list->members)
            members.push_back(JsonOf(member));
        return members;
    }
    Json operator()(const auto& plain) const { return plain; }
};

Json JsonOf(const HostDescriptorBlock& descriptor)
{
    Json fields = Json::object();
    for (const auto& [key, value] : descriptor.values)
        fields[NameOfKey(key)] = std::visit(ToJson(), value);
    return fields;
}

constexpr HostDescriptorSuite kDescriptorSuite = {
    kHostDescriptorTableVersion,
    8,
    {},
    [](HostDescriptor* out) { return Make(gDescriptors, out); },
    [](HostDescriptor descriptor) { return Free(gDescriptors, descriptor); },
    PutInteger,
    PutFloat,
    PutBoolean,
    PutString,
    PutObject,
    PutList};

constexpr HostListSuite kListSuite = {kHostListTableVersion,
                                      3,
                                      {},
                                      [](HostList* out) { return Make(gLists, out); },
                                      [](HostList list) { return Free(gLists, list); },
                                      Append};

} // namespace

const HostDescriptorSuite* DescriptorSuite()
{
    return &kDescriptorSuite;
}

const HostListSuite* ListSuite()
{
    return &kListSuite;
}

Json JsonOf(HostDescriptor descriptor)
{
    return gDescriptors.contains(descriptor) ? JsonOf(*descriptor) : Json();
}

size_t LooseDescriptors()
{
    return gDescriptors.size() + gLists.size();
}

} // namespace Host
