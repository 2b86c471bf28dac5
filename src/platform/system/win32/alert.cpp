#include "platform/system/alert.h"

#include "platform/system/win32/handles.h"
#include "platform/system/win32/wide.h"

#include <windows.h>

namespace Platform {

BoxAnswer ShowMessageBox(std::uint32_t flags, std::string_view title, std::string_view text,
                         NativeWindow parent)
{
    return BoxAnswer{
        MessageBoxW(Handle(parent), ToWide(text).c_str(), ToWide(title).c_str(), UINT{flags})};
}

void PlayAlertSound(std::uint32_t kind)
{
    MessageBeep(UINT{kind});
}

} // namespace Platform
