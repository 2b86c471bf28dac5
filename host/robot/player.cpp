#include "robot/player.h"

#include "pictures/bitmap_file.h"
#include "robot/description.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace Host {

using nlohmann::ordered_json;

namespace {

// Messages of the system, by their numbers.
enum SystemMessage : std::uint32_t {
    kClose = 0x10,
    kKeyDown = 0x100,
    kKeyUp = 0x101,
    kMouseMove = 0x200,
    kLeftDown = 0x201,
    kLeftUp = 0x202,
    kWheel = 0x20A,
    kSidewaysWheel = 0x20E,
};
constexpr std::uint32_t kMessagesOfButton = 3; // from one button to the next
constexpr double kNotch = 120.0;

// A later press counts as a new click, on any system's usual settings.
constexpr double kNewClick = 0.6; // seconds

constexpr int kMostDismissals = 1000;

// What ends a script early.
struct Stop {
    PlayOutcome::Status status;
    std::string words;
};

std::int64_t Packed(std::int32_t x, std::int32_t y)
{
    const auto low = static_cast<std::uint16_t>(x);
    const auto high = static_cast<std::uint32_t>(static_cast<std::uint16_t>(y)) << 16;
    return static_cast<std::int64_t>(high | low);
}

// Events have 16 bits for each side; what lies beyond is as far away as they reach.
std::int32_t PixelOf(double side)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int32_t>(
        std::clamp(std::floor(side), double{Limits::min()}, double{Limits::max()}));
}

bool NeedsWindow(Verb verb)
{
    constexpr Verb kOthers[] = {Verb::kWait, Verb::kTheme, Verb::kExpectWindow, Verb::kHold,
                                Verb::kLetGo};
    return std::ranges::find(kOthers, verb) == std::end(kOthers);
}

} // namespace

// What events point to, and what the windows put there.
struct Player::Records {
    static void AddWindow(void* context, const HostWindow* window)
    {
        static_cast<Records*>(context)->windows.push_back(
            {window->window, window->title, window->scale, nullptr});
    }
    static void Take(void* context, std::int32_t width, std::int32_t height,
                     const std::uint8_t* pixels, std::int64_t rowBytes)
    {
        static_cast<Records*>(context)->picture.emplace(width, height, pixels, rowBytes);
    }

    static void AddMonitor(void* context, const HostMonitor* monitor)
    {
        static_cast<Records*>(context)->monitors.push_back(
            {monitor->left, monitor->top, monitor->right, monitor->bottom});
    }
    static void TakeCursor(void* context, const char* shape)
    {
        static_cast<Records*>(context)->cursor = shape;
    }

    HostWindowList list{this, AddWindow};
    HostPhotograph photograph{this, Take};
    HostCursor cursorPlace{this, TakeCursor};
    HostMonitors monitorPlace{this, AddMonitor, nullptr, 0};
    std::vector<HostMonitor> wantedMonitors;
    HostUnits units{};
    std::string text;
    std::vector<OpenWindow> windows; // front to back
    std::optional<BitmapCopy> picture;
    std::vector<ScriptRect> monitors;
    std::string cursor;
};

Player::Player(Script script, Stage& stage)
    : fScript(std::move(script)), fStage(stage), fRecords(std::make_unique<Records>())
{
}

Player::~Player() = default;

bool Player::TakeTurn(HostInputEvent& event)
{
    while (fEvents.empty() && !IsOver()) {
        try {
            Proceed();
        } catch (const Stop& stop) {
            Fail(stop.status, stop.words);
        } catch (const std::exception& error) {
            Fail(PlayOutcome::kTrouble, error.what());
        }
    }
    if (fEvents.empty())
        return false;
    event = fEvents.front();
    fEvents.pop_front();
    return true;
}

