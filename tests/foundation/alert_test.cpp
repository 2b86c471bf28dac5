// Message boxes, and the reporter that shows failures in them.
#include "foundation/alerts/alert.h"
#include "foundation/alerts/reporter.h"

#include "foundation/test_process.h"
#include "support/alert_capture.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

constexpr std::uint32_t kForeground = 0x10000;

std::uint32_t FlagsOf(int buttons, AlertButton defaultButton = AlertButton::kNone, int icon = 0,
                      int modality = 0)
{
    AlertCapture user;
    ShowAlert(AlertButtons{buttons}, AlertIcon{icon}, AlertModality{modality}, "message", "",
              "title", defaultButton);
    return user.boxes.at(0).Flags();
}

AlertButton Show(const char* message = "m", const char* explanation = "",
                 Platform::NativeWindow parent = nullptr)
{
    return ShowAlert(AlertButtons::kYesNo, AlertIcon::kNone, AlertModality::kTask, message,
                     explanation, "$$$/Test/Alert/Title=Trouble", AlertButton::kNone, parent);
}

// The text of the box that the reporter shows for a failure; "beep" if it only beeps, "" if it is
// silent.
CText TextFor(const CException& failure)
{
    AlertCapture user;
    CServiceT<CReporter>::Get()->Report(failure);
    EXPECT_LE(user.boxes.size() + static_cast<std::size_t>(user.beeps), 1U);
    return user.boxes.empty() ? CText(user.beeps != 0 ? "beep" : "") : user.boxes[0].Text();
}

} // namespace

TEST(Alert, ChoosesItsButtonsAndTheDefaultAmongThem)
{
    using enum AlertButton;
    const std::tuple<int, AlertButton, std::uint32_t> rows[] = {
        {0, kNone, 0},       {0, kCancel, 0},     {9, kNo, 0},         {-1, kOK, 0},
        {1, kNone, 1},       {1, kOK, 1},         {1, kCancel, 0x101}, {1, kNo, 1},
        {2, kYes, 4},        {2, kNo, 0x104},     {7, kNone, 4},       {7, kNo, 0x104},
        {7, kCancel, 4},     {3, kYes, 3},        {3, kNo, 0x103},     {3, kCancel, 0x203},
        {6, kNo, 0x103},     {6, kCancel, 0x203}, {8, kNone, 3},       {8, kNo, 0x103},
        {8, kCancel, 0x203}, {4, kRetry, 5},      {4, kCancel, 0x105}, {5, kAbort, 2},
        {5, kRetry, 0x102},  {5, kIgnore, 0x202},
    };
    for (const auto& [buttons, defaultButton, flags] : rows)
        EXPECT_EQ(FlagsOf(buttons, defaultButton), flags | kForeground)
            << buttons << ", " << static_cast<int>(defaultButton);
}

TEST(Alert, ChoosesIconAndModality)
{
    const std::uint32_t icons[] = {0, 0x40, 0x20, 0x30, 0x10, 0};
    for (int icon = 0; icon < 6; ++icon)
        EXPECT_EQ(FlagsOf(0, AlertButton::kNone, icon), icons[icon] | kForeground) << icon;
    const std::uint32_t modalities[] = {0, 0x2000, 0x1000, 0};
    for (int modality = 0; modality < 4; ++modality)
        EXPECT_EQ(FlagsOf(0, AlertButton::kNone, 0, modality), modalities[modality] | kForeground)
            << modality;
}

TEST(Alert, LocalisesItsTextsAndStandsBeforeTheFrontWindowUnlessItIsGivenOne)
{
    int places[2] = {};
    const auto front = reinterpret_cast<Platform::NativeWindow>(&places[0]);
    const auto other = reinterpret_cast<Platform::NativeWindow>(&places[1]);
    TestProcess process;
    process.frontWindow = front;
    AlertCapture user;
    Show("$$$/Test/Alert/Message=Disk^rfull.", "$$$/Test/Alert/Explanation=Free some space.");
    EXPECT_EQ(user.boxes.at(0).Text(), "Disk\rfull.\n\nFree some space.");
    EXPECT_EQ(user.boxes[0].message, "Disk\rfull.");
    EXPECT_EQ(user.boxes[0].explanation, "Free some space.");
    EXPECT_EQ(user.boxes[0].title, "Trouble");
    EXPECT_EQ(user.boxes[0].parent, front);
    Show("message", "$$$/Test/Alert/Nothing", other);
    EXPECT_EQ(user.boxes.at(1).Text(), "message") << "the explanation resolves to nothing";
    EXPECT_EQ(user.boxes[1].parent, other);
}

TEST(Alert, ReturnsTheAnswerOfTheYoungestHookThatDoesNotPassItOn)
{
    AlertCapture outer(AlertButton::kYes);
    auto middle = std::make_unique<AlertCapture>(AlertButton::kRetry);
    {
        AlertCapture inner(AlertButton::kNo);
        EXPECT_EQ(Show(), AlertButton::kNo);
        middle.reset();
        EXPECT_EQ(Show(), AlertButton::kNo) << "an older one has ended";
    }
    const CAlertHook passesOn;
    EXPECT_EQ(Show(), AlertButton::kYes);
    BeepAlert();
    EXPECT_EQ(outer.boxes.size(), 1U);
    EXPECT_EQ(outer.beeps, 1);
}

TEST(Reporter, ShowsTaskAndErrorInAStopAlert)
{
    AlertCapture user;
    CServiceT<CReporter>::Get()->Report(
        CError("$$$/Test/Reporter/Task=The frame was not read.", "The disk is gone."));
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].Text(), "The frame was not read.\n\nThe disk is gone.");
    EXPECT_EQ(user.boxes[0].title, "Error");
    EXPECT_EQ(user.boxes[0].Flags(), 0x12010U);
}

TEST(Reporter, FindsTheWordsForAFailureOrIsSilent)
{
    constexpr char kUnknown[] = "The operation could not be completed.";
    EXPECT_EQ(TextFor(CError("The end was reached.")), "The end was reached.");
    EXPECT_EQ(TextFor(CError()), kUnknown);
    EXPECT_EQ(TextFor(CException()), kUnknown) << "a task without an error";
    EXPECT_EQ(TextFor(CError("error", true, true)), "");
    EXPECT_EQ(TextFor(CError("error", true, false)), "");
    EXPECT_EQ(TextFor(CAbort(true)), "");
    EXPECT_EQ(TextFor(CError("error", false, false)), "beep");
    AlertCapture user;
    CServiceT<CReporter>::Get()->ReportUnknown();
    EXPECT_EQ(user.boxes.at(0).Text(), kUnknown);
}
