#include "platform/process.h"

namespace Platform {

void MakeProcessDpiAware() {}

void ReadyCommonControls() {}

} // namespace Platform