// Each action needs to know what windows there are.
void Player::Proceed()
{
    switch (fStep) {
    case Step::kLook:
        if (const auto take = std::exchange(fTakeAnswer, nullptr))
            take();
        fRecords->windows.clear();
        PutRecord(kHostRequestWindows, fRecords->list);
        fStep = Step::kAct;
        break;
    case Step::kAct:
        fStep = Step::kLook;
        if (fNext == fScript.actions.size() || fOutcome.status != PlayOutcome::kPlayed) {
            DismissFront();
            break;
        }
        Act(fScript.actions[fNext++]);
        break;
    case Step::kOver:
        break;
    }
}

void Player::DismissFront()
{
    const std::vector<OpenWindow>& windows = fRecords->windows;
    if (windows.empty() || fDismissed == kMostDismissals) {
        fStep = Step::kOver;
        return;
    }
    if (fDismissed++ == 0) {
        Put(kHostRequestMessages, nullptr); // what goes on now is no work of the script's
        if (fIsHeld)
            PutMouse(kLeftUp, fSpot); // a drag would go on for ever
    }
    Put(kHostRequestDismiss, windows.front().handle);
}

void Player::Fail(PlayOutcome::Status status, const std::string& words)
{
    fEvents.clear();
    fStep = Step::kLook;
    if (fOutcome.status != PlayOutcome::kPlayed)
        return;
    const std::string line = fLine > 0 ? ':' + std::to_string(fLine) : "";
    fOutcome = {status, (fScript.name.empty() ? "" : fScript.name + line + ": ") + words};
}

// --------------------------------------------------------------------------------------- Actions

void Player::Act(const Action& action)
{
    fLine = action.line;
    if (NeedsWindow(action.verb) && fRecords->windows.empty())
        throw Stop{PlayOutcome::kTrouble, fLine > 0
                                              ? "no window is open that this line could be about"
                                              : "no window is open"};
    switch (action.verb) {
    case Verb::kClick:
        Click(action);
        break;
    case Verb::kPress:
        Press(action, Find(action.view), 1);
        break;
    case Verb::kMove:
        PutMouse(kMouseMove, Find(action.view));
        break;
    case Verb::kRelease:
        fIsHeld = false;
        PutMouse(kLeftUp, fSpot);
        break;
    case Verb::kWheel:
        Wheel(action);
        break;
    case Verb::kType:
        PutText(kHostRequestType, action.text);
        break;
    case Verb::kPaste:
        PutText(kHostRequestPaste, action.text);
        break;
    case Verb::kKey:
        PutKeys(action.modifiers, true);
        PutKeys({action.key}, true);
        PutKeys({action.key}, false);
        PutKeys(action.modifiers, false);
        break;
    case Verb::kHold:
    case Verb::kLetGo:
        PutKeys({action.key}, action.verb == Verb::kHold);
        break;
    case Verb::kFocus:
        Focus(action);
        break;
    default:
        ActOnWindow(action);
        break;
    }
}

void Player::ActOnWindow(const Action& action)
{
    switch (action.verb) {
    case Verb::kResize:
    case Verb::kScale:
        fRecords->units = {action.numbers.x, action.numbers.y};
        PutRecord(action.verb == Verb::kScale ? kHostRequestScale : kHostRequestSize,
                  fRecords->units);
        break;
    case Verb::kPlace:
        fRecords->units = {action.numbers.x, action.numbers.y};
        PutRecord(kHostRequestPlace, fRecords->units);
        break;
    case Verb::kMonitors:
        UseMonitors(action);
        break;
    case Verb::kTheme:
        Put(kHostRequestTheme, nullptr, static_cast<std::uint64_t>(action.numbers.x));
        break;
    case Verb::kClose:
        Put(kClose, fRecords->windows.front().handle);
        break;
    case Verb::kWait:
        Wait(action.numbers.x);
        break;
    case Verb::kShot:
        fRecords->picture.reset();
        fTakeAnswer = [this, path = action.text] { WriteShot(path); };
        PutRecord(kHostRequestPhotograph, fRecords->photograph);
        break;
    case Verb::kDescribe:
        WriteDescription(action.text);
        break;
    case Verb::kExpect:
        Expect(action);
        break;
    case Verb::kExpectWindow:
        ExpectWindow(action.text);
        break;
    case Verb::kExpectCursor:
        fRecords->cursor.clear();
        fTakeAnswer = [this, wanted = action.text] { CompareCursor(wanted); };
        PutRecord(kHostRequestCursor, fRecords->cursorPlace);
        break;
    default:
        break;
    }
}

