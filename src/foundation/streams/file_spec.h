// CFileSpec, the place of a file or folder, whether it exists or not.
#pragma once

#include "foundation/base/text.h"

namespace Kesto {

class CFileSpec {
public:
    CFileSpec() = default;

    // A path in the form of the operating system, as UTF-8.
    explicit CFileSpec(CText path) : fPath(std::move(path)) {}

    const CText& Path() const { return fPath; }

    // Goes one level down, to the file or folder of that name in the folder that this is.
    void Append(const CText& name);

    // The place of that name in the folder that this is.
    CFileSpec Child(const CText& name) const;

    // Makes the folder that this is, and those above it, where they are missing. Throws
    // CSystemError.
    void CreateFolder() const;

private:
    CText fPath;
};

} // namespace Kesto
