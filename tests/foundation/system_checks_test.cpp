#include "foundation/exceptions.h"
#include "foundation/system_checks.h"
#include "platform/error_text.h"
#include "platform/last_error.h"

#include "foundation/debug_log.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

using namespace Kesto;

namespace {

// The code that a check throws with the last error set as given; nothing if it passes.
std::optional<std::uint32_t> CodeOf(std::uint32_t lastError, const std::function<void()>& check)
{
    Platform::SetLastError(lastError);
    try {
        check();
    } catch (const CSystemError& e) {
        return e.Code();
    }
    return std::nullopt;
}

constexpr char kSomething = 'x';

} // namespace

TEST(SystemChecks, PassGoodAnswersBy)
{
    const std::function<void()> checks[] = {
        [] { OSThrow(0); },         [] { OSThrowBare(0); },         [] { OSThrowLastNull(&kSomething); },
        [] { OSThrowLastZero(1); }, [] { OSThrowLastFalse(true); }, [] { OSThrowNull(&kSomething); },
        [] { OSThrowZero(1, 7); },  [] { OSThrowFalse(true, 7); },
    };
    for (const auto& check : checks)
        EXPECT_EQ(CodeOf(5, check), std::nullopt);
    EXPECT_EQ(CodeOf(0, [] { OSThrowLast(); }), std::nullopt);
}

TEST(SystemChecks, ThrowTheCodeTheyAreGiven)
{
    EXPECT_EQ(CodeOf(5, [] { OSThrow(7); }), 7U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowBare(7); }), 7U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowZero(0, 7); }), 7U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowFalse(false, 7); }), 7U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowFalse(false, 0); }), 0U);
}

TEST(SystemChecks, ThrowTheLastError)
{
    EXPECT_EQ(CodeOf(5, [] { OSThrowLast(); }), 5U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowLastNull(nullptr); }), 5U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowLastZero(0); }), 5U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowLastFalse(false); }), 5U);
}

TEST(SystemChecks, ThrowExhaustedMemoryForNullOnly)
{
    EXPECT_EQ(Platform::kOutOfMemoryCode, 14U);
    EXPECT_EQ(CodeOf(0, [] { OSThrowLastNull(nullptr); }), 14U);
    EXPECT_EQ(CodeOf(0, [] { OSThrowLastZero(0); }), 0U);
    EXPECT_EQ(CodeOf(0, [] { OSThrowLastFalse(false); }), 0U);
    EXPECT_EQ(CodeOf(5, [] { OSThrowNull(nullptr); }), 14U);
}

TEST(SystemChecks, LogTheirNameAndTheCallersPlace)
{
    const struct {
        const char* name;
        std::function<void()> check;
    } rows[] = {
        {"OSThrow", [] { OSThrow(7, "caller.cpp", 31); }},
        {"OSThrowLast", [] { OSThrowLast("caller.cpp", 31); }},
        {"OSThrowLastNull", [] { OSThrowLastNull(nullptr, "caller.cpp", 31); }},
        {"OSThrowLastZero", [] { OSThrowLastZero(0, "caller.cpp", 31); }},
        {"OSThrowLastFalse", [] { OSThrowLastFalse(false, "caller.cpp", 31); }},
        {"OSThrowNull", [] { OSThrowNull(nullptr, "caller.cpp", 31); }},
        {"OSThrowZero", [] { OSThrowZero(0, 7, "caller.cpp", 31); }},
        {"OSThrowFalse", [] { OSThrowFalse(false, 7, "caller.cpp", 31); }},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(LogGets("Exception thrown: \"CSystemError from " + std::string(row.name) + "\".,caller.cpp,31",
                            [&] { EXPECT_NE(CodeOf(5, row.check), std::nullopt); }))
            << row.name;
}

TEST(SystemChecks, KnowTheirCaller)
{
    constexpr std::uint32_t kLine = __LINE__ + 1;
    const auto check = [] { OSThrow(7); };
    EXPECT_TRUE(LogGets("Exception thrown: \"CSystemError from OSThrow\".," __FILE__ "," + std::to_string(kLine),
                        [&] { EXPECT_EQ(CodeOf(0, check), 7U); }));
}
