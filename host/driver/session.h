// A host's use of one file format module, from its load to its unload.
//
// The order of the calls is that of lumograph/selectors.h. What the property list doesn't allow is
// refused before a selector is sent.
#pragma once

#include "driver/operation.h"

namespace Host {

struct SaveReport {
    int32_t estimateMin = 0; // bytes, as the module foretold
    int32_t estimateMax = 0;
};

class Session {
public:
    Session(const PluginModule& module, const OperationOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Opens a frame of `file`, the one that the module's dialog chooses or else the first, and
    // hands its picture to `sink`. Throws what failed.
    PictureInfo Open(const std::filesystem::path& file, PictureSink& sink);

    // Saves the picture as `file`, which changes only when everything went well. Throws what
    // failed.
    SaveReport Save(PictureSource& picture, const std::filesystem::path& file);

private:
    void SendAlone(int16_t selector);
    void ReportBooks(const Operation& operation) const;

    const PluginModule& fModule;
    OperationOptions fOptions;
    intptr_t fData = 0;
};

} // namespace Host
