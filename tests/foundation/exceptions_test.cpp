#include "foundation/exceptions.h"
#include "platform/error_text.h"

#include <gmock/gmock.h>

using namespace Kesto;

TEST(Exception, KnowsOnlyThatTheTaskFailed)
{
    CException e;
    e.SetTaskText("ignored");
    e.SetErrorText("ignored");
    EXPECT_FALSE(e.IsQuiet());
    EXPECT_TRUE(e.IsAlert());
    EXPECT_EQ(e.TaskText(), "$$$/Kesto/Exception/Task=The operation could not be completed.");
    CText error("left over");
    e.GetErrorText(error);
    EXPECT_TRUE(error.IsEmpty());
}

TEST(Error, BeginsEmptyAndAudible)
{
    const CError e;
    EXPECT_TRUE(e.TaskText().IsEmpty());
    EXPECT_TRUE(e.ErrorText().IsEmpty());
    EXPECT_FALSE(e.IsQuiet());
    EXPECT_TRUE(e.IsAlert());
}

TEST(Error, LeavesTheTaskEmptyWhenOnlyTheErrorIsGiven)
{
    const CError e("why", true, false);
    EXPECT_TRUE(e.TaskText().IsEmpty());
    EXPECT_EQ(e.ErrorText(), "why");
    EXPECT_TRUE(e.IsQuiet());
    EXPECT_FALSE(e.IsAlert());
}

TEST(Error, HoldsBothTextsAndLetsThemChange)
{
    CError e("what", "why");
    EXPECT_EQ(e.TaskText(), "what");
    EXPECT_EQ(e.ErrorText(), "why");
    e.SetTaskText("what else");
    e.SetErrorText("why else");
    EXPECT_EQ(e.TaskText(), "what else");
    EXPECT_EQ(e.ErrorText(), "why else");
}

TEST(Error, TakesOverWhatAnotherExceptionAnswers)
{
    const CAbort abort(true, false);
    const CException& base = abort;
    const CError e(base);
    EXPECT_EQ(e.TaskText(), "$$$/Kesto/Abort/Task=The operation was not completed.");
    EXPECT_EQ(e.ErrorText(), "$$$/Kesto/Abort/Error=The operation has been canceled.");
    EXPECT_TRUE(e.IsQuiet());
    EXPECT_FALSE(e.IsAlert());
}

TEST(Error, PutsItsOwnTaskOverAnothersError)
{
    const CError cause("inner", "why", true, false);
    const CError e("outer", cause);
    EXPECT_EQ(e.TaskText(), "outer");
    EXPECT_EQ(e.ErrorText(), "why");
    EXPECT_TRUE(e.IsQuiet());
    EXPECT_FALSE(e.IsAlert());
}

TEST(Error, SharesItsTextsWithItsCopies)
{
    const CError e("what", "why");
    const CError copy = e;
    EXPECT_TRUE(copy.ErrorText().SharesBufferWith(e.ErrorText()));
}

TEST(SystemError, HasTheUnknownTextForZero)
{
    EXPECT_EQ(CSystemError(0).ErrorText(),
              "$$$/Kesto/SystemError/Win/Unknown=An unknown operating system error has occurred.");
    EXPECT_EQ(CSystemError(0).TaskText(), CException().TaskText());
}

TEST(SystemError, HasTheSystemsTextForACode)
{
    const CSystemError e(2); // no such file, on both systems
    EXPECT_EQ(e.Code(), 2U);
    EXPECT_THAT(std::string(e.ErrorText().View()),
                testing::AnyOf(testing::HasSubstr("file"), testing::HasSubstr("File")));
    EXPECT_THAT(std::string(CSystemError(Platform::kOutOfMemoryCode).ErrorText().View()),
                testing::AnyOf(testing::HasSubstr("memory"), testing::HasSubstr("storage")));
}

TEST(SystemError, SurvivesCodesThatNoSystemKnows)
{
    for (const std::uint32_t code : {193U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_LT(CSystemError(code).ErrorText().CharCount(), 256U) << code;
}

TEST(DebugError, TellsMessageAndPlace)
{
    const CDebugError e("broken", "pane.cpp", 4294967295U);
    EXPECT_EQ(e.TaskText(), "broken");
    EXPECT_EQ(e.ErrorText(), "File pane.cpp, Line 4294967295.");
}

TEST(DebugError, DoesWithoutMessageAndPlace)
{
    const CDebugError e(nullptr, nullptr, 7);
    EXPECT_EQ(e.TaskText(), "An unknown debugging error was generated.");
    EXPECT_EQ(e.ErrorText(), "File not specified.");
}
