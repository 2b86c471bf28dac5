// The frame dialog as the host and a person meet it: from the module's entry to the choice and
// back.
#include "controls/buttons/custom_button.h"
#include "controls/fields/edit_number.h"
#include "controls/text/static_text.h"
#include "formats/dialog_person.h"
#include "formats/stored_settings.h"
#include "foundation/settings/plugin_settings.h"
#include "foundation/settings/settings_file.h"
#include "foundation/streams/memory_container.h"
#include "platform/graphics/monitors.h"
#include "platform/windows/system_window.h"
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using namespace Kesto;
using ::testing::ElementsAre;

constexpr const char* kNumber = "ElectricImage/FrameNumber";
constexpr const char* kCount = "ElectricImage/NumberOfImages";
constexpr const char* kOK = "Project/Dialog/OKButton";
constexpr const char* kCancel = "Project/Dialog/CancelButton";

template <class View>
View& At(CWindow& window, const char* id)
{
    return dynamic_cast<View&>(*window.FindChild(CObjID(id), true));
}

bool Click(CWindow& window, const char* id)
{
    At<CCustomButton>(window, id).Flash();
    return true;
}

// Frames of one pixel's height, each as wide as its number.
Bytes Frames(int count, std::optional<uint32_t> told = {})
{
    std::vector<EIFrame> frames;
    for (int i = 1; i <= count; ++i)
        frames.push_back({.width = i,
                          .height = 1,
                          .lut = {1, 2, 3},
                          .pixels = Bytes(static_cast<size_t>(i) * 3, 7)});
    return FileOf(frames, 5, told);
}

const Outcome kCancelled{kHostUserCanceled, kFormatReadStart};

class FrameDialog : public ModuleTest {
protected:
    StoredSettings store{"Electric Image Format Prefs.lgp"};
};