void Player::Click(const Action& action)
{
    const Spot spot = Find(action.view);
    PutKeys(action.modifiers, true);
    Press(action, spot, action.count);
    PutKeys(action.modifiers, false);
}

// A line of its own is a click of its own: presses soon after another would be its double clicks.
// `press` leaves the button down, which has the count 1 and no release.
void Player::Press(const Action& action, const Spot& spot, int count)
{
    const std::uint32_t down =
        kLeftDown + kMessagesOfButton * static_cast<std::uint32_t>(action.button);
    PutMouse(kMouseMove, spot);
    if (fWasPressed && fSincePress < kNewClick)
        Wait(kNewClick - fSincePress);
    for (int i = 0; i < count; ++i) {
        PutMouse(down, spot);
        if (action.verb == Verb::kClick)
            PutMouse(down + 1, spot);
    }
    fIsHeld = action.verb == Verb::kPress;
    fWasPressed = true;
    fSincePress = 0;
}

void Player::Wheel(const Action& action)
{
    const Spot spot = Find(action.view);
    PutMouse(kMouseMove, spot);
    const auto turn = [&](std::uint32_t message, double notches) {
        const auto parts = static_cast<std::uint16_t>(std::lround(notches * kNotch));
        if (parts != 0)
            PutMouse(message, spot, static_cast<std::uint64_t>(parts) << 16);
    };
    turn(kSidewaysWheel, action.numbers.x);
    turn(kWheel, action.numbers.y);
}

void Player::Wait(double seconds)
{
    Put(kHostRequestWait, nullptr, static_cast<std::uint64_t>(std::ceil(seconds * 1000.0)));
    fSincePress += seconds;
}

// A view is named by its id, so one at a point must have one.
void Player::Focus(const Action& action)
{
    const Spot spot = Find(action.view);
    const std::string id = spot.view != nullptr ? spot.view->value("id", "") : "";
    if (id.empty())
        throw Stop{PlayOutcome::kNotAsExpected,
                   "focus " + action.view.text + ": no view with an id is there"};
    PutText(kHostRequestFocus, id, spot.window);
}

void Player::WriteDescription(const std::string& path)
{
    const std::string text = DescriptionOf(fRecords->windows.front())
                                 .dump(2, ' ', false, ordered_json::error_handler_t::replace) +
                             '\n';
    if (path == "-") {
        std::cout << text << std::flush;
        return;
    }
    std::ofstream file(FileOf(path), std::ios::binary | std::ios::trunc);
    file << text;
    if (!file.flush())
        throw std::runtime_error(path + ": the file can't be written");
}

void Player::WriteShot(const std::string& path)
{
    if (!fRecords->picture)
        throw std::runtime_error(path + ": the window gave no picture");
    WriteBitmap(FileOf(path), *std::exchange(fRecords->picture, std::nullopt));
}

void Player::UseMonitors(const Action& action)
{
    Records& records = *fRecords;
    records.monitors.clear();
    records.wantedMonitors.clear();
    for (const auto& [left, top, right, bottom] : action.monitors)
        records.wantedMonitors.push_back({left, top, right, bottom});
    records.monitorPlace.monitors = records.wantedMonitors.data();
    records.monitorPlace.count = static_cast<std::int64_t>(records.wantedMonitors.size());
    fTakeAnswer = [this, wanted = action.monitors] { CompareMonitors(wanted); };
    PutRecord(kHostRequestMonitors, records.monitorPlace);
}

void Player::CompareMonitors(const std::vector<ScriptRect>& wanted)
{
    if (fRecords->monitors == wanted)
        return;
    std::ostringstream words;
    for (const auto& [left, top, right, bottom] : fRecords->monitors)
        words << ' ' << right - left << 'x' << bottom - top << std::showpos << left << top
              << std::noshowpos;
    throw Stop{PlayOutcome::kTrouble, "monitors: the display has" + words.str()};
}

