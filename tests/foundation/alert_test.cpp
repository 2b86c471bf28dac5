#include "foundation/alert.h"

#include "foundation/test_process.h"
#include "support/alert_capture.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

constexpr std::uint32_t kForeground = 0x10000;

std::uint32_t FlagsOf(int buttons, AlertButton defaultButton = AlertButton::kNone, AlertIcon icon = AlertIcon::kNone,
                      AlertModality modality = AlertModality::kApplication)
{
    AlertCapture user;
    ShowAlert(AlertButtons{buttons}, icon, modality, "message", "", "title", defaultButton);
    return user.boxes.at(0).flags;
}

} // namespace

TEST(Alert, ChoosesItsButtonsAndTheDefaultAmongThem)
{
    using enum AlertButton;
    const struct {
        int buttons;
        AlertButton defaultButton;
        std::uint32_t flags;
    } rows[] = {
        {0, kNone, 0},       {0, kCancel, 0},     {9, kNo, 0},         {-1, kOK, 0},   {1, kNone, 1},
        {1, kOK, 1},         {1, kCancel, 0x101}, {1, kNo, 1},         {2, kYes, 4},   {2, kNo, 0x104},
        {7, kNone, 4},       {7, kNo, 0x104},     {7, kCancel, 4},     {3, kYes, 3},   {3, kNo, 0x103},
        {3, kCancel, 0x203}, {6, kNo, 0x103},     {6, kCancel, 0x203}, {8, kNone, 3},  {8, kNo, 0x103},
        {8, kCancel, 0x203}, {4, kRetry, 5},      {4, kCancel, 0x105}, {5, kAbort, 2}, {5, kRetry, 0x102},
        {5, kIgnore, 0x202},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FlagsOf(row.buttons, row.defaultButton), row.flags | kForeground)
            << row.buttons << ", " << static_cast<int>(row.defaultButton);
}

TEST(Alert, ChoosesIconAndModality)
{
    const std::uint32_t icons[] = {0, 0x40, 0x20, 0x30, 0x10, 0};
    for (int icon = 0; icon < 6; ++icon)
        EXPECT_EQ(FlagsOf(0, AlertButton::kNone, AlertIcon{icon}), icons[icon] | kForeground) << icon;
    const std::uint32_t modalities[] = {0, 0x2000, 0x1000, 0};
    for (int modality = 0; modality < 4; ++modality)
        EXPECT_EQ(FlagsOf(0, AlertButton::kNone, AlertIcon::kNone, AlertModality{modality}),
                  modalities[modality] | kForeground)
            << modality;
}

TEST(Alert, LocalisesItsTexts)
{
    AlertCapture user;
    ShowAlert(AlertButtons::kOK, AlertIcon::kWarning, AlertModality::kTask, "$$$/Test/Alert/Message=Disk^rfull.",
              "$$$/Test/Alert/Explanation=Free some space.", "$$$/Test/Alert/Title=Trouble");
    EXPECT_EQ(user.boxes.at(0).text, "Disk\rfull.\n\nFree some space.");
    EXPECT_EQ(user.boxes.at(0).title, "Trouble");
}

TEST(Alert, LeavesOutAnExplanationThatResolvesToNothing)
{
    AlertCapture user;
    ShowAlert(AlertButtons::kOK, AlertIcon::kNone, AlertModality::kTask, "message", "$$$/Test/Alert/Nothing", "title");
    EXPECT_EQ(user.boxes.at(0).text, "message");
}

TEST(Alert, StandsBeforeTheFrontWindowUnlessItIsGivenOne)
{
    int front = 0;
    int other = 0;
    TestProcess process;
    process.frontWindow = &front;
    AlertCapture user;
    ShowAlert(AlertButtons::kOK, AlertIcon::kNone, AlertModality::kTask, "m", "", "t");
    ShowAlert(AlertButtons::kOK, AlertIcon::kNone, AlertModality::kTask, "m", "", "t", AlertButton::kNone, &other);
    EXPECT_EQ(user.boxes.at(0).parent, &front);
    EXPECT_EQ(user.boxes.at(1).parent, &other);
}

TEST(Alert, ReturnsTheAnswerOfTheYoungestHook)
{
    AlertCapture outer(AlertButton::kYes);
    const auto ask = [] {
        return ShowAlert(AlertButtons::kYesNo, AlertIcon::kQuestion, AlertModality::kTask, "m", "", "t");
    };
    {
        AlertCapture inner(AlertButton::kNo);
        EXPECT_EQ(ask(), AlertButton::kNo);
    }
    EXPECT_EQ(ask(), AlertButton::kYes);
    EXPECT_EQ(outer.boxes.size(), 1U);
}
