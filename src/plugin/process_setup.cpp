#include "plugin/process_setup.h"

#include "platform/process.h"
#include "view/process.h"

namespace Kesto {

void SetUpProcess()
{
    Platform::MakeProcessDpiAware();
    Platform::ReadyCommonControls();
    CProcess::NoteMainThread();
}

} // namespace Kesto
