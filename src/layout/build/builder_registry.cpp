#include "layout/build/builder_registry.h"

#include "foundation/base/chained_table.h"

namespace Kesto {

namespace {

using BuilderRegistry = CChainedTable<CViewBuilderBase*>; // null: removed

// Made by the first builder that registers.
BuilderRegistry& Registry()
{
    static BuilderRegistry registry;
    return registry;
}

} // namespace

CViewBuilderBase* FindBuilder(std::string_view name)
{
    CViewBuilderBase* const* const builder = Registry().Find(name);
    return builder != nullptr ? *builder : nullptr;
}

void ForEachBuilder(const std::function<void(CViewBuilderBase&)>& visit)
{
    Registry().ForEach([&visit](std::string_view, CViewBuilderBase* builder) {
        if (builder != nullptr)
            visit(*builder);
    });
}

void RegisterBuilder(std::string_view name, CViewBuilderBase& builder)
{
    Registry().Add(name, &builder, true);
}

void UnregisterBuilder(std::string_view name, const CViewBuilderBase& builder)
{
    if (FindBuilder(name) == &builder)
        Registry().Add(name, nullptr, true);
}

} // namespace Kesto
