// The format plug-ins that are alive, by project.
//
// A project has no object, or one for a session (from the first selector that acquires it to a
// finish or an error), or a resident one, whose keep-alive byte makes every release do nothing
// until the host unloads the module.
#pragma once

#include "plugin/format/lumograph_format.h"

#include <map>
#include <memory>

namespace Kesto {

// Makes the object of a project, or null when the module has no class for it.
using FormatFactory = std::unique_ptr<CLumographFormat> (*)(ProjectIndex);

struct FormatProject {
    ProjectIndex index;
    FormatFactory factory;
};

class PluginRegistry {
public:
    static PluginRegistry& Get();

    bool IsEmpty() const { return fPlugins.empty(); }
    CLumographFormat* Find(ProjectIndex index) const;
    CLumographFormat& Insert(ProjectIndex index, std::unique_ptr<CLumographFormat> plugin);

    // Deletes the project's object, if there is one, and runs the toolkit's clean-up list.
    void Erase(ProjectIndex index);

private:
    std::map<ProjectIndex, std::unique_ptr<CLumographFormat>> fPlugins;
};

// The object of a project, or null. A success makes it the current format plug-in and the module's
// current plug-in.
CLumographFormat* FindFormatPlugin(ProjectIndex index);

// The format plug-in that was found or acquired last, or null.
CLumographFormat* CurrentFormatPlugin();

// The object of a project, made when there is none: then the process is set up if no other object
// lives, the host's properties are read from the call's record, which may be null, and DoLoad runs.
// With `keepAlive` DoLoad sees the call's record and data. Throws std::logic_error when the module
// has no class for the project.
CLumographFormat& AcquireFormatPlugin(const FormatProject& project, bool keepAlive,
                                      const HostCall& call);

// Ends a project's object unless there is none or it is resident. The value of its unload handler
// goes into `result` if that is still 0.
void ReleaseFormatPlugin(ProjectIndex index, int16_t& result, bool unloading);

} // namespace Kesto
