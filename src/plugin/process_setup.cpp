#include "plugin/process_setup.h"

#include "foundation/service.h"
#include "platform/process.h"
#include "view/desktop.h"
#include "view/process.h"

namespace Kesto {

void SetUpProcess()
{
    Platform::MakeProcessDpiAware();
    Platform::ReadyCommonControls();
    CProcess::NoteMainThread();
    CServiceT<CDesktop>::Get();
}

} // namespace Kesto
