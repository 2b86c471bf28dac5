#include "plugin/frame/process_setup.h"

#include "foundation/base/service.h"
#include "platform/system/process.h"
#include "view/process/desktop.h"
#include "view/process/process.h"

namespace Kesto {

void SetUpProcess()
{
    Platform::MakeProcessDpiAware();
    Platform::ReadyCommonControls();
    CProcess::NoteMainThread();
    CServiceT<CDesktop>::Get();
}

} // namespace Kesto
