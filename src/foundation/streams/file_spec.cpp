#include "foundation/streams/file_spec.h"

#include "foundation/errors/system_checks.h"
#include "platform/files/files.h"

namespace Kesto {

void CFileSpec::Append(const CText& name)
{
    fPath = Platform::JoinPath(fPath.View(), name.View());
}

CFileSpec CFileSpec::Child(const CText& name) const
{
    CFileSpec child(*this);
    child.Append(name);
    return child;
}

void CFileSpec::CreateFolder() const
{
    OSThrowBare(Platform::MakeFolderPath(fPath.CStr()));
}

} // namespace Kesto
