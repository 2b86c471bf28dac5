// Windows that the system refuses: each CreateWindowExW of a dialog and its controls, one after the
// other.
#include "controls/buttons/button_looks.h"
#include "controls/buttons/system_button.h"
#include "controls/fields/edit_string.h"
#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"
#include "support/testing.h"
#include "view/process/desktop.h"
#include "view/test_pump.h"
#include "view/window_parts.h"

#include <windows.h>

using namespace Kesto;

namespace {

// Refuses one of the thread's windows while it lives; those that the system makes by itself for
// others don't count.
class RefusedWindow {
public:
    explicit RefusedWindow(int at)
    {
        gLeft = at;
        gRefused.clear();
        fHook = SetWindowsHookExW(WH_CBT, Refuse, nullptr, GetCurrentThreadId());
    }
    ~RefusedWindow() { UnhookWindowsHookEx(fHook); }
    RefusedWindow(const RefusedWindow&) = delete;
    RefusedWindow& operator=(const RefusedWindow&) = delete;

    // The class of the one that was refused; empty if there were fewer.
    static const std::wstring& Refused() { return gRefused; }

private:
    static LRESULT CALLBACK Refuse(int code, WPARAM window, LPARAM details)
    {
        if (code != HCBT_CREATEWND)
            return CallNextHookEx(nullptr, code, window, details);
        wchar_t name[256] = {};
        GetClassNameW(reinterpret_cast<HWND>(window), name, 256);
        const bool isOurs = std::wstring_view(name).starts_with(L"Kesto_") ||
                            _wcsicmp(name, L"EDIT") == 0 || _wcsicmp(name, L"BUTTON") == 0 ||
                            _wcsicmp(name, L"MDICLIENT") == 0;
        if (!isOurs || gLeft-- != 0)
            return 0;
        gRefused = name;
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 1;
    }

    static inline int gLeft = 0;
    static inline std::wstring gRefused;

    HHOOK fHook;
};

template <class Kind>
struct Furnished : Kind {
    explicit Furnished(const CWindowPlan& plan) : Kind(plan) {}
    void CreateViews() override
    {
        this->AppendChild(std::make_unique<CEditString>(Rect{10, 10, 110, 34}));
        auto graphic = CButtonGraphics::Get().Make(CButtonGraphics::ClassOf(kButtonStyle_Default),
                                                   nullptr, kButtonStyle_Default, "OK");
        this->AppendChild(std::make_unique<CPushButton>(Rect{10, 40, 90, 64}, CObjID("ok"), 0U,
                                                        kBind_Fixed, kPushButton, "OK", false,
                                                        std::move(graphic)));
    }
};

template <class Kind>
std::vector<std::wstring> RefuseEach(CWindow& owner, bool isModal)
{
    std::vector<std::wstring> refused;
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int at = 0;; ++at) {
        SCOPED_TRACE(at);
        {
            Furnished<Kind> window(PlanOf(isModal ? &owner : nullptr));
            window.SetModal(isModal);
            const RefusedWindow refusal(at);
            try {
                window.Start();
                EXPECT_TRUE(refusal.Refused().empty()) << "is passed over";
                window.Stop();
            } catch (const CSystemError& e) {
                EXPECT_EQ(e.Code(), std::uint32_t{ERROR_NOT_ENOUGH_MEMORY});
            }
            EXPECT_EQ(window.NativeHandle(), nullptr);
            EXPECT_FALSE(window.IsStarted());
            EXPECT_EQ(window.CountChildren(), 0U);
        }
        EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 0U);
        EXPECT_TRUE(Platform::IsSystemWindowEnabled(owner.NativeHandle()));
        EXPECT_EQ(CMessenger::GetBullseye(), &owner);
        EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), before);
        if (RefusedWindow::Refused().empty())
            return refused;
        refused.push_back(RefusedWindow::Refused());
    }
}

TEST(RefusedWindows, EndTheStartWithTheSystemsErrorAndLeaveNothing)
{
    PumpedProcess process;
    CDocumentWindow owner(DocumentPlan());
    owner.Start();
    process.PumpQuiet();
    EXPECT_THAT(RefuseEach<CDialog>(owner, true),
                testing::ElementsAre(L"Kesto_ModalClass", L"Edit", L"Button"));
    EXPECT_THAT(RefuseEach<CMDIFrame>(owner, false),
                testing::ElementsAre(L"Kesto_DefaultClass", L"MDIClient", L"Edit", L"Button"));
}

} // namespace
