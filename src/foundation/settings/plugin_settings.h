// What a plug-in remembers between runs: the state of its window, and settings of its own.
#pragma once

#include "foundation/settings/window_state.h"
#include "foundation/streams/stream.h"

#include <cstdint>
#include <memory>

namespace Project {

// The settings of a project, kept in a chunk of their own. The base has none; a plug-in with
// settings derives from it.
class PSettings {
public:
    PSettings() = default;
    PSettings(const PSettings&) = default;
    PSettings& operator=(const PSettings&) = default;
    virtual ~PSettings() = default;

    // Reads what Write wrote, `size` bytes. Bytes left unread are passed over.
    virtual void Read(Kesto::CStream&, std::uint32_t /*size*/) {}

    virtual void Write(Kesto::CStream&) const {}

    // A copy of the whole object; never null. Those who derive return their own class.
    virtual std::unique_ptr<PSettings> Clone() const { return std::make_unique<PSettings>(*this); }
};

} // namespace Project

namespace Kesto {

struct PluginSettings {
    WindowState window = WindowState::FromNothing();
    std::unique_ptr<Project::PSettings> project =
        std::make_unique<Project::PSettings>(); // never null

    PluginSettings Clone() const { return {window, project->Clone()}; }
};

} // namespace Kesto
