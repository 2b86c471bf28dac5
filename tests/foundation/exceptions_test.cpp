#include "foundation/errors/exceptions.h"
#include "platform/system/errors.h"
#include "support/testing.h"

using namespace Kesto;
using testing::AnyOf;
using testing::HasSubstr;

namespace {

constexpr char kTaskFailed[] = "$$$/Kesto/Exception/Task=The operation could not be completed.";

// Task, error, quiet and alert of an exception, asked through its base.
using Answers = std::tuple<std::string, std::string, bool, bool>;

Answers AnswersOf(const CException& e)
{
    CText error("left over");
    e.GetErrorText(error);
    EXPECT_EQ(error, e.ErrorText());
    return {std::string(e.TaskText().View()), std::string(error.View()), e.IsQuiet(), e.IsAlert()};
}

std::string SystemText(std::uint32_t code)
{
    const CSystemError e(code);
    EXPECT_EQ(e.Code(), code);
    EXPECT_EQ(e.TaskText(), kTaskFailed);
    return std::string(e.ErrorText().View());
}

} // namespace

TEST(Exception, KnowsOnlyThatTheTaskFailed)
{
    CException e;
    e.SetTaskText("ignored");
    e.SetErrorText("ignored");
    EXPECT_EQ(AnswersOf(e), Answers(kTaskFailed, "", false, true));
}

TEST(Error, TakesOverWhatAnotherExceptionAnswers)
{
    const CAbort abort(true, false);
    const CException& base = abort;
    EXPECT_EQ(AnswersOf(CError(base)),
              Answers("$$$/Kesto/Abort/Task=The operation was not completed.",
                      "$$$/Kesto/Abort/Error=The operation has been canceled.", true, false));
    EXPECT_EQ(AnswersOf(CError("outer", CError("inner", "why", true, false))),
              Answers("outer", "why", true, false));
}

TEST(SystemError, HasTheSystemsTextForACode)
{
    EXPECT_EQ(SystemText(0),
              "$$$/Kesto/SystemError/Win/Unknown=An unknown operating system error has occurred.");
    EXPECT_THAT(SystemText(2),
                AnyOf(HasSubstr("file"), HasSubstr("File"))); // no such file, on both systems
    EXPECT_THAT(SystemText(Platform::kOutOfMemoryCode),
                AnyOf(HasSubstr("memory"), HasSubstr("storage")));
    for (const std::uint32_t code :
         {193U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) // no system knows all of them
        EXPECT_LT(SystemText(code).size(), 256U) << code;
}

TEST(DebugError, TellsMessageAndPlace)
{
    EXPECT_EQ(AnswersOf(CDebugError("broken", "pane.cpp", 4294967295U)),
              Answers("broken", "File pane.cpp, Line 4294967295.", false, true));
    EXPECT_EQ(
        AnswersOf(CDebugError(nullptr, nullptr, 7)),
        Answers("An unknown debugging error was generated.", "File not specified.", false, true));
}
