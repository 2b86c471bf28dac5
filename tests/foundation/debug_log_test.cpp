// What the debug log gets: reports, and the checks of operating-system answers that fail.
#include "foundation/errors/debug_report.h"
#include "foundation/errors/exceptions.h"
#include "foundation/errors/system_checks.h"
#include "platform/system/errors.h"

#include "foundation/test_process.h"
#include "support/testing.h"

#include <thread>

using namespace Kesto;

namespace {

// Whether `report` brings the log the line, in one of a few attempts: all processes of the machine
// share the log, and another may start it anew at any time.
bool LogGets(const std::string& line, const std::function<void()>& report)
{
    std::error_code ignored; // the folder is missing on a bare Windows
    std::filesystem::create_directory(std::filesystem::path(kDebugLogPath).parent_path(), ignored);
    for (int attempt = 0; attempt < 20; ++attempt) {
        report();
        std::ifstream log(kDebugLogPath);
        if (std::string(std::istreambuf_iterator(log), {}).find(line + "\n") != std::string::npos)
            return true;
    }
    return false;
}

using Code = std::optional<std::uint32_t>;

// The code that a check throws with the last error set as given; nothing if it passes.
Code CodeOf(std::uint32_t lastError, const std::function<void()>& check)
{
    Platform::SetLastError(lastError);
    try {
        check();
    } catch (const CSystemError& e) {
        return e.Code();
    }
    return std::nullopt;
}

} // namespace

TEST(DebugReport, WritesMessageFileAndLineAndThrowsWhenAskedTo)
{
    EXPECT_TRUE(
        LogGets("It is odd,pane.cpp,17", [] { DebugReport("It is odd", "pane.cpp", 17, false); }));
    EXPECT_TRUE(LogGets(",,18", [] { DebugReport(nullptr, nullptr, 18, false); }));
    EXPECT_TRUE(LogGets("No process,worker.cpp,21", [] {
        std::thread([] { DebugReport("No process", "worker.cpp", 21, false); }).join();
    }));
    EXPECT_THROW(DebugReport("Stop here", "pane.cpp", 19, true), CDebugError);
}

TEST(DebugReport, IsPostedFromOtherThreadsThanTheMainOne)
{
    TestProcess process;
    process.isMainThread = false;
    DebugReport("From afar", "worker.cpp", 20, true);
    EXPECT_EQ(process.posted,
              (std::vector<TestProcess::Report>{{"From afar", "worker.cpp", 20, true}}));
}

TEST(MainThread, IsTheOneThatFirstAsked)
{
    ASSERT_TRUE(CProcessServices::Current().IsMainThread());
    bool isMain = true;
    std::thread([&] { isMain = CProcessServices::Current().IsMainThread(); }).join();
    EXPECT_FALSE(isMain);
}

TEST(SystemChecks, ThrowTheirCodeAndLogTheirNameAndTheCallersPlace)
{
    static constexpr char kSomething = 'x';
    const struct {
        const char* name;
        void (*check)(bool good);
        Code withLastError5, withoutLastError;
    } rows[] = {
        {"OSThrow", [](bool good) { OSThrow(good ? 0 : 7, "a.cpp", 31); }, 7, 7},
        {"OSThrowLast", [](bool good) { good ? void() : OSThrowLast("a.cpp", 31); }, 5,
         std::nullopt},
        {"OSThrowLastNull",
         [](bool good) { OSThrowLastNull(good ? &kSomething : nullptr, "a.cpp", 31); }, 5, 14},
        {"OSThrowLastZero", [](bool good) { OSThrowLastZero(good, "a.cpp", 31); }, 5, 0},
        {"OSThrowLastFalse", [](bool good) { OSThrowLastFalse(good, "a.cpp", 31); }, 5, 0},
        {"OSThrowNull", [](bool good) { OSThrowNull(good ? &kSomething : nullptr, "a.cpp", 31); },
         14, 14},
        {"OSThrowZero", [](bool good) { OSThrowZero(good, 7, "a.cpp", 31); }, 7, 7},
        {"OSThrowFalse", [](bool good) { OSThrowFalse(good, 7, "a.cpp", 31); }, 7, 7},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(LogGets(
            "Exception thrown: \"CSystemError from " + std::string(row.name) + "\".,a.cpp,31",
            [&] { EXPECT_EQ(CodeOf(5, [&] { row.check(false); }), row.withLastError5); }));
        EXPECT_EQ(CodeOf(0, [&] { row.check(false); }), row.withoutLastError);
        EXPECT_EQ(CodeOf(5, [&] { row.check(true); }), std::nullopt);
    }
    EXPECT_EQ(CodeOf(5, [] { OSThrowFalse(false, 0); }), 0U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowBare(7); }), 7U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowBare(0); }), std::nullopt);
}

TEST(SystemChecks, KnowTheirCaller)
{
    constexpr std::uint32_t kLine = __LINE__ + 1;
    const auto check = [] { OSThrow(7); };
    EXPECT_TRUE(LogGets("Exception thrown: \"CSystemError from OSThrow\".," __FILE__ "," +
                            std::to_string(kLine),
                        [&] { EXPECT_EQ(CodeOf(0, check), 7U); }));
}