void Player::CompareCursor(const std::string& wanted)
{
    if (fRecords->cursor != wanted)
        throw Stop{PlayOutcome::kNotAsExpected,
                   "expect-cursor: wanted " + wanted + ", found " +
                       (fRecords->cursor.empty() ? "none with a name" : fRecords->cursor)};
}

void Player::Expect(const Action& action)
{
    const Spot spot = Find(action.view);
    const ordered_json* const found =
        spot.view != nullptr ? FindValue(*spot.view, action.property) : nullptr;
    if (found != nullptr && IsValue(*found, action.text))
        return;
    throw Stop{PlayOutcome::kNotAsExpected, "expect " + action.view.text + ' ' + action.property +
                                                ": wanted " + action.text + ", found " +
                                                (found != nullptr       ? WordsOf(*found)
                                                 : spot.view != nullptr ? "nothing under this key"
                                                                        : "no view there")};
}

void Player::ExpectWindow(const std::string& wanted)
{
    const std::vector<OpenWindow>& windows = fRecords->windows;
    std::string titles;
    for (const OpenWindow& window : windows)
        titles += (titles.empty() ? "\"" : ", \"") + window.title + '"';
    const bool holds =
        wanted == "open" ? !windows.empty()
        : wanted == "closed"
            ? windows.empty()
            : std::ranges::find(windows, wanted, &OpenWindow::title) != windows.end();
    if (!holds)
        throw Stop{PlayOutcome::kNotAsExpected,
                   "expect-window: wanted " + wanted + ", found " +
                       (windows.empty() ? "no window" : "windows with the titles " + titles)};
}

// ----------------------------------------------------------------------------------------- Views

const ordered_json& Player::DescriptionOf(OpenWindow& window)
{
    if (window.description.is_null())
        window.description = fStage.Describe(window.handle);
    return window.description;
}

// Points are of the frontmost window.
Player::Spot Player::Find(const ViewName& name)
{
    if (name.point) {
        OpenWindow& front = fRecords->windows.front();
        const ordered_json& root = DescriptionOf(front);
        const ViewRect content = GlobalBounds(root);
        const std::int32_t x = PixelOf(name.point->x * front.scale);
        const std::int32_t y = PixelOf(name.point->y * front.scale);
        return {front.handle, FindViewAt(root, content.left + x, content.top + y), x, y};
    }
    for (OpenWindow& window : fRecords->windows) {
        const ordered_json& root = DescriptionOf(window);
        const ordered_json* const view = root.is_null() ? nullptr : FindView(root, name.text);
        if (view == nullptr)
            continue;
        const ViewRect content = GlobalBounds(root);
        const ViewRect rect = GlobalBounds(*view);
        return {window.handle, view, (rect.left + rect.right) / 2 - content.left,
                (rect.top + rect.bottom) / 2 - content.top};
    }
    throw Stop{PlayOutcome::kNotAsExpected, name.text + ": no open window has a view of this id"};
}

// ---------------------------------------------------------------------------------------- Events

void Player::Put(std::uint32_t message, void* window, std::uint64_t first, std::int64_t second)
{
    fEvents.push_back({window, message, 0, first, second});
}

template <class Record>
void Player::PutRecord(std::uint32_t request, const Record& record, void* window)
{
    Put(request, window, 0, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&record)));
}

void Player::PutText(std::uint32_t request, const std::string& text, void* window)
{
    fRecords->text = text;
    PutRecord(request, *fRecords->text.c_str(), window);
}

void Player::PutKeys(const std::vector<std::uint32_t>& keys, bool down)
{
    for (const std::uint32_t key : keys)
        Put(down ? kKeyDown : kKeyUp, nullptr, key);
}

void Player::PutMouse(std::uint32_t message, const Spot& spot, std::uint64_t first)
{
    fSpot = spot;
    fSpot.view = nullptr;
    Put(message, spot.window, first, Packed(spot.x, spot.y));
}

} // namespace Host
