#include "plugin/frame/lumograph_error.h"

#include "lumograph/results.h"

#include <algorithm>
#include <iterator>

namespace Kesto {
namespace {

struct ErrorText {
    int16_t code;
    const char* text;
};

constexpr ErrorText kErrorTexts[] = {
    {kHostReadError, "$$$/Kesto/LumographError/readErr=The data could not be read."},
    {kHostWriteError, "$$$/Kesto/LumographError/writErr=The data could not be written."},
    {kHostOpenError,
     "$$$/Kesto/LumographError/openErr=The requested read or write permission is not allowed."},
    {kHostDiskFull, "$$$/Kesto/LumographError/dskFulErr=The disk is full."},
    {kHostIoError, "$$$/Kesto/LumographError/ioErr=A file system error has occurred."},
    {kHostEndOfFile,
     "$$$/Kesto/LumographError/eofErr=The end of the data was prematurely reached."},
    {kHostFileNotFound,
     "$$$/Kesto/LumographError/fnfErr=The file or directory could not be found."},
    {kHostFileLocked, "$$$/Kesto/LumographError/fLckdErr=The file is locked."},
    {kHostVolumeLocked, "$$$/Kesto/LumographError/vLckdErr=The disk volume is locked."},
    {kHostBadParameter,
     "$$$/Kesto/LumographError/paramErr=There is an error in the parameter list."},
    {kHostMemoryFull, "$$$/Kesto/LumographError/memFullErr=There is not enough memory."},
    {kHostNilHandle,
     "$$$/Kesto/LumographError/nilHandleErr=An attempt was made to use a NULL handle."},
    {kHostMemoryFreed,
     "$$$/Kesto/LumographError/memWZErr=An attempt was made to operate on a free memory block."},
    {kHostUserCanceled, "$$$/Kesto/LumographError/userCanceledErr=The operation was canceled."},
};

constexpr char kUnknownText[] =
    "$$$/Kesto/LumographError/Unknown=An unknown host error has occurred.";

} // namespace

void CLumographError::GetErrorText(CText& out) const
{
    const auto* const found = std::ranges::find(kErrorTexts, fCode, &ErrorText::code);
    out = CText(found != std::end(kErrorTexts) ? found->text : kUnknownText);
}

} // namespace Kesto
