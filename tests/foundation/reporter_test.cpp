#include "foundation/reporter.h"

#include "support/alert_capture.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

void Report(const CException& e)
{
    CServiceT<CReporter>::Get()->Report(e);
}

} // namespace

TEST(Reporter, ShowsTaskAndErrorInAStopAlert)
{
    AlertCapture user;
    Report(CError("$$$/Test/Reporter/Task=The frame was not read.", "The disk is gone."));
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].text, "The frame was not read.\n\nThe disk is gone.");
    EXPECT_EQ(user.boxes[0].title, "Error");
    EXPECT_EQ(user.boxes[0].flags, 0x12010U);
    EXPECT_EQ(user.beeps, 0);
}

TEST(Reporter, ShowsAnErrorWithoutTaskAsTheMessage)
{
    AlertCapture user;
    Report(CError("The end was reached."));
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].text, "The end was reached.");
}

TEST(Reporter, FindsWordsForAnErrorWithoutAny)
{
    AlertCapture user;
    Report(CError());
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].text, "The operation could not be completed.");
}

TEST(Reporter, ShowsOnlyTheTaskWhenTheSystemHasNoText)
{
    class CWordless final : public CException {};
    AlertCapture user;
    Report(CWordless());
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].text, "The operation could not be completed.");
}

TEST(Reporter, SaysNothingOfAQuietFailure)
{
    AlertCapture user;
    Report(CError("error", true, true));
    Report(CError("error", true, false));
    Report(CAbort(true));
    EXPECT_TRUE(user.boxes.empty());
    EXPECT_EQ(user.beeps, 0);
}

TEST(Reporter, OnlyBeepsForAFailureThatIsNoAlert)
{
    AlertCapture user;
    Report(CError("error", false, false));
    EXPECT_TRUE(user.boxes.empty());
    EXPECT_EQ(user.beeps, 1);
}

TEST(Reporter, ReportsWhatItDoesNotKnowInTheBasesWords)
{
    AlertCapture user;
    CServiceT<CReporter>::Get()->ReportUnknown();
    ASSERT_EQ(user.boxes.size(), 1U);
    EXPECT_EQ(user.boxes[0].text, "The operation could not be completed.");
}
