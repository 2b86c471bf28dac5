#include "vex/author_window.h"

#include "drawing/tools/draw_tools.h"
#include "foundation/alerts/reporter.h"
#include "lumograph/window_requests.h"
#include "platform/input/keyboard.h"
#include "platform/input/message_numbers.h"
#include "platform/windows/window_place.h"
#include "plugin/view_info/window_requests.h"
#include "vex/inspector.h"
#include "view/process/idler.h"
#include "view/process/process.h"
#include "view/process/ui_scale.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

namespace Vex {
namespace {

namespace fs = std::filesystem;

enum AuthorKey : std::uintptr_t { kF2 = 0x71, kF3, kF4, kF5 };

constexpr double kScales[] = {0.5, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0, 4.0};
constexpr double kPeriod = 0.1; // seconds

// The next larger or smaller one.
double ScaleBeside(double scale, bool larger)
{
    const auto* const at = std::ranges::lower_bound(kScales, scale);
    if (larger)
        return at == std::end(kScales) || std::next(at) == std::end(kScales) ? kScales[7]
                                                                             : *std::next(at);
    return at == std::begin(kScales) ? kScales[0] : *std::prev(at);
}

// Keeps the pump awake, so that the file is looked at.
class CAwake : public Kesto::CIdler {
public:
    CAwake() : CIdler(kPeriod) { StartIdling(); }
    void Idle() override {}
};

class CAuthorProcess : public Kesto::CProcess {
public:
    CAuthorProcess(std::string file, const AuthorOptions& options)
        : fFile(std::move(file)), fOptions(options)
    {
    }

    void RunToTheEnd();

    bool PreTranslateMessage(Platform::QueuedMessage& message) override
    {
        const bool isKey = message.number == Platform::Number::kKeyDown ||
                           message.number == Platform::Number::kKeyUp;
        if (!isKey || message.first < kF2 || message.first > kF5)
            return CProcess::PreTranslateMessage(message);
        if (message.number == Platform::Number::kKeyDown)
            fKey = message.first;
        return false;
    }

private:
    bool IsOpen() const { return fLayout != nullptr && fLayout->Root().IsStarted(); }

    void TakeKey(std::uintptr_t key);
    void LookAtTheFile();
    void Open();
    void Ask(std::uint32_t request, std::uint64_t first, const HostUnits& units = {}) const;

    const std::string fFile;
    const AuthorOptions& fOptions;
    std::unique_ptr<CBuiltLayout> fLayout;
    std::optional<fs::file_time_type> fSeen;
    CInspector fInspector;
    std::uintptr_t fKey = 0; // pressed, and not yet done
    const CAwake fAwake;
};

void CAuthorProcess::RunToTheEnd()
{
    LookAtTheFile();
    while (IsOpen()) {
        bool force = false;
        Kesto::Reported([this] { GetNextEvent(0); });
        if (!fLayout->Root().Poll(force))
            break;
        TakeKey(std::exchange(fKey, 0));
        LookAtTheFile();
        fInspector.Follow(*fLayout);
    }
}

void CAuthorProcess::Ask(std::uint32_t request, std::uint64_t first, const HostUnits& units) const
{
    Kesto::CarryOut({fLayout->Root().NativeHandle(), request, 0, first,
                     static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&units))});
}

void CAuthorProcess::TakeKey(std::uintptr_t key)
{
    const bool isShifted =
        Platform::IsKeyDown(Platform::Key::kShift, Platform::KeyMoment::kLastMessage);
    switch (key) {
    case kF2:
        fInspector.Toggle(*fLayout);
        break;
    case kF3:
        Ask(kHostRequestTheme,
            static_cast<std::uint64_t>((Kesto::CDrawTools::Get().GetTheme() + 1) % 4));
        break;
    case kF4:
        Ask(kHostRequestScale, 0, {ScaleBeside(fLayout->Root().GetScaleFactor(), !isShifted), 0});
        break;
    case kF5:
        fSeen.reset();
        break;
    default:
        return;
    }
    // It points at views that a new theme, scale or text may have replaced.
    fInspector.Forget();
}

// A text that is being written is read again when it is whole.
void CAuthorProcess::LookAtTheFile()
{
    std::error_code isBeingWritten;
    const fs::file_time_type now = fs::last_write_time(fFile, isBeingWritten);
    if (fLayout != nullptr && (isBeingWritten || now == fSeen))
        return;
    fSeen = now;
    try {
        Open();
    } catch (const std::runtime_error& error) {
        if (fLayout == nullptr)
            throw;
        fOptions.refused(error.what());
    }
}

// The new window's content comes where the old one's was: its frame may come later. The old one is
// closed first, or it would be the owner.
void CAuthorProcess::Open()
{
    const CSourceText source = CSourceText::Load(fFile);
    fOptions.read(source);
    auto layout = std::make_unique<CBuiltLayout>(source, fOptions.build);
    fInspector.Forget();
    std::optional<Kesto::PixelPoint> corner;
    if (IsOpen()) {
        const Platform::PixelRect old = fLayout->Root().GetWindowBounds();
        corner = {old.left, old.top};
        fLayout->Root().Stop();
    }
    fLayout = std::move(layout);
    fLayout->Root().Start();
    if (!corner)
        return;
    const Platform::PixelRect frame = fLayout->Root().GetWindowFrame();
    const Platform::PixelRect content = fLayout->Root().GetWindowBounds();
    fLayout->Root().MoveWindow(
        {corner->x - content.left + frame.left, corner->y - content.top + frame.top});
}

} // namespace

void RunAuthorWindow(const std::string& file, const AuthorOptions& options)
{
    Kesto::CDrawTools::Get().SetTheme(options.theme);
    Kesto::SetUiScale(options.build.scale / Platform::ScaleOf(nullptr));
    CAuthorProcess(file, options).RunToTheEnd();
}

} // namespace Vex
