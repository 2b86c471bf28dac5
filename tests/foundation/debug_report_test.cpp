#include "foundation/debug_report.h"
#include "foundation/exceptions.h"

#include "foundation/debug_log.h"
#include "foundation/test_process.h"

#include <gtest/gtest.h>

#include <thread>

using namespace Kesto;

TEST(DebugReport, WritesMessageFileAndLine)
{
    EXPECT_TRUE(
        LogGets("Something is odd,pane.cpp,17", [] { DebugReport("Something is odd", "pane.cpp", 17, false); }));
}

TEST(DebugReport, WritesNothingForUnknownTexts)
{
    EXPECT_TRUE(LogGets(",,18", [] { DebugReport(nullptr, nullptr, 18, false); }));
}

TEST(DebugReport, ThrowsWhenAskedTo)
{
    try {
        DebugReport("Stop here", "pane.cpp", 19, true);
        FAIL() << "nothing was thrown";
    } catch (const CDebugError& e) {
        EXPECT_EQ(e.TaskText(), "Stop here");
        EXPECT_EQ(e.ErrorText(), "File pane.cpp, Line 19.");
    }
}

TEST(DebugReport, IsPostedFromOtherThreadsThanTheMainOne)
{
    TestProcess process;
    process.isMainThread = false;
    EXPECT_NO_THROW(DebugReport("From afar", "worker.cpp", 20, true));
    ASSERT_EQ(process.posted.size(), 1U);
    EXPECT_STREQ(process.posted[0].message, "From afar");
    EXPECT_STREQ(process.posted[0].file, "worker.cpp");
    EXPECT_EQ(process.posted[0].line, 20U);
    EXPECT_TRUE(process.posted[0].throwIt);
}

TEST(DebugReport, IsWrittenByAnyThreadWithoutAProcess)
{
    EXPECT_TRUE(LogGets("No process,worker.cpp,21",
                        [] { std::thread([] { DebugReport("No process", "worker.cpp", 21, false); }).join(); }));
}

TEST(MainThread, IsTheOneThatFirstAsked)
{
    ASSERT_TRUE(CProcessServices::Current().IsMainThread());
    bool isMain = true;
    std::thread([&] { isMain = CProcessServices::Current().IsMainThread(); }).join();
    EXPECT_FALSE(isMain);
}
