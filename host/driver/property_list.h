// What a module declares of itself: the resource JSON_TAGL of type JSON.
//
// The host believes the list and nothing else: a file, size or mode that the list doesn't allow is
// refused before the module is called.
#pragma once

#include "pictures/picture.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace Host {

struct PropertyList {
    std::string name;
    std::string entry; // exported function that serves the plug-in
    bool canRead = false;
    bool canWrite = false;
    std::vector<std::string> readExtensions; // upper case, without the dot and the trailing blanks
    std::vector<std::string> writeExtensions;
    int32_t maxWidth = 0; // 0: not limited
    int32_t maxHeight = 0;
    std::vector<std::string> modes;   // keys of the colour modes that are served
    std::vector<int32_t> maxChannels; // by colour mode
    bool loadUnload = false;          // the module wants the selectors load and unload
};

// The kinds of plug-in, as "Kind" tells them.
enum class PluginKind { kFormat, kFilter, kExport };

// Reads the first plug-in of the kind. Throws Failure for a text that is no property list or names
// none of them.
PropertyList ParsePropertyList(std::span<const std::byte> json,
                               PluginKind kind = PluginKind::kFormat);

// Each throws Failure when the list doesn't allow it.
void RequireReadable(const PropertyList& list, const std::filesystem::path& file);
void RequireWritable(const PropertyList& list, const std::filesystem::path& file);
void RequirePicture(const PropertyList& list, const PictureInfo& info);

} // namespace Host
