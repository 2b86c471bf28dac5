// CSettingsStore, which keeps a plug-in's settings for the user between runs: in a file, or in the
// registry.
//
// The process class has these operations; it takes them over by deriving from this.
#pragma once

#include "foundation/base/text.h"

namespace Kesto {

class CContainer;
class CFileSpec;

class CSettingsStore {
public:
    CSettingsStore() = default;
    CSettingsStore(const CSettingsStore&) = delete;
    CSettingsStore& operator=(const CSettingsStore&) = delete;
    virtual ~CSettingsStore() = default;

    // The folder of the settings files, made where it is missing. Throws CSystemError.
    virtual void GetSettingsFolder(CFileSpec& out);

    // Makes stored bytes the content of `out`, at position 0, and returns whether there are any.
    // With `useRegistry` they are the value of that name below the key path, else the file of that
    // name in the settings folder; the three texts are localised first. A file that exists and
    // cannot be read throws CSystemError.
    virtual bool ReadSettingsData(const CText& keyPath, const CText& valueName,
                                  const CText& fileName, CContainer& out, bool useRegistry);

    // Stores all bytes of `in` in the same place and returns true; an empty container stores
    // nothing and gives false. Throws CSystemError, and what was stored before is whole then.
    virtual bool WriteSettingsData(const CText& keyPath, const CText& valueName,
                                   const CText& fileName, CContainer& in, bool useRegistry);
};

} // namespace Kesto