TEST_F(FrameDialog, ShowsHowManyFramesThereAreAndOffersTheFirst)
{
    for (const uint32_t count : {2U, 5U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(count);
        ScriptableHost each;
        DialogPerson person([&](CWindow& window) {
            const auto& field = At<CEditNumber>(window, kNumber);
            EXPECT_STREQ(window.GetTitle().CStr(), "ElectricImage");
            EXPECT_EQ(At<CStaticText>(window, kCount).GetText(),
                      CText("This file contains " + std::to_string(count) + " frames."));
            EXPECT_EQ(field.GetValue(), 1.0);
            EXPECT_EQ(field.GetMinimum(), 1.0);
            EXPECT_EQ(field.GetMaximum(), count);
            EXPECT_TRUE(field.IsBullseye());
            EXPECT_EQ(field.GetSelection().to, 1U) << "ready to type";
            return DialogPerson::PressEscape(window);
        });
        EXPECT_EQ(each.Open(Frames(2, count)), kCancelled);
        EXPECT_EQ(person.windows, 1);
        ExpectClean(each, 0, 1);
    }
}

// Enters a number, and goes on.
DialogPerson::Deed Enter(const char* number, DialogPerson::Deed next)
{
    return [number, next](CWindow& window) {
        At<CEditNumber>(window, kNumber).SetText(number);
        return next(window);
    };
}
bool PressOK(CWindow& window)
{
    return Click(window, kOK);
}
bool PressCancel(CWindow& window)
{
    return Click(window, kCancel);
}
bool PressCloseBox(CWindow& window)
{
    window.DoClose();
    return true;
}

TEST_F(FrameDialog, EndsAsThePersonSays)
{
    const struct {
        const char* words;
        DialogPerson::Deed deed;
        int frame; // 0: cancelled
    } rows[] = {
        {"Return at once", DialogPerson::PressReturn, 1},
        {"a number and OK", Enter("3", PressOK), 3},
        {"a sum and Return", Enter("2+2", DialogPerson::PressReturn), 4},
        {"Escape", DialogPerson::PressEscape, 0},
        {"Cancel", PressCancel, 0},
        {"Cancel with a number that is none", Enter("77", PressCancel), 0},
        {"the close box", PressCloseBox, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        ScriptableHost each;
        const DialogPerson person(row.deed);
        EXPECT_EQ(each.Open(Frames(5)), row.frame != 0 ? Outcome{} : kCancelled);
        EXPECT_EQ(each.document.width, row.frame);
        ExpectClean(each, 0, row.frame != 0 ? 0 : 1);
    }
    EXPECT_THAT(alerts.texts, ElementsAre());
}

TEST_F(FrameDialog, IsNotShownWithoutNeed)
{
    const struct {
        const char* words;
        int frames;
        bool quiet;
        int16_t playMode;
    } rows[] = {{"one frame", 1, false, 0},
                {"a quiet open", 3, true, 0},
                {"a silent playback", 3, false, kHostPlaySilent}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        ScriptableHost each;
        each.record.quietOpen = row.quiet;
        each.playback.playMode = row.playMode;
        const DialogPerson person(DialogPerson::PressEscape);
        EXPECT_EQ(each.Open(Frames(row.frames)), Outcome{});
        EXPECT_EQ(each.document.width, 1);
        EXPECT_EQ(person.windows, 0);
    }
    EXPECT_FALSE(std::filesystem::exists(store.File()));
    host.record.playbackBlock = nullptr; // which could say that it is silent
    const DialogPerson person(DialogPerson::PressReturn);
    EXPECT_EQ(host.Open(Frames(3)), Outcome{});
    EXPECT_EQ(person.windows, 1);
}

TEST_F(FrameDialog, OpensWhereItWasLeftButAtFrameOne)
{
    PixelPoint seen;
    const auto open = [&](const DialogPerson::Deed& deed) {
        ScriptableHost each;
        const DialogPerson person([&](CWindow& window) {
            const Platform::PixelRect frame = window.GetWindowFrame();
            seen = {frame.left, frame.top};
            EXPECT_EQ(At<CEditNumber>(window, kNumber).GetValue(), 1.0);
            return deed(window);
        });
        each.Open(Frames(5));
        each.Call(kFormatUnload);
    };
    open([](CWindow& window) {
        window.MoveWindow({61, 47});
        At<CEditNumber>(window, kNumber).SetText("2");
        return DialogPerson::PressReturn(window);
    });
    open(DialogPerson::PressEscape);
    EXPECT_EQ(seen, (PixelPoint{61, 47}));
}

// What is stored may be anything. The dialog comes up, on a monitor that is there.
TEST_F(FrameDialog, SurvivesAnyStore)
{
    PluginSettings far;
    far.window.positionX = 90000.0;
    far.window.positionY = 90000.0;
    far.window.monitor = 7;
    CMemoryContainer file(4096);
    SettingsFileSave(far, file);
    const std::string sound(reinterpret_cast<const char*>(file.Bytes().data()),
                            file.Bytes().size());
    const std::tuple<const char*, std::string, bool> rows[] = {
        {"empty", "", false},
        {"not a store", std::string(200, 'x'), false},
        {"cut short", sound.substr(0, sound.size() / 2), true},
        {"of a monitor that is gone", sound, false},
    };
    for (const auto& [words, bytes, isTold] : rows) {
        SCOPED_TRACE(words);
        store.Write(bytes);
        ScriptableHost each;
        AlertCapture said;
        const DialogPerson person([](CWindow& window) {
            const Platform::PixelRect frame = window.GetWindowFrame();
            const auto monitors = Platform::ListMonitors();
            const Platform::PixelRect& area = monitors.front().workArea;
            EXPECT_TRUE(frame.left >= area.left && frame.right <= area.right);
            EXPECT_TRUE(frame.top >= area.top && frame.bottom <= area.bottom);
            return DialogPerson::PressReturn(window);
        });
        EXPECT_EQ(each.Open(Frames(2)), Outcome{});
        EXPECT_EQ(!said.texts.empty(), isTold);
        ExpectClean(each);
    }
}

TEST_F(FrameDialog, AStoreThatCanNeitherBeReadNorWrittenIsToldAndTheChoiceHolds)
{
    std::filesystem::create_directories(store.File() / "in the way");
    const DialogPerson person(DialogPerson::PressReturn);
    EXPECT_EQ(host.Open(Frames(2)), Outcome{});
    EXPECT_EQ(host.document.width, 1);
    EXPECT_EQ(alerts.texts.size(), 2U);
}

// A host that takes no turns leaves the dialog to who is at the display. Where there is none it
// ends as cancelled, or it would wait for ever.
TEST_F(FrameDialog, WithoutTurnsOfTheHostSomebodyMustBeAtADisplay)
{
    const HostBasicSuite bare{nullptr, nullptr};
    const std::tuple<const char*, const HostBasicSuite*, std::optional<Fault>> rows[] = {
        {"no basic suite", nullptr, {}},
        {"one without suites", &bare, {}},
        {"the suite of hooks is missing", host.record.basicSuite, Fault{Kind::kAcquire, 1}},
        {"the hook is refused", host.record.basicSuite, Fault{Kind::kRegister}},
    };
    for (const auto& [words, suite, fault] : rows) {
        SCOPED_TRACE(words);
        ScriptableHost each;
        if (suite != host.record.basicSuite)
            each.record.basicSuite = suite;
        each.fault = fault;
        if (each.fault)
            each.fault->lasting = true;
        const DialogPerson person(DialogPerson::PressReturn);
        EXPECT_EQ(each.Open(Frames(2)), Platform::HasDisplay() ? Outcome{} : kCancelled);
        EXPECT_EQ(person.windows, Platform::HasDisplay() ? 1 : 0);
        ExpectClean(each, 0, each.OpenFiles());
    }
}

TEST_F(FrameDialog, LeavesNoTraceForAHostThatShutsTheSettingsOff)
{
    store.Write("kept");
    host.properties[kPropertySettingsOff] = 1;
    const DialogPerson person(DialogPerson::PressReturn);
    EXPECT_EQ(host.Open(Frames(2)), Outcome{});
    EXPECT_EQ(store.Read(), "kept");
}

} // namespace
} // namespace Testing
