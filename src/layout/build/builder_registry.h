// The builders of all classes that a layout can name, by that name. Case counts.
#pragma once

#include <functional>
#include <string_view>

namespace Kesto {

class CViewBuilderBase;

// Null when no builder has the name.
CViewBuilderBase* FindBuilder(std::string_view name);

// In the order of the table: bucket by bucket, in each the one that came last first.
void ForEachBuilder(const std::function<void(CViewBuilderBase&)>& visit);

// Called by the builders themselves. One of the same name takes the place of the one before.
void RegisterBuilder(std::string_view name, CViewBuilderBase& builder);
void UnregisterBuilder(std::string_view name, const CViewBuilderBase& builder);

} // namespace Kesto
