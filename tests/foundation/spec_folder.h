// A temporary folder whose files have specs.
#pragma once

#include "foundation/streams/file_spec.h"
#include "support/temporary_folder.h"

class SpecFolder : public TemporaryFolder {
public:
    Kesto::CFileSpec Spec() const
    {
        const std::u8string utf8 = Path().u8string();
        return Kesto::CFileSpec(Kesto::CText(std::string(utf8.begin(), utf8.end())));
    }
    Kesto::CFileSpec File(const char* name) const { return Spec().Child(name); }
};
